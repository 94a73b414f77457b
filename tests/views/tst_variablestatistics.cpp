// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/variablestatistics.h"

#include <QTest>

#include <cmath>

using Values = std::vector<double>;

class TestVariableStatistics : public QObject
{
    Q_OBJECT

private slots:
    void describesOneVariable_data();
    void describesOneVariable();
    void variablesMayLieInRows();
};

void TestVariableStatistics::describesOneVariable_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<double>("mean");
    QTest::addColumn<double>("deviation");
    QTest::addColumn<bool>("constant");
    QTest::addColumn<bool>("tooFew");
    QTest::newRow("divisor n") << Values{2, 4, 4, 4, 5, 5, 7, 9} << 5.0 << 2.0 << false << false;
    QTest::newRow("two cases") << Values{-1, 1} << 0.0 << 1.0 << false << false;
    QTest::newRow("large mean") << Values{1e9 + 1, 1e9 + 2, 1e9 + 3} << 1e9 + 2
                                << std::sqrt(2.0 / 3.0) << false << false;
    QTest::newRow("constant") << Values{3, 3, 3} << 3.0 << 0.0 << true << false;
    QTest::newRow("constant, no binary fraction")
        << Values{0.1, 0.1, 0.1, 0.1, 0.1, 0.1} << 0.1 << 0.0 << true << false;
    QTest::newRow("all zero") << Values{0.0, -0.0} << 0.0 << 0.0 << true << false;
    QTest::newRow("one case") << Values{7} << 7.0 << 0.0 << true << true;
}

void TestVariableStatistics::describesOneVariable()
{
    QFETCH(Values, values);
    std::vector<const double*> rows;
    for (const double& value : values)
        rows.push_back(&value);
    const auto statistics =
        pelmora::variableStatistics(rows.data(), static_cast<int>(rows.size()), 1, false);
    QCOMPARE(statistics.size(), 1U);
    const auto& variable = statistics.front();
    QTEST(variable.mean, "mean");
    QTEST(variable.standardDeviation, "deviation");
    QCOMPARE(variable.minimum, *std::min_element(values.begin(), values.end()));
    QCOMPARE(variable.maximum, *std::max_element(values.begin(), values.end()));
    QTEST(variable.isConstant(), "constant");
    QTEST(variable.hasTooFewCases(), "tooFew");
}

void TestVariableStatistics::variablesMayLieInRows()
{
    const double first[] = {1, 2, 6};
    const double second[] = {5, 5, 5};
    const double* rows[] = {first, second};
    const auto byRow = pelmora::variableStatistics(rows, 2, 3, true);
    QCOMPARE(byRow.size(), 2U);
    QCOMPARE(byRow[0].mean, 3.0);
    QCOMPARE(byRow[0].cases, 3);
    QVERIFY(byRow[1].isConstant());
    const auto byColumn = pelmora::variableStatistics(rows, 2, 3, false);
    QCOMPARE(byColumn.size(), 3U);
    QCOMPARE(byColumn[2].standardDeviation, 0.5);
    QCOMPARE(byColumn[2].cases, 2);
}

QTEST_GUILESS_MAIN(TestVariableStatistics)
#include "tst_variablestatistics.moc"
