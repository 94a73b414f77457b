// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciicorrreader.h"

#include "input/correlationdata.h"
#include "input/inputfile.h"
#include "support/dialogscript.h"

#include <QTest>

namespace {

const auto notANumber =
    QStringLiteral("Error while reading correlation matrix|Some entries seems to be not a number.");
const auto unidentified = QStringLiteral("Error|Unable to identify type of correlation matrix");

/// Lines are separated by slashes.
QByteArray fileBytes(const QString& lines)
{
    return lines.toLatin1().replace(" / ", "\n").replace("/", "\n");
}

QString valuesOf(const AsciiData& data)
{
    QStringList rows;
    for (int r = 0; r < data.matrix().rows(); ++r) {
        QStringList row;
        for (int c = 0; c < data.matrix().columns(); ++c)
            row << QString::number(data.matrix()[r][c]);
        rows << row.join(u' ');
    }
    return rows.join(QStringLiteral(" / "));
}

} // namespace

class TestAsciiCorrReader : public QObject
{
    Q_OBJECT

private slots:
    void shapesAndCompletions_data();
    void shapesAndCompletions();
    void refusedFiles_data();
    void refusedFiles();
    void linesWithoutPlaceInTheMatrix_data();
    void linesWithoutPlaceInTheMatrix();
    void asymmetry_data();
    void asymmetry();
    void surplusEntriesOfTheLastLineArePassedOver();
    void names();
    void completesLargeTriangles();
};

void TestAsciiCorrReader::shapesAndCompletions_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<int>("shape");
    QTest::addColumn<QString>("completed");
    const auto row = [](const QString& lines, int shape, const QString& completed) {
        QTest::newRow(qPrintable(lines)) << lines << shape << completed;
    };
    row("0.5", 0, "0.5");
    row("1 .3 / .3 1", 0, "1 .3 / .3 1");
    row("1.0 .3 .2 / 1 .4 / +1.00", 1, "1.0 .3 .2 / .3 1 .4 / .2 .4 +1.00");
    row("0.3 0.2 / 0.4", 2, "1.0 0.3 0.2 / 0.3 1.0 0.4 / 0.2 0.4 1.0");
    row(".1 .2 .3 / .4 .5 / .6", 2, "1.0 .1 .2 .3 / .1 1.0 .4 .5 / .2 .4 1.0 .6 / .3 .5 .6 1.0");
    row("1 .3 .2 / 1 .4 / 2", 2, "1.0 1 .3 .2 / 1 1.0 1 .4 / .3 1 1.0 2 / .2 .4 2 1.0");
    row("1 / 0.3 1 / 0.2 0.4 1", 3, "1 0.3 0.2 / 0.3 1 0.4 / 0.2 0.4 1");
    row("0.3 / 0.2 0.4", 4, "1.0 0.3 0.2 / 0.3 1.0 0.4 / 0.2 0.4 1.0");
    row("1 / 0.3 1 / 0.2 0.4 0.9", 4,
        "1.0 1 0.3 0.2 / 1 1.0 1 0.4 / 0.3 1 1.0 0.9 / "
        "0.2 0.4 0.9 1.0");
    row("1 / 1 1", 3, "1 1 / 1 1");
}

void TestAsciiCorrReader::shapesAndCompletions()
{
    QFETCH(QString, lines);
    QFETCH(QString, completed);
    const InputFile file(fileBytes(lines));
    DialogScript script;
    AsciiCorrReader unread(file.path(), nullptr);
    QVERIFY(unread.readFile());
    QTEST(unread.identifyType(), "shape");

    AsciiCorrReader reader(file.path(), nullptr);
    QVERIFY(reader.read());
    QVERIFY(reader.checkConsistency());
    QCOMPARE(reader.dataLines().join(QStringLiteral(" / ")), completed);
    QCOMPARE(reader.columnCount(), reader.lineCount());
    CorrelationData data;
    QVERIFY(data.allocate(reader.lineCount(), reader.lineCount()));
    QVERIFY(reader.getData(data));
    QVERIFY(data.testSymmetry());
    QCOMPARE(script.takeRecord(), QStringList());
}

void TestAsciiCorrReader::refusedFiles_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QStringList>("boxes");
    const QStringList both = {notANumber, unidentified};
    QTest::newRow("first entry") << "1 .3 / - 1" << both;
    QTest::newRow("last entry") << "1 .3 / .3 1.2.3" << both;
    QTest::newRow("blank line") << "1 / .3 1 / \t" << both;
    QTest::newRow("ragged") << "1 2 3 / 4 5 6 / 7 8" << QStringList(unidentified);
    QTest::newRow("growing by two") << "1 / 1 2 3 / 1 2 3 4 5" << QStringList(unidentified);
}

void TestAsciiCorrReader::refusedFiles()
{
    QFETCH(QString, lines);
    const InputFile file(fileBytes(lines));
    DialogScript script;
    QVERIFY(!AsciiCorrReader(file.path(), nullptr).read());
    QTEST(script.takeRecord(), "boxes");
}

void TestAsciiCorrReader::linesWithoutPlaceInTheMatrix_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<int>("shape");
    QTest::newRow("no lines") << "a" << 0;
    QTest::newRow("inner entry no number") << "1 . .2 / .3 1 .4 / .2 .4 1" << 0;
    QTest::newRow("one line, two columns") << "1 1" << 3;
    QTest::newRow("two lines, last too short") << "1.0 0.5 / 1.0" << 4;
    QTest::newRow("lower, last too short") << "1 / .2 1 / .3 .4 1 / .7 1" << 3;
    QTest::newRow("lower without, last too short") << ".2 / .3 .4 / .7" << 4;
    QTest::newRow("lower, too wide") << "1 1 / .2 .3 1 / .4 .5 .6 1" << 3;
    QTest::newRow("upper, last too long") << "1 .2 .3 / 1 .4 / 1 9 9" << 1;
    QTest::newRow("upper without, last too long") << ".1 .2 .3 / .4 .5 / .6 9" << 2;
    QTest::newRow("upper, too wide") << "1 2 3 4 5 / 1 2 3 4 / 1" << 1;
    QTest::newRow("upper, too narrow") << "1 2 / 1 / 1 2 3" << 1;
}

void TestAsciiCorrReader::linesWithoutPlaceInTheMatrix()
{
    QFETCH(QString, lines);
    const InputFile file(fileBytes(lines));
    DialogScript script;
    AsciiCorrReader unread(file.path(), nullptr);
    QVERIFY(unread.readFile());
    QTEST(unread.identifyType(), "shape");
    AsciiCorrReader reader(file.path(), nullptr);
    QVERIFY(reader.read());
    CorrelationData data;
    QVERIFY(data.allocate(reader.lineCount(), reader.lineCount()));
    QVERIFY(!reader.getData(data));
    QCOMPARE(script.takeRecord(), QStringList());
}

void TestAsciiCorrReader::asymmetry_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("asymmetry");
    const auto cell = QStringLiteral("Not symmetric at row %1 and col %2");
    QTest::newRow("first in row-major order")
        << "1 .1 .2 / .1 1 .3 / .9 .9 1" << cell.arg(1).arg(3);
    QTest::newRow("equal to within 1e-10") << "1 0.5 / 0.50000000009 1" << QString();
    QTest::newRow("more than 1e-10") << "1 0.5 / 0.50000000011 1" << cell.arg(1).arg(2);
    QTest::newRow("misread rectangle") << "1 0.5 0.2 / 0.5 1 0.3" << cell.arg(2).arg(3);
}

void TestAsciiCorrReader::asymmetry()
{
    QFETCH(QString, lines);
    QFETCH(QString, asymmetry);
    const InputFile file(fileBytes(lines));
    AsciiCorrReader reader(file.path(), nullptr);
    QVERIFY(reader.read());
    CorrelationData data;
    QVERIFY(data.allocate(reader.lineCount(), reader.lineCount()));
    QVERIFY(reader.getData(data));
    QCOMPARE(data.testSymmetry(), asymmetry.isEmpty());
    QCOMPARE(data.asymmetry(), asymmetry);
}

void TestAsciiCorrReader::surplusEntriesOfTheLastLineArePassedOver()
{
    const InputFile file("1\n.3 1\n.2 .4 1\n.5 .6 .7 1 8 9 1\n");
    AsciiCorrReader reader(file.path(), nullptr);
    QVERIFY(reader.read());
    CorrelationData data;
    QVERIFY(data.allocate(4, 4));
    QVERIFY(reader.getData(data));
    QCOMPARE(valuesOf(data), QString("1 0.3 0.2 0.5 / 0.3 1 0.4 0.6 / 0.2 0.4 1 0.7 / "
                                     "0.5 0.6 0.7 1"));
}

void TestAsciiCorrReader::names()
{
    const InputFile file("Some heading\n0.3 0.2\n0.4\nvname 3 C c\nvname 4 D\n");
    AsciiCorrReader reader(file.path(), nullptr);
    QVERIFY(reader.read());
    CorrelationData data;
    QVERIFY(data.allocate(reader.lineCount(), reader.lineCount()));
    QVERIFY(reader.getData(data));
    QCOMPARE(data.names().texts(), QStringList({"1", "2", "C c"}));
}

void TestAsciiCorrReader::completesLargeTriangles()
{
    // Every entry tells its cell.
    constexpr int order = 120;
    const auto entry = [](int r, int c) { return QByteArray::number(1000 * r + c) + ' '; };
    for (const bool upper : {true, false}) {
        for (const bool diagonal : {true, false}) {
            QByteArray bytes;
            for (int r = 0; r < order; ++r) {
                for (int c = upper ? r : 0; c < (upper ? order : r + 1); ++c)
                    bytes += c == r ? (diagonal ? "1 " : "") : entry(r, c);
                bytes += '\n';
            }
            const InputFile file(bytes);
            AsciiCorrReader reader(file.path(), nullptr);
            QVERIFY(reader.read());
            CorrelationData data;
            QVERIFY(data.allocate(order, order));
            QVERIFY(reader.getData(data));
            for (int r = 0; r < order; ++r)
                for (int c = 0; c < order; ++c)
                    QCOMPARE(data.matrix()[r][c], r == c             ? 1.0
                                                  : (r < c) == upper ? 1000.0 * r + c
                                                                     : 1000.0 * c + r);
        }
    }
}

QTEST_MAIN(TestAsciiCorrReader)
#include "tst_asciicorrreader.moc"
