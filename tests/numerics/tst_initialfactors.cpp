// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numericstest.h"

#include <QTest>

using namespace pelmora;
using namespace numericstest;

class TestInitialFactors : public QObject
{
    Q_OBJECT

private slots:
    void negativeEigenvaluesCountByMagnitudeOrSign();
};

void TestInitialFactors::negativeEigenvaluesCountByMagnitudeOrSign()
{
    const double d[] = {4.0, 0.0, -0.04};
    const Matrix v = filled(2, 3, -0.5);
    Matrix l(2, 3);
    initial_loadings(d, v.rowPointers(), 2, 3, l.rowPointers());
    QCOMPARE(l[1][0], -1.0);
    QCOMPARE(l[1][1], 0.0);
    QCOMPARE(l[0][2], -0.1);
    score_coefficients(d, v.rowPointers(), 2, 3, l.rowPointers());
    QCOMPARE(l[1][2], -2.5);

    const double eigenvalues[] = {2.5, 1.0, 0.75, -0.25};
    double variance[4];
    double cumulative[4];
    explained_variance(eigenvalues, 4, variance, cumulative);
    QCOMPARE(variance[0], 62.5);
    QCOMPARE(variance[3], -6.25);
    QCOMPARE(cumulative[2], 106.25);
    QCOMPARE(cumulative[3], 100.0);
}

QTEST_GUILESS_MAIN(TestInitialFactors)
#include "tst_initialfactors.moc"
