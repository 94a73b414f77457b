// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numericstest.h"
#include "plain/numerics.h"

#include <QTest>

#include <cmath>

using namespace pelmora;
using numericstest::Random;
using numericstest::sameBits;

namespace {

Matrix fromRows(std::initializer_list<std::initializer_list<double>> rows)
{
    Matrix result(int(rows.size()), int(rows.begin()->size()));
    int i = 0;
    for (const auto& row : rows)
        std::copy(row.begin(), row.end(), result[i++]);
    return result;
}

Matrix correlated(Matrix& x, int flag)
{
    const int p = flag == 1 ? x.rows() : x.columns();
    return Matrix::adopt(correlate(x.rowPointers(), x.rows(), x.columns(), flag), p, p);
}

} // namespace

class TestCorrelation : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void agreesWithR();
    void rowWiseMeansDivideByTheNumberOfVariables();
    void dataBecomeStandardScores();
    void aConstantVariableGivesNan();
    void oneCaseGivesNan();
};

void TestCorrelation::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("flag");
    Random random(1);
    const auto add = [](int rows, int columns) {
        for (int flag : {0, 1})
            QTest::addRow("%d x %d, flag %d", rows, columns, flag) << rows << columns << flag;
    };
    // Blocks hold 128 cases, panels 8 variables.
    for (const auto& [rows, columns] : {std::pair(0, 3),
                                        {3, 0},
                                        {1, 1},
                                        {1, 5},
                                        {5, 1},
                                        {127, 7},
                                        {128, 8},
                                        {129, 9},
                                        {257, 17},
                                        {17, 257}})
        add(rows, columns);
    for (int i = 0; i < 20; ++i)
        add(random.integer(1, 40), random.integer(1, 40));
}

void TestCorrelation::equalsThePlainFormToTheBit()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(int, flag);
    Random random(unsigned(rows * 1000 + columns));
    Matrix x = numericstest::randomMatrix(rows, columns, random);
    Matrix plainX = x.clone();
    const Matrix r = correlated(x, flag);
    const Matrix plainR = Matrix::adopt(plain::correlate(plainX.rowPointers(), rows, columns, flag),
                                        r.rows(), r.columns());
    QVERIFY(sameBits(r, plainR));
    QVERIFY(sameBits(x, plainX));
}

void TestCorrelation::agreesWithR()
{
    // cor(cbind(c(1, 2, 4, 7, 3), c(2, 1, 5, 9, 4), c(3, 8, 1, 0, 2)))
    Matrix x = fromRows({{1, 2, 3}, {2, 1, 8}, {4, 5, 1}, {7, 9, 0}, {3, 4, 2}});
    const Matrix r = correlated(x, 0);
    QVERIFY(std::fabs(r[0][1] - 0.96233280073665939) < 1e-14);
    QVERIFY(std::fabs(r[0][2] - -0.64852862658340094) < 1e-14);
    QVERIFY(std::fabs(r[1][2] - -0.81958762886597947) < 1e-14);
    for (int j = 0; j < 3; ++j)
        QCOMPARE(r[j][j], 1.0);
}

void TestCorrelation::rowWiseMeansDivideByTheNumberOfVariables()
{
    // Two variables, three cases: the row sums 6 and 12 are divided by 2.
    Matrix x = fromRows({{1, 2, 3}, {3, 3, 6}});
    const Matrix r = correlated(x, 1);
    const double variance1 = (4.0 + 1.0 + 0.0) / 3.0;
    const double variance2 = (9.0 + 9.0 + 0.0) / 3.0;
    QVERIFY(std::fabs(r[0][1] - (6.0 + 3.0) / 3.0 / std::sqrt(variance1 * variance2)) < 1e-15);
    QVERIFY(std::fabs(x[1][0] - -3.0 / std::sqrt(variance2)) < 1e-15);

    // As many cases as variables: nothing tells the orientations apart.
    Random random(5);
    Matrix columns = numericstest::randomMatrix(6, 6, random);
    Matrix rows(6, 6);
    for (int i = 0; i < 6; ++i)
        for (int j = 0; j < 6; ++j)
            rows[i][j] = columns[j][i];
    QVERIFY(sameBits(correlated(columns, 0), correlated(rows, 1)));
}

void TestCorrelation::dataBecomeStandardScores()
{
    Random random(7);
    Matrix x = numericstest::survey(60, 5, random);
    correlated(x, 0);
    for (int j = 0; j < 5; ++j) {
        double sum = 0.0;
        double squares = 0.0;
        for (int i = 0; i < 60; ++i) {
            sum += x[i][j];
            squares += x[i][j] * x[i][j];
        }
        QVERIFY(std::fabs(sum) < 1e-12);
        QVERIFY(std::fabs(squares / 60.0 - 1.0) < 1e-14);
    }
}

void TestCorrelation::aConstantVariableGivesNan()
{
    Matrix x = fromRows({{1, 4, 2}, {2, 4, 1}, {5, 4, 9}});
    const Matrix r = correlated(x, 0);
    QVERIFY(std::isnan(r[0][1]) && std::isnan(r[1][2]) && std::isnan(r[1][0]));
    QCOMPARE(r[1][1], 1.0);
    QVERIFY(std::isfinite(r[0][2]) && std::isfinite(x[0][0]));
    QVERIFY(std::isnan(x[0][1]));
}

void TestCorrelation::oneCaseGivesNan()
{
    Matrix x = fromRows({{1, 4}});
    const Matrix r = correlated(x, 0);
    QVERIFY(std::isnan(r[0][1]) && std::isnan(x[0][0]));
    QCOMPARE(r[0][0], 1.0);
}

QTEST_GUILESS_MAIN(TestCorrelation)
#include "tst_correlation.moc"
