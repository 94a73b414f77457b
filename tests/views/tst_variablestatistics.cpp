// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/loadings.h"
#include "views/variablestatistics.h"

#include <QTest>

#include <cmath>

class TestVariableStatistics : public QObject
{
    Q_OBJECT

private slots:
    void describesVariablesInColumnsAndRows()
    {
        const auto inColumns = matrixOf({{1e9 + 1, 0.1, -2}, {1e9 + 2, 0.1, 4}, {1e9 + 3, 0.1, 1}});
        const auto inRows = matrixOf({{1e9 + 1, 1e9 + 2, 1e9 + 3}, {0.1, 0.1, 0.1}, {-2, 4, 1}});
        const pelmora::VariableStatistics expected[] = {
            {3, 1e9 + 2, std::sqrt(2.0 / 3.0), 1e9 + 1, 1e9 + 3},
            {3, 0.1, 0, 0.1, 0.1},
            {3, 1, std::sqrt(6.0), -2, 4}};
        for (const auto& all : {pelmora::variableStatistics(inColumns.rowPointers(), 3, 3, false),
                                pelmora::variableStatistics(inRows.rowPointers(), 3, 3, true)}) {
            QCOMPARE(all.size(), 3U);
            for (std::size_t i = 0; i < 3; ++i) {
                QVERIFY(all[i].mean == expected[i].mean); // to the last bit
                QCOMPARE(all[i].standardDeviation, expected[i].standardDeviation);
                QCOMPARE(all[i].minimum, expected[i].minimum);
                QCOMPARE(all[i].maximum, expected[i].maximum);
                QCOMPARE(all[i].isConstant(), i == 1);
                QVERIFY(!all[i].hasTooFewCases());
            }
        }
        const auto oneCase = pelmora::variableStatistics(inRows.rowPointers(), 1, 3, false);
        QCOMPARE(oneCase.size(), 3U);
        QVERIFY(oneCase[0].hasTooFewCases() && oneCase[0].isConstant());
        QCOMPARE(oneCase[2].mean, 1e9 + 3);
    }
};

QTEST_GUILESS_MAIN(TestVariableStatistics)
#include "tst_variablestatistics.moc"
