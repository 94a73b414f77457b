// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidata.h"

#include "numerics/errorreport.h"

#include <QTest>

#include <climits>
#include <numeric>
#include <tuple>

class TestAsciiData : public QObject
{
    Q_OBJECT

private slots:
    void allocates();
    void visitsCellsUntilOneFails();
    void defaultNames();
};

void TestAsciiData::allocates()
{
    AsciiData data;
    const auto before = pelmora::setErrorReport([](const char*) {});
    constexpr unsigned most = INT_MAX;
    for (const auto& [rows, columns, fits] : {std::tuple(0U, 3U, true),
                                              {2U, 3U, true},
                                              {most, most, false},
                                              {0U, 0U, true},
                                              {3U, 0U, true},
                                              {most + 1, 1U, false},
                                              {2U, 1U, true},
                                              {1U, UINT_MAX, false}}) {
        QCOMPARE(data.allocate(rows, columns), fits);
        QCOMPARE(data.rows(), fits ? rows : 0U);
        QCOMPARE(data.cols(), fits ? columns : 0U);
        QCOMPARE(data.matrix().isNull(), !fits);
    }
    pelmora::setErrorReport(before);
}

void TestAsciiData::visitsCellsUntilOneFails()
{
    AsciiData data;
    data.allocate(2, 2);
    double* cells = data.matrix()[0];
    std::iota(cells, cells + 4, 0);
    QVERIFY(!data.forEachCell([](double* cell) { return (*cell += 10) < 12; }));
    QCOMPARE(std::vector<double>(cells, cells + 4), std::vector<double>({10, 11, 12, 3}));

    data.setNames(VariableNames(2));
    data.clear();
    QVERIFY(data.matrix().isNull() && data.names().isEmpty());
    // The counts stay.
    QVERIFY(data.rows() == 2 && data.cols() == 2);
    QVERIFY(data.forEachCell([](double*) { return false; }));
}

void TestAsciiData::defaultNames()
{
    VariableNames names(3);
    names.set(1, "B");
    names.set(3, "beyond");
    QCOMPARE(names.first(2).texts(), QStringList({"1", "B"}));
    QCOMPARE(names.first(5).texts(), QStringList({"1", "B", "3", "4", "5"}));
    names.set(1, "2");
    QCOMPARE(names.texts(), QStringList({"1", "2", "3"}));
}

QTEST_GUILESS_MAIN(TestAsciiData)
#include "tst_asciidata.moc"
