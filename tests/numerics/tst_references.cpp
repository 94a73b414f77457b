// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numericstest.h"
#include "support/datarows.h"
#include "support/difference.h"
#include "support/referencefile.h"

#include <QTest>

using namespace pelmora;
using namespace numericstest;

namespace {

Matrix harmanCorrelations()
{
    Matrix r = numbersIn(PELMORA_DATA_DIR "/harman-24-psychological-tests.cor");
    for (int i = 0; i < r.rows(); ++i)
        for (int j = 0; j < i; ++j)
            r[j][i] = r[i][j];
    return r;
}

Matrix boxCorrelations()
{
    Matrix data = numbersIn(PELMORA_DATA_DIR "/box-problem.txt");
    return correlationsOf(data);
}

Matrix sumsOfSquares(const Matrix& l, int columns)
{
    Matrix sums = filled(columns, 1, 0.0);
    for (int i = 0; i < l.rows(); ++i)
        for (int j = 0; j < columns; ++j)
            sums[j][0] += l[i][j] * l[i][j];
    return sums;
}

} // namespace

class TestReferences : public QObject
{
    Q_OBJECT

private slots:
    void correlationsAgreeWithR();
    void factorsAgreeWithR_data();
    void factorsAgreeWithR();
};

void TestReferences::correlationsAgreeWithR()
{
    QCOMPARE(loadingDifference(boxCorrelations(), reference("box-problem.correlations"), 1e-11),
             QString());
}

void TestReferences::factorsAgreeWithR_data()
{
    const DataRows<QString, int> row("sample", "factors");
    row("Harman's 24 tests", "harman-24", 4);
    row("Thurstone's boxes", "box-problem", 3);
}

void TestReferences::factorsAgreeWithR()
{
    QFETCH(QString, sample);
    QFETCH(int, factors);
    const Matrix l =
        Eigenpairs(factors == 4 ? harmanCorrelations() : boxCorrelations()).initialLoadings();
    const Matrix eigenvalues = reference(sample + ".eigenvalues");
    QCOMPARE(loadingDifference(sumsOfSquares(l, l.rows()), eigenvalues, 1e-10), QString());
    const QString suffix = '-' + QString::number(factors);
    QCOMPARE(loadingDifference(l, reference(sample + ".initial" + suffix), 1e-10), QString());

    // R stops a little earlier, so the loadings agree less closely than the criterion.
    const Rotation rotation = rotated(l, factors, VarimaxRotation);
    const Matrix varimax = reference(sample + ".varimax" + suffix);
    QCOMPARE(difference(rotation.total(), Rotation(varimax, factors).total(), 1e-11), QString());
    QCOMPARE(loadingDifference(rotation.l, varimax, 1e-6), QString());
    Matrix squares = sumsOfSquares(rotation.l, factors);
    std::ranges::sort(elements(squares), std::greater());
    QCOMPARE(loadingDifference(squares, reference(sample + ".varimax" + suffix + "-squares"), 1e-6),
             QString());
}

QTEST_GUILESS_MAIN(TestReferences)
#include "tst_references.moc"
