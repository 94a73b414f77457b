// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidata.h"

#include "numerics/errorreport.h"

#include <QTest>

#include <climits>
#include <sstream>

class TestAsciiData : public QObject
{
    Q_OBJECT

private slots:
    void allocatesAndFrees();
    void clearLeavesTheCounts();
    void refusesWhatNoMemoryHolds_data();
    void refusesWhatNoMemoryHolds();
    void visitsCellsUntilOneFails();
    void writesTheNameHeader();
    void defaultNames();
};

void TestAsciiData::allocatesAndFrees()
{
    AsciiData data;
    for (const auto& [rows, columns] : {std::pair(2U, 3U), {0U, 0U}, {3U, 0U}, {0U, 3U}}) {
        QVERIFY(data.allocate(rows, columns));
        QCOMPARE(data.rows(), rows);
        QCOMPARE(data.cols(), columns);
    }
    data.freeMatrix();
    QVERIFY(data.matrix().isNull());
    QCOMPARE(data.cols(), 0U);
}

void TestAsciiData::clearLeavesTheCounts()
{
    AsciiData data;
    data.allocate(2, 3);
    data.setNames(VariableNames(3));
    data.clear();
    QVERIFY(data.matrix().isNull());
    QVERIFY(data.names().isEmpty());
    QCOMPARE(data.rows(), 2U);
    QCOMPARE(data.cols(), 3U);
    QVERIFY(data.forEachCell([](double*) { return false; }));
}

void TestAsciiData::refusesWhatNoMemoryHolds_data()
{
    QTest::addColumn<unsigned>("rows");
    QTest::addColumn<unsigned>("columns");
    QTest::newRow("both huge") << unsigned(INT_MAX) << unsigned(INT_MAX);
    QTest::newRow("rows beyond int") << unsigned(INT_MAX) + 1 << 1U;
    QTest::newRow("columns beyond int") << 1U << UINT_MAX;
}

void TestAsciiData::refusesWhatNoMemoryHolds()
{
    QFETCH(unsigned, rows);
    QFETCH(unsigned, columns);
    const auto before = pelmora::setErrorReport([](const char*) {});
    AsciiData data;
    data.allocate(2, 2);
    QVERIFY(!data.allocate(rows, columns));
    QCOMPARE(data.rows(), 0U);
    QCOMPARE(data.cols(), 0U);
    QVERIFY(data.matrix().isNull());
    pelmora::setErrorReport(before);
}

void TestAsciiData::visitsCellsUntilOneFails()
{
    AsciiData data;
    data.allocate(2, 2);
    QVERIFY(data.forEachCell([](double* cell) {
        static double next = 0;
        *cell = next++;
        return true;
    }));
    QCOMPARE(data.matrix()[1][0], 2.0);
    QVERIFY(!data.forEachCell([](double* cell) { return (*cell += 10) < 12; }));
    QCOMPARE(data.matrix()[1][0], 12.0);
    QCOMPARE(data.matrix()[1][1], 3.0);
}

void TestAsciiData::writesTheNameHeader()
{
    AsciiData data;
    data.setNames(VariableNames::fromTexts({"A b", "2", "\u00D6"}));
    std::ostringstream out;
    data.writeNames(out);
    QCOMPARE(out.str(), std::string("vname\t1\tA b\nvname\t2\t2\nvname\t3\t\xD6\n"));
}

void TestAsciiData::defaultNames()
{
    VariableNames names(3);
    names.set(1, "B");
    names.set(3, "beyond");
    QCOMPARE(names.texts(), QStringList({"1", "B", "3"}));
    QCOMPARE(names.first(2).texts(), QStringList({"1", "B"}));
    QCOMPARE(names.first(5).texts(), QStringList({"1", "B", "3", "4", "5"}));
    names.set(1, "2");
    QCOMPARE(names[1], std::string("2"));
}

QTEST_GUILESS_MAIN(TestAsciiData)
#include "tst_asciidata.moc"
