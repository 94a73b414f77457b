// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/product.h"
#include "numericstest.h"

#include <QTest>

#include <cmath>

using namespace pelmora;
using numericstest::filled;
using numericstest::Random;

class TestInitialFactors : public QObject
{
    Q_OBJECT

private slots:
    void loadingsTakeTheMagnitudeOfAnEigenvalue();
    void sharesAddUp();
    void scoresHaveUnitVariance();
};

void TestInitialFactors::loadingsTakeTheMagnitudeOfAnEigenvalue()
{
    const double d[] = {4.0, 0.0, -0.04};
    const Matrix v = filled(2, 3, -0.5);
    Matrix l(2, 3);
    initial_loadings(d, v.rowPointers(), 2, 3, l.rowPointers());
    QCOMPARE(l[1][0], -1.0);
    QCOMPARE(l[1][1], 0.0);
    QCOMPARE(l[0][2], -0.1);
}

void TestInitialFactors::sharesAddUp()
{
    const double d[] = {2.5, 1.0, 0.75, -0.25};
    double variance[4];
    double cumulative[4];
    explained_variance(d, 4, variance, cumulative);
    QCOMPARE(variance[0], 62.5);
    QCOMPARE(variance[3], -6.25);
    QCOMPARE(cumulative[2], 106.25);
    QCOMPARE(cumulative[3], 100.0);
}

void TestInitialFactors::scoresHaveUnitVariance()
{
    constexpr int n = 50;
    constexpr int p = 6;
    Random random(3);
    Matrix x = numericstest::randomMatrix(n, p, random);
    Matrix r = Matrix::adopt(correlate(x.rowPointers(), n, p, 0), p, p);
    Vector d(p);
    Matrix v(p, p);
    jacobi(r.rowPointers(), p, d.data(), v.rowPointers());
    sort_eigenpairs(d.data(), v.rowPointers(), p);
    Matrix b(p, 2);
    score_coefficients(d.data(), v.rowPointers(), p, 2, b.rowPointers());
    Matrix scores(n, 2);
    multiply(scores.rowPointers(), x.rowPointers(), 0, b.rowPointers(), n, p, 2);
    for (int j = 0; j < 2; ++j) {
        double squares = 0.0;
        for (int i = 0; i < n; ++i)
            squares += scores[i][j] * scores[i][j];
        QVERIFY(std::fabs(squares / n - 1.0) < 1e-13);
    }
}

QTEST_GUILESS_MAIN(TestInitialFactors)
#include "tst_initialfactors.moc"
