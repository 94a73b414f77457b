// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/standardisation.h"
#include "numericstest.h"
#include "plain/numerics.h"
#include "support/difference.h"

#include <QTest>

using namespace pelmora;
using namespace numericstest;

class TestCorrelation : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void rowWiseMeansDivideByTheNumberOfVariables();
};

void TestCorrelation::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("flag");
    // Blocks hold 128 cases, panels 8 variables.
    const std::vector<std::pair<int, int>> shapes{
        {0, 3},   {3, 0},   {1, 1},   {1, 5},   {5, 1},   {2, 9},   {6, 4},   {7, 6},    {15, 2},
        {14, 21}, {18, 31}, {36, 20}, {31, 40}, {127, 7}, {128, 8}, {129, 9}, {257, 17}, {17, 257}};
    for (const auto& [rows, columns] : shapes)
        for (int flag : {0, 1})
            QTest::addRow("%d x %d, flag %d", rows, columns, flag) << rows << columns << flag;
}

void TestCorrelation::equalsThePlainFormToTheBit()
{
    QFETCH(int, rows);
    QFETCH(int, columns);
    QFETCH(int, flag);
    Random random(unsigned(rows * 1000 + columns));
    Matrix x = randomMatrix(rows, columns, random);
    if (flag == 0 && columns > 2)
        for (int i = 0; i < rows; ++i)
            x[i][1] = 0.5; // a variable without variance gives NaN
    Matrix plainX = x.clone();
    Matrix rebuilt = x.clone();
    Standardisation used;
    const Matrix stays = correlations(x, flag == 1, used);
    QCOMPARE(difference(x, plainX), QString());
    const RawScores raw{.data = &rebuilt, .used = &used, .rowWise = flag == 1};
    Matrix zScores(raw.cases(), stays.rows());
    standardise(raw, 0, raw.cases(), zScores);
    const Matrix r = correlationsOf(x, flag);
    QCOMPARE(difference(r, stays), QString());
    const Matrix plainR = Matrix::adopt(plain::correlate(plainX.rowPointers(), rows, columns, flag),
                                        r.rows(), r.columns());
    QCOMPARE(difference(r, plainR), QString());
    QCOMPARE(difference(x, plainX), QString());
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            QCOMPARE(difference(x[i][j], flag == 1 ? zScores[j][i] : zScores[i][j]), QString());
}

void TestCorrelation::rowWiseMeansDivideByTheNumberOfVariables()
{
    // Two variables, three cases: the row sums 6 and 12 are divided by 2.
    Matrix x = fromRows({{1, 2, 3}, {3, 3, 6}});
    const Matrix r = correlationsOf(x, 1);
    const double variance1 = (4.0 + 1.0 + 0.0) / 3.0;
    const double variance2 = (9.0 + 9.0 + 0.0) / 3.0;
    QCOMPARE(difference(r[0][1], (6.0 + 3.0) / 3.0 / std::sqrt(variance1 * variance2), 1e-15),
             QString());
    QCOMPARE(difference(x[1][0], -3.0 / std::sqrt(variance2), 1e-15), QString());
}

QTEST_GUILESS_MAIN(TestCorrelation)
#include "tst_correlation.moc"
