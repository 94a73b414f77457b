// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/rotation.h"
#include "numericstest.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <numeric>

using namespace pelmora;

namespace {

Matrix toMatrix(const std::vector<std::vector<double>>& rows)
{
    Matrix result = numericstest::filled(int(rows.size()), int(rows.back().size()), 0.0);
    for (int i = 0; i < result.rows(); ++i)
        std::copy(rows[std::size_t(i)].begin(), rows[std::size_t(i)].end(), result[i]);
    return result;
}

/// What R makes of a sample; make_references.R beside the files says how.
Matrix reference(const QString& name)
{
    return toMatrix(numericstest::numbersIn(PELMORA_SOURCE_DIR "/tests/data/" + name + ".txt"));
}

Matrix harmanCorrelations()
{
    Matrix r =
        toMatrix(numericstest::numbersIn(PELMORA_DATA_DIR "/harman-24-psychological-tests.cor"));
    for (int i = 0; i < r.rows(); ++i)
        for (int j = 0; j < i; ++j)
            r[j][i] = r[i][j];
    return r;
}

Matrix boxCorrelations()
{
    return numericstest::correlationsOf(
        toMatrix(numericstest::numbersIn(PELMORA_DATA_DIR "/box-problem.txt")));
}

double columnSum(const Matrix& l, int j, bool squared)
{
    double sum = 0.0;
    for (int i = 0; i < l.rows(); ++i)
        sum += squared ? l[i][j] * l[i][j] : l[i][j];
    return sum;
}

/// The first m columns in the order of their sums of squares, each reflected so that it adds up to
/// a positive number.
Matrix arranged(const Matrix& l, int m)
{
    std::vector<int> order(std::size_t(m), 0);
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(),
              [&](int a, int b) { return columnSum(l, a, true) > columnSum(l, b, true); });
    Matrix result(l.rows(), m);
    for (int j = 0; j < m; ++j) {
        const int from = order[std::size_t(j)];
        const double sign = std::copysign(1.0, columnSum(l, from, false));
        for (int i = 0; i < l.rows(); ++i)
            result[i][j] = sign * l[i][from];
    }
    return result;
}

double largestDifference(const Matrix& a, const Matrix& b)
{
    if (a.rows() != b.rows() || a.columns() != b.columns())
        return HUGE_VAL;
    double largest = 0.0;
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            largest = std::max(largest, std::fabs(a[i][j] - b[i][j]));
    return largest;
}

double criterion(const Matrix& l, int m)
{
    double sum = 0.0;
    for (int j = 0; j < m; ++j)
        sum += column_criterion(l.rowPointers(), j, l.rows());
    return sum;
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
    QVERIFY(largestDifference(boxCorrelations(), reference("box-problem.correlations")) < 1e-11);
}

void TestReferences::factorsAgreeWithR_data()
{
    QTest::addColumn<QString>("sample");
    QTest::addColumn<int>("factors");
    QTest::newRow("Harman's 24 tests") << "harman-24" << 4;
    QTest::newRow("Thurstone's boxes") << "box-problem" << 3;
}

void TestReferences::factorsAgreeWithR()
{
    QFETCH(QString, sample);
    QFETCH(int, factors);
    Matrix l =
        numericstest::initialLoadings(factors == 4 ? harmanCorrelations() : boxCorrelations());
    const int p = l.rows();
    const Matrix eigenvalues = reference(sample + ".eigenvalues");
    QCOMPARE(eigenvalues.rows(), p);
    for (int j = 0; j < p; ++j)
        QVERIFY(std::fabs(columnSum(l, j, true) - eigenvalues[j][0]) < 1e-10);

    const QString suffix = '-' + QString::number(factors);
    const Matrix initial = reference(sample + ".initial" + suffix);
    QVERIFY(largestDifference(arranged(l, factors), arranged(initial, factors)) < 1e-10);

    // R stops a little earlier, so the loadings agree less closely than the criterion.
    Matrix b = numericstest::filled(p, factors, 0.0);
    pelmora::rotate(l.rowPointers(), b.rowPointers(), factors, p, VarimaxRotation);
    const Matrix varimax = reference(sample + ".varimax" + suffix);
    QVERIFY(std::fabs(criterion(l, factors) - criterion(varimax, factors)) < 1e-11);
    const Matrix rotated = arranged(l, factors);
    QVERIFY(largestDifference(rotated, arranged(varimax, factors)) < 1e-6);
    const Matrix squares = reference(sample + ".varimax" + suffix + "-squares");
    for (int j = 0; j < factors; ++j)
        QVERIFY(std::fabs(columnSum(rotated, j, true) - squares[j][0]) < 1e-6);
}

QTEST_GUILESS_MAIN(TestReferences)
#include "tst_references.moc"
