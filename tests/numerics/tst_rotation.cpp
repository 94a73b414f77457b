// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/rotation.h"
#include "numericstest.h"
#include "plain/numerics.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace pelmora;
using numericstest::allNan;
using numericstest::filled;
using numericstest::Random;
using numericstest::sameBits;

namespace {

/// Loadings with a companion that begins as their first m columns.
struct Problem
{
    Problem(const Matrix& loadings, int factors)
        : l(loadings.clone())
        , b(l.rows(), factors)
        , m(factors)
    {
        for (int i = 0; i < l.rows(); ++i)
            std::copy_n(l[i], m, b[i]);
    }

    Problem& rotatedBy(decltype(pelmora::rotate) routine, int method)
    {
        routine(l.rowPointers(), b.rowPointers(), m, l.rows(), method);
        return *this;
    }

    double total() const
    {
        double sum = 0.0;
        for (int j = 0; j < m; ++j)
            sum += column_criterion(l.rowPointers(), j, l.rows());
        return sum;
    }

    bool companionFollowed() const
    {
        for (int i = 0; i < l.rows(); ++i)
            if (!sameBits(l[i], b[i], m))
                return false;
        return true;
    }

    Matrix l;
    Matrix b;
    int m;
};

bool sameResult(const Problem& a, const Problem& b)
{
    return sameBits(a.l, b.l) && sameBits(a.b, b.b);
}

Matrix surveyLoadings(unsigned seed, int variables)
{
    Random random(seed);
    return numericstest::initialLoadings(
        numericstest::correlationsOf(numericstest::survey(4 * variables, variables, random)));
}

Matrix identity(int p)
{
    Matrix result = filled(p, p + 1, 0.0);
    for (int i = 0; i < p; ++i)
        result[i][i] = 1.0;
    return result;
}

} // namespace

class TestRotation : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void aSweepEqualsThePlainFormToTheBit();
    void oneFactorStays();
    void turnsWithoutStretching();
    void theMethodsEndAtOppositeEnds();
    void everyPairEndsStationary();
    void aStationaryPairStays();
    void twoVariablesStayUnderVarimax();
    void theColumnBehindTheLastCountsButNeverTurns();
    void anglesLieAnEighthOfATurnApart();
    void aPairWithoutAnglesStays_data();
    void aPairWithoutAnglesStays();
    void nanSpreadsAndEnds();
    void anyOtherMethodKeepsTheNearestAngle();
};

void TestRotation::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("variables");
    QTest::addColumn<int>("factors");
    Random random(1);
    for (const auto& [variables, factors] :
         {std::pair(2, 2), {3, 3}, {4, 2}, {5, 4}, {24, 4}, {31, 9}, {33, 12}, {60, 3}, {12, 12}})
        QTest::addRow("%d variables, %d factors", variables, factors) << variables << factors;
    for (int i = 0; i < 20; ++i) {
        const int variables = random.integer(3, 40);
        const int factors = random.integer(2, std::min(variables, 12));
        QTest::addRow("random %d: %d variables, %d factors", i, variables, factors)
            << variables << factors;
    }
}

void TestRotation::equalsThePlainFormToTheBit()
{
    QFETCH(int, variables);
    QFETCH(int, factors);
    const Matrix loadings = surveyLoadings(unsigned(variables + factors), variables);
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        Problem fast(loadings, factors);
        Problem plain(loadings, factors);
        QVERIFY(sameResult(fast.rotatedBy(pelmora::rotate, method),
                           plain.rotatedBy(plain::rotate, method)));
        QVERIFY(fast.companionFollowed());
    }
}

void TestRotation::aSweepEqualsThePlainFormToTheBit()
{
    for (int m : {0, 1, 2, 3, 6, 7})
        for (int method : {PelmoraRotation, VarimaxRotation, NoRotation}) {
            Random random{unsigned(m)};
            Problem fast(numericstest::randomMatrix(13, 8, random), m);
            Problem plain(fast.l, m);
            const double total =
                rotation_sweep(fast.l.rowPointers(), fast.b.rowPointers(), m, 13, method);
            const double plainTotal =
                plain::rotation_sweep(plain.l.rowPointers(), plain.b.rowPointers(), m, 13, method);
            QVERIFY(sameBits(total, plainTotal));
            QVERIFY(sameResult(fast, plain));
        }
}

void TestRotation::oneFactorStays()
{
    const Matrix loadings = surveyLoadings(1, 6);
    for (int m : {0, 1}) {
        Problem problem(loadings, m);
        problem.rotatedBy(pelmora::rotate, VarimaxRotation);
        QVERIFY(sameBits(problem.l, loadings));
    }
}

void TestRotation::turnsWithoutStretching()
{
    const Matrix loadings = surveyLoadings(2, 20);
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        Problem problem(loadings, 5);
        problem.b = identity(5);
        // The companion has as many rows as the loadings.
        problem.b = filled(20, 5, 0.0);
        for (int j = 0; j < 5; ++j)
            problem.b[j][j] = 1.0;
        problem.rotatedBy(pelmora::rotate, method);
        for (int i = 0; i < 20; ++i) {
            double communality = 0.0;
            double before = 0.0;
            for (int j = 0; j < 5; ++j) {
                communality += problem.l[i][j] * problem.l[i][j];
                before += loadings[i][j] * loadings[i][j];
                // The companion holds the whole rotation now.
                double product = 0.0;
                for (int k = 0; k < 5; ++k)
                    product += loadings[i][k] * problem.b[k][j];
                QVERIFY(std::fabs(product - problem.l[i][j]) < 1e-12);
            }
            QVERIFY(std::fabs(communality - before) < 1e-12);
        }
        for (int j = 0; j < 5; ++j)
            for (int k = 0; k <= j; ++k) {
                double cosine = j == k ? -1.0 : 0.0;
                for (int i = 0; i < 5; ++i)
                    cosine += problem.b[i][j] * problem.b[i][k];
                QVERIFY(std::fabs(cosine) < 1e-12);
            }
    }
}

void TestRotation::theMethodsEndAtOppositeEnds()
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const Matrix loadings = surveyLoadings(seed, 12);
        Problem high(loadings, 4);
        Problem low(loadings, 4);
        const double before = high.total();
        high.rotatedBy(pelmora::rotate, VarimaxRotation);
        low.rotatedBy(pelmora::rotate, PelmoraRotation);
        QVERIFY(high.total() >= before);
        QVERIFY(low.total() <= before);
        QVERIFY(high.total() - low.total() > 1e-3);
    }
}

void TestRotation::everyPairEndsStationary()
{
    const Matrix loadings = surveyLoadings(3, 18);
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        Problem problem(loadings, 5);
        problem.rotatedBy(pelmora::rotate, method);
        for (int j = 0; j < 5; ++j)
            for (int k = j + 1; k < 5; ++k) {
                double angle1 = 0.0;
                double angle2 = 0.0;
                pair_angles(problem.l.rowPointers(), j, k, 18, angle1, angle2);
                QVERIFY2(std::fabs(angle1) < 1e-4, qPrintable(QString::number(angle1)));
            }
    }
}

void TestRotation::aStationaryPairStays()
{
    // A pair at the minimum and, the other way round, at the maximum: both are stationary, and a
    // tie keeps the angle nearest to zero.
    for (int first : {PelmoraRotation, VarimaxRotation}) {
        Problem problem(surveyLoadings(4, 10), 2);
        for (int i = 0; i < 20; ++i)
            problem.rotatedBy(pelmora::rotate, first);
        const Matrix settled = problem.l.clone();
        problem.rotatedBy(pelmora::rotate, first);
        QVERIFY(sameBits(problem.l, settled));
    }
}

void TestRotation::twoVariablesStayUnderVarimax()
{
    Matrix r = filled(2, 2, 0.37);
    r[0][0] = r[1][1] = 1.0;
    const Matrix loadings = numericstest::initialLoadings(std::move(r));
    Problem problem(loadings, 2);
    problem.rotatedBy(pelmora::rotate, VarimaxRotation);
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 2; ++j)
            QCOMPARE(problem.l[i][j], loadings[i][j]);
}

void TestRotation::theColumnBehindTheLastCountsButNeverTurns()
{
    Problem problem(surveyLoadings(5, 9), 3);
    Problem other(problem.l, 3);
    for (int i = 0; i < 9; ++i)
        other.l[i][3] = 2.0 * i;
    const double added = column_criterion(other.l.rowPointers(), 3, 9) -
                         column_criterion(problem.l.rowPointers(), 3, 9);
    const auto sweep = [](Problem& p) {
        return rotation_sweep(p.l.rowPointers(), p.b.rowPointers(), 3, 9, VarimaxRotation);
    };
    const double total = sweep(problem);
    const double otherTotal = sweep(other);
    QVERIFY(std::fabs(otherTotal - total - added) < 1e-9 * added);
    for (int i = 0; i < 9; ++i) {
        QVERIFY(sameBits(problem.l[i], other.l[i], 3));
        QCOMPARE(other.l[i][3], 2.0 * i);
    }
    // Columns 0 and 1 and the one behind count, column 2 does not.
    double counted = 0.0;
    for (int j : {0, 1, 3})
        counted += column_criterion(problem.l.rowPointers(), j, 9);
    QCOMPARE(total, counted);
}

void TestRotation::anglesLieAnEighthOfATurnApart()
{
    for (unsigned seed = 1; seed <= 50; ++seed) {
        Random random(seed);
        const Matrix l = numericstest::randomMatrix(7, 2, random);
        double angle1 = 0.0;
        double angle2 = 0.0;
        pair_angles(l.rowPointers(), 0, 1, 7, angle1, angle2);
        QVERIFY(std::fabs(angle1) <= std::fabs(angle2));
        QVERIFY(std::fabs(std::fabs(angle1 - angle2) - std::atan(1.0)) < 1e-9);
        double plain1 = 0.0;
        double plain2 = 0.0;
        plain::pair_angles(l.rowPointers(), 0, 1, 7, plain1, plain2);
        QVERIFY(sameBits(angle1, plain1) && sameBits(angle2, plain2));
    }
}

void TestRotation::aPairWithoutAnglesStays_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("identity") << 0;
    QTest::newRow("zeros") << 1;
    QTest::newRow("numbers whose squares overflow") << 2;
    QTest::newRow("one variable") << 3;
}

void TestRotation::aPairWithoutAnglesStays()
{
    QFETCH(int, kind);
    const Matrix loadings = kind == 0   ? identity(4)
                            : kind == 1 ? filled(4, 4, 0.0)
                            : kind == 2 ? filled(4, 4, 1e200)
                                        : filled(1, 4, 0.5);
    double angle1 = 0.0;
    double angle2 = 0.0;
    pair_angles(loadings.rowPointers(), 0, 1, loadings.rows(), angle1, angle2);
    QVERIFY(std::isnan(angle1) && std::isnan(angle2));
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        Problem fast(loadings, 3);
        Problem plain(loadings, 3);
        QVERIFY(sameBits(fast.rotatedBy(pelmora::rotate, method).l, loadings));
        QVERIFY(sameResult(fast, plain.rotatedBy(plain::rotate, method)));
    }
}

void TestRotation::nanSpreadsAndEnds()
{
    Matrix loadings = surveyLoadings(6, 8);
    loadings[3][1] = std::numeric_limits<double>::quiet_NaN();
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        Problem fast(loadings, 4);
        Problem plain(loadings, 4);
        QVERIFY(allNan(fast.rotatedBy(pelmora::rotate, method).l, 4));
        QVERIFY(sameResult(fast, plain.rotatedBy(plain::rotate, method)));
        QCOMPARE(fast.l[0][4], loadings[0][4]);
    }
}

void TestRotation::anyOtherMethodKeepsTheNearestAngle()
{
    const Matrix loadings = surveyLoadings(7, 10);
    Problem fast(loadings, 4);
    Problem plain(loadings, 4);
    QVERIFY(sameResult(fast.rotatedBy(pelmora::rotate, 7), plain.rotatedBy(plain::rotate, 7)));
}

QTEST_GUILESS_MAIN(TestRotation)
#include "tst_rotation.moc"
