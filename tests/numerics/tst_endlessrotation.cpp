// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/rotation.h"
#include "numericstest.h"
#include "plain/numerics.h"

#include <QTest>

#include <algorithm>
#include <cmath>

using namespace pelmora;
using numericstest::filled;
using numericstest::Random;
using numericstest::sameBits;

namespace {

/// The rotation without any way out: what it comes to within so many sweeps.
struct Unaided
{
    Unaided(const Matrix& loadings, int factors, int method, int mostSweeps)
        : l(loadings.clone())
        , b(filled(l.rows(), factors, 0.0))
        , m(factors)
    {
        const double first = sweep(method);
        double previous = sweep(method);
        ended = std::fabs(first - previous) <= 1e-12;
        for (int i = 0; !ended && i < mostSweeps; ++i) {
            before = total();
            // The nearest angle of every pair: a plain sweep.
            const double criterion = sweep(NoRotation);
            ended = !(std::fabs(previous - criterion) > 1e-12);
            previous = criterion;
        }
    }

    double sweep(int method)
    {
        return rotation_sweep(l.rowPointers(), b.rowPointers(), m, l.rows(), method);
    }

    double total() const
    {
        double sum = 0.0;
        for (int j = 0; j < m; ++j)
            sum += column_criterion(l.rowPointers(), j, l.rows());
        return sum;
    }

    Matrix l;
    Matrix b;
    int m;
    bool ended = false;
    double before = 0.0;
};

Matrix fromUpperTriangle(int p, std::initializer_list<double> values)
{
    Matrix r(p, p);
    auto value = values.begin();
    for (int i = 0; i < p; ++i) {
        r[i][i] = 1.0;
        for (int j = i + 1; j < p; ++j)
            r[i][j] = r[j][i] = *value++;
    }
    return r;
}

/// Correlations of all sorts, from well-behaved to odd.
Matrix oddMatrix(int kind, Random& random)
{
    const int p = random.integer(3, 10);
    Matrix r =
        numericstest::correlationsOf(numericstest::survey(random.integer(p + 5, 100), p, random));
    const double common = 0.01 * random.integer(0, 99);
    for (int i = 0; i < p; ++i)
        for (int j = 0; j <= i; ++j) {
            double& element = r[i][j];
            if (kind == 1) // two decimals
                element = std::round(100.0 * element) / 100.0;
            if (kind == 2) // covariances
                element *= (1.0 + 0.2 * (i % 3)) * (1.0 + 0.2 * (j % 3));
            if (kind == 3) // equal eigenvalues
                element = i == j ? 1.0 : common;
            if (kind == 4) // blocks
                element = i == j ? 1.0 : i / 3 == j / 3 ? common : 0.0;
            r[j][i] = element;
        }
    return r;
}

bool isFinite(const Matrix& l)
{
    for (int i = 0; i < l.rows(); ++i)
        if (!std::all_of(l[i], l[i] + l.columns(), [](double x) { return std::isfinite(x); }))
            return false;
    return true;
}

double totalOf(const Matrix& l, int m)
{
    double sum = 0.0;
    for (int j = 0; j < m; ++j)
        sum += column_criterion(l.rowPointers(), j, l.rows());
    return sum;
}

} // namespace

class TestEndlessRotation : public QObject
{
    Q_OBJECT

private slots:
    void aSwingingRefinementEndsBetter();
    void everyRotationEnds_data();
    void everyRotationEnds();
};

void TestEndlessRotation::aSwingingRefinementEndsBetter()
{
    const Matrix loadings =
        numericstest::initialLoadings(fromUpperTriangle(4, {.39, -.24, .17, .17, -.25, .2}));
    const Unaided unaided(loadings, 3, VarimaxRotation, 5000);
    QVERIFY(!unaided.ended);

    Matrix l = loadings.clone();
    Matrix b = filled(4, 3, 1.0);
    pelmora::rotate(l.rowPointers(), b.rowPointers(), 3, 4, VarimaxRotation);
    QVERIFY(isFinite(l) && isFinite(b));
    const auto [low, high] = std::minmax({unaided.before, unaided.total()});
    QVERIFY(high - low > 1e-6);
    QVERIFY(totalOf(l, 3) >= high);

    Matrix plainL = loadings.clone();
    Matrix plainB = filled(4, 3, 1.0);
    plain::rotate(plainL.rowPointers(), plainB.rowPointers(), 3, 4, VarimaxRotation);
    QVERIFY(sameBits(l, plainL) && sameBits(b, plainB));
}

void TestEndlessRotation::everyRotationEnds_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("surveys") << 0;
    QTest::newRow("two decimals") << 1;
    QTest::newRow("covariances") << 2;
    QTest::newRow("equal eigenvalues") << 3;
    QTest::newRow("blocks") << 4;
}

void TestEndlessRotation::everyRotationEnds()
{
    QFETCH(int, kind);
    Random random{unsigned(kind)};
    int unaidedEnds = 0;
    for (int i = 0; i < 600; ++i) {
        int aboveOne = 0;
        const Matrix loadings = numericstest::initialLoadings(oddMatrix(kind, random), &aboveOne);
        const int p = loadings.rows();
        const int m = i % 2 ? random.integer(2, p) : std::clamp(aboveOne, 2, p);
        for (int method : {PelmoraRotation, VarimaxRotation}) {
            Matrix l = loadings.clone();
            Matrix b = filled(p, m, 0.0);
            pelmora::rotate(l.rowPointers(), b.rowPointers(), m, p, method);
            QVERIFY(isFinite(l));
            const Unaided unaided(loadings, m, method, 500);
            if (!unaided.ended)
                continue;
            ++unaidedEnds;
            QVERIFY(sameBits(l, unaided.l));
        }
    }
    QVERIFY2(unaidedEnds > 600, qPrintable(QString::number(unaidedEnds)));
}

QTEST_GUILESS_MAIN(TestEndlessRotation)
#include "tst_endlessrotation.moc"
