// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/variablestatistics.h"
#include "views/loadings.h"

#include <QTest>

#include <cmath>

class TestVariableStatistics : public QObject
{
    Q_OBJECT

private slots:
    void describesVariablesInColumnsAndRows()
    {
        const auto inRows = matrixOf({{1e9 + 1, 1e9 + 2, 1e9 + 3, 1e9 + 4, 1e9 + 5, 1e9, 1e9 + 6},
                                      {0.1, 0.1, 0.1, 0.1, 0.1, 0.1, 0.1},
                                      {-2, 4, 1, -2, 4, 1, 1}});
        pelmora::Matrix inColumns(7, 3);
        for (int i = 0; i < 7; ++i)
            for (int j = 0; j < 3; ++j)
                inColumns[i][j] = inRows[j][i];
        const pelmora::VariableStatistics expected[] = {{7, 1e9 + 3, 2, 1e9, 1e9 + 6},
                                                        {7, 0.1, 0, 0.1, 0.1},
                                                        {7, 1, std::sqrt(36.0 / 7.0), -2, 4}};
        for (const auto& all : {pelmora::variableStatistics(inColumns.rowPointers(), 7, 3, false),
                                pelmora::variableStatistics(inRows.rowPointers(), 3, 7, true)}) {
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
        const auto oneCase = pelmora::variableStatistics(inColumns.rowPointers(), 1, 3, false);
        QCOMPARE(oneCase.size(), 3U);
        QVERIFY(oneCase[0].hasTooFewCases() && oneCase[0].isConstant());
        QCOMPARE(oneCase[2].mean, -2.0);
    }
};

QTEST_GUILESS_MAIN(TestVariableStatistics)
#include "tst_variablestatistics.moc"
