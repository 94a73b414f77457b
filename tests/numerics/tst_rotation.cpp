// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/numerics.h"
#include "rotationdifference.h"
#include "support/datarows.h"

#include <QTest>

#include <array>
#include <numeric>

using namespace pelmora;
using namespace numericstest;

namespace {

constexpr auto anotherMethod = RotationMethod(3); // keeps the nearest angle

Matrix surveyLoadings(unsigned seed, int variables)
{
    Random random(seed);
    Matrix data = survey(4 * variables, variables, random);
    return Eigenpairs(correlationsOf(data)).initialLoadings();
}

std::array<double, 2> anglesOf(const Matrix& l, int j, int k,
                               decltype(pair_angles)& routine = pair_angles)
{
    std::array<double, 2> angles = {};
    routine(l.rowPointers(), j, k, l.rows(), angles[0], angles[1]);
    return angles;
}

} // namespace

class TestRotation : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void aSweepEqualsThePlainFormToTheBit();
    void anglesLieAnEighthOfATurnApart();
    void turnsWithoutStretching();
    void theMethodsEndAtOppositeEnds_data();
    void theMethodsEndAtOppositeEnds();
    void aPairWithoutAnglesStays_data();
    void aPairWithoutAnglesStays();
    void nanSpreadsAndEnds();
};

void TestRotation::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("variables");
    QTest::addColumn<int>("factors");
    const std::vector<std::pair<int, int>> shapes{{5, 0},   {5, 1},   {2, 2},  {3, 2},   {3, 3},
                                                  {4, 2},   {5, 4},   {6, 5},  {7, 7},   {12, 12},
                                                  {14, 3},  {18, 6},  {24, 4}, {25, 10}, {31, 9},
                                                  {33, 12}, {38, 11}, {60, 3}, {45, 22}};
    for (const auto& [variables, factors] : shapes)
        QTest::addRow("%d variables, %d factors", variables, factors) << variables << factors;
}

void TestRotation::equalsThePlainFormToTheBit()
{
    QFETCH(int, variables);
    QFETCH(int, factors);
    const Matrix loadings = surveyLoadings(unsigned(variables + factors), variables);
    for (int method : {PelmoraRotation, VarimaxRotation, anotherMethod}) {
        const Rotation fast = rotated(loadings, factors, method);
        QCOMPARE(difference(fast, rotated(loadings, factors, method, plain::rotate)), QString());
        QCOMPARE(difference(fast, Rotation(fast.l, factors)), QString()); // the companion followed
    }
}

void TestRotation::aSweepEqualsThePlainFormToTheBit()
{
    for (int m : {0, 1, 2, 3, 6, 7})
        for (int method : {PelmoraRotation, VarimaxRotation, NoRotation}) {
            Random random{unsigned(m)};
            Rotation fast(randomMatrix(13, 8, random), m);
            Rotation plain(fast.l, m);
            QCOMPARE(difference(fast.sweep(method), plain.sweep(method, plain::rotation_sweep)),
                     QString());
            QCOMPARE(difference(fast, plain), QString());
        }
}

void TestRotation::anglesLieAnEighthOfATurnApart()
{
    for (unsigned seed = 1; seed <= 50; ++seed) {
        Random random(seed);
        const Matrix l = randomMatrix(7, 2, random);
        const auto angles = anglesOf(l, 0, 1);
        QCOMPARE(difference(angles, anglesOf(l, 0, 1, plain::pair_angles)), QString());
        QVERIFY(std::fabs(angles[0]) <= std::fabs(angles[1]));
        QCOMPARE(difference(std::fabs(angles[0] - angles[1]), std::atan(1.0), 1e-9), QString());
    }
}

void TestRotation::turnsWithoutStretching()
{
    const Matrix before = surveyLoadings(2, 20);
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        const Matrix after = rotated(before, 5, method).l;
        for (int i = 0; i < 20; ++i)
            for (int k = 0; k < 20; ++k) {
                const double given = std::inner_product(before[i], before[i] + 5, before[k], 0.0);
                const double kept = std::inner_product(after[i], after[i] + 5, after[k], 0.0);
                QCOMPARE(difference(kept, given, 1e-12), QString());
            }
    }
}

void TestRotation::theMethodsEndAtOppositeEnds_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 20; ++seed)
        QTest::addRow("survey %u", seed) << seed;
}

void TestRotation::theMethodsEndAtOppositeEnds()
{
    QFETCH(unsigned, seed);
    const Matrix loadings = surveyLoadings(seed, 12);
    const double before = Rotation(loadings, 4).total();
    const Rotation low = rotated(loadings, 4, PelmoraRotation);
    const Rotation high = rotated(loadings, 4, VarimaxRotation);
    const QString totals =
        QStringLiteral("from %1 to %2 and %3").arg(before).arg(low.total()).arg(high.total());
    QVERIFY2(low.total() <= before && before <= high.total(), qPrintable(totals));
    QVERIFY2(high.total() - low.total() > 1e-3, qPrintable(totals));
    for (int j = 0; j < 4; ++j)
        for (int k = j + 1; k < 4; ++k) { // every pair is stationary
            QCOMPARE(difference(anglesOf(low.l, j, k)[0], 0.0, 1e-4), QString());
            QCOMPARE(difference(anglesOf(high.l, j, k)[0], 0.0, 1e-4), QString());
        }
}

void TestRotation::aPairWithoutAnglesStays_data()
{
    const DataRows<int, double, double> row("variables", "diagonal", "others");
    row("identity", 4, 1.0, 0.0);
    row("zeros", 4, 0.0, 0.0);
    row("overflow", 4, 1e200, 1e200);
    row("one variable", 1, 0.5, 0.5);
}

void TestRotation::aPairWithoutAnglesStays()
{
    QFETCH(int, variables);
    QFETCH(double, diagonal);
    QFETCH(double, others);
    Matrix loadings = filled(variables, 4, others);
    for (int i = 0; i < variables; ++i)
        loadings[i][i] = diagonal;
    for (double angle : anglesOf(loadings, 0, 1))
        QCOMPARE(angle, notANumber);
    const Rotation unchanged(loadings, 3);
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        QCOMPARE(difference(rotated(loadings, 3, method), unchanged), QString());
        QCOMPARE(difference(rotated(loadings, 3, method, plain::rotate), unchanged), QString());
    }
}

void TestRotation::nanSpreadsAndEnds()
{
    Matrix loadings = surveyLoadings(6, 8);
    loadings[3][1] = notANumber;
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        const Rotation fast = rotated(loadings, 4, method);
        QCOMPARE(difference(fast.l, withNan(loadings, 4)), QString());
        QCOMPARE(difference(fast, rotated(loadings, 4, method, plain::rotate)), QString());
    }
}

QTEST_GUILESS_MAIN(TestRotation)
#include "tst_rotation.moc"
