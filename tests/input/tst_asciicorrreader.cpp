// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciicorrreader.h"

#include "input/correlationdata.h"
#include "support/datarows.h"
#include "support/readerrecord.h"
#include "support/samplefile.h"

#include <QTest>

class TestAsciiCorrReader : public QObject
{
    Q_OBJECT

private slots:
    /// Files of rows without completed lines leave places of the matrix without a number.
    void shapesAndCompletions_data()
    {
        const DataRows<QByteArray, int, QString> rows("lines", "shape", "completed");
        const auto row = [&rows](const char* lines, int shape, const char* completed = "") {
            rows(lines, lines, shape, completed);
        };
        row("0.5", 0, "0.5");
        row("1 .3 / .3 1", 0, "1 .3 / .3 1");
        row("1.0 .3 .2 .5 / 1 .4 .6 / +1.00 .7 / 1", 1,
            "1.0 .3 .2 .5 / .3 1 .4 .6 / .2 .4 +1.00 .7 / .5 .6 .7 1");
        row("0.3 0.2 / 0.4", 2, "1.0 0.3 0.2 / 0.3 1.0 0.4 / 0.2 0.4 1.0");
        row(".1 .2 .3 / .4 .5 / .6", 2,
            "1.0 .1 .2 .3 / .1 1.0 .4 .5 / .2 .4 1.0 .6 / .3 .5 .6 1.0");
        row("1 .3 .2 / 1 .4 / 2", 2, "1.0 1 .3 .2 / 1 1.0 1 .4 / .3 1 1.0 2 / .2 .4 2 1.0");
        row("1 / .3 1 / .2 .4 1 / .5 .6 .7 1", 3,
            "1 .3 .2 .5 / .3 1 .4 .6 / .2 .4 1 .7 / .5 .6 .7 1");
        row("0.3 / 0.2 0.4", 4, "1.0 0.3 0.2 / 0.3 1.0 0.4 / 0.2 0.4 1.0");
        row("1 / .3 1 / .2 .4 .9", 4, "1.0 1 .3 .2 / 1 1.0 1 .4 / .3 1 1.0 .9 / .2 .4 .9 1.0");
        row("1 / 1 1", 3, "1 1 / 1 1");
        row("1 / .3 1 / .2 .4 1 8 1", 3, "1 .3 .2 / .3 1 .4 / .2 .4 1 8 1");
        row("heading", 0);
        row("1 . .2 / .3 1 .4 / .2 .4 1", 0);
        row("1 1", 3);
        row("1.0 0.5 / 1.0", 4);
        row("1 / .2 1 / .3 .4 1 / .7 1", 3);
        row(".2 / .3 .4 / .7", 4);
        row("1 1 / .2 .3 1 / .4 .5 .6 1", 3);
        row("1 .2 .3 / 1 .4 / 1 9 9", 1, "1 .2 .3 / .2 1 .4 / .3 .4 1 9 9");
        row(".1 .2 .3 / .4 .5 / .6 9", 2);
        row("1 2 3 4 5 / 1 2 3 4 / 1", 1);
        row("1 2 / 1 / 1 2 3", 1);
    }

    void shapesAndCompletions()
    {
        QFETCH(QByteArray, lines);
        QFETCH(QString, completed);
        const SampleFile file("r.txt", lines.replace(" / ", "\n"));
        ReaderRecord record;
        AsciiCorrReader unread(file.path(), nullptr);
        QVERIFY(unread.readFile());
        QTEST(unread.identifyType(), "shape");

        AsciiCorrReader reader(file.path(), nullptr);
        QVERIFY(reader.read());
        QVERIFY(reader.checkConsistency());
        CorrelationData data;
        QVERIFY(data.allocate(reader.lineCount(), reader.lineCount()));
        QCOMPARE(reader.getData(data), !completed.isEmpty());
        QCOMPARE(record.takeRecord(), QStringList());
        if (!completed.isEmpty()) {
            QCOMPARE(reader.dataLines().join(" / "), completed);
            QCOMPARE(reader.columnCount(), reader.lineCount());
            QVERIFY(data.testSymmetry());
        }
    }

    void refusedFiles_data()
    {
        const DataRows<QByteArray, bool> row("bytes", "toldNumber");
        row("a sign alone", "1 .3\n- 1", true);
        row("two points", "1 .3\n.3 1.2.3", true);
        row("a line of blanks", "1\n.3 1\n\t\n", true);
        row("a short last line", "1 2 3\n4 5 6\n7 8", false);
        row("steps of two", "1\n1 2 3\n1 2 3 4 5", false);
    }

    void refusedFiles()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, toldNumber);
        const QStringList boxes = {"Error while reading correlation matrix|"
                                   "Some entries seems to be not a number.",
                                   "Error|Unable to identify type of correlation matrix"};
        ReaderRecord record;
        const SampleFile file("r.txt", bytes);
        QVERIFY(!AsciiCorrReader(file.path(), nullptr).read());
        QCOMPARE(record.takeRecord(), boxes.mid(toldNumber ? 0 : 1));
    }
};

QTEST_MAIN(TestAsciiCorrReader)
#include "tst_asciicorrreader.moc"
