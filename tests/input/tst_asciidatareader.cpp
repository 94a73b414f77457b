// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidatareader.h"

#include "input/plaincomparison.h"
#include "input/randomdata.h"
#include "support/datarows.h"
#include "support/readerrecord.h"
#include "support/samplefile.h"

#include <QTest>

#include <cmath>

class TestAsciiDataReader : public QObject
{
    Q_OBJECT

private slots:
    void faults_data()
    {
        const DataRows<QByteArray, QString> row("bytes", "message");
        const QString count = "Line %1 has different number of entries compared to line no.1.";
        const QString number = "Entry in line %1 and column %2 is not a number: %3";
        row("none, but another line", "1 2\n1 x 3\n", "");
        row("more entries", "a\n1\n\nvname 1 B\n2 3\n", count.arg(1));
        row("a line of blanks", "1\n2\n \n3\n", count.arg(2));
        row("no number", "1 2\n3 4\n5 6.7.8\n", number.arg(2).arg(1).arg("6.7.8"));
        row("the count comes first", "1 2\n3 . 4\n", count.arg(1));
        row("the first line comes first", "1 2\n+ 4\n5\n", number.arg(1).arg(0).arg("+"));
        row("out of range", QByteArray(400, '9'), number.arg(0).arg(0).arg(QString(400, u'9')));
        row("a long entry", QByteArray(5000, '-'),
            number.arg(0).arg(0).arg(QString(1000, u'-') + "..."));
    }

    void faults()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        ReaderRecord record;
        const SampleFile file("data.txt", bytes);
        AsciiDataReader reader(file.path(), nullptr);
        QVERIFY(reader.readFile());
        QCOMPARE(reader.checkConsistency(), message.isEmpty());
        const QString box = "Error while reading data|" + message;
        QCOMPARE(record.takeRecord(), message.isEmpty() ? QStringList() : QStringList(box));
    }

    void numbersAndNames()
    {
        const SampleFile file("data.txt", "vname 2 A\nvname 4 beyond\n+0.5 -0 7.\n4 5 6e0\n4 5 6\n"
                                          "vname 2 Height\nvname 1");
        AsciiDataReader reader(file.path(), nullptr);
        QVERIFY(reader.readFile());
        AsciiData data;
        QVERIFY(data.allocate(reader.lineCount(), reader.columnCount()));
        QVERIFY(reader.getData(data));
        QCOMPARE(data.rows(), 2U);
        QCOMPARE(data.cols(), 3U);
        const double* cells = data.matrix()[0];
        QCOMPARE(data.matrix()[1] - cells, 3);
        QCOMPARE(std::vector<double>(cells, cells + 6), std::vector<double>({.5, 0, 7, 4, 5, 6}));
        QVERIFY(std::signbit(cells[1]));
        QCOMPARE(data.names().texts(), QStringList({"", "Height", "3"}));
    }

    void numbersMayBeTakenTwice()
    {
        const SampleFile file("data.txt", "1 2\n3 4\n5 6 7\nvname 1 A\n"); // the 7 has no place
        AsciiDataReader reader(file.path(), nullptr);
        QVERIFY(reader.readFile());
        for (int time = 0; time < 3; ++time) {
            AsciiData data;
            QVERIFY(data.allocate(reader.lineCount(), reader.columnCount()));
            QVERIFY(reader.getData(data));
            const double* cells = data.matrix()[0];
            QCOMPARE(std::vector<double>(cells, cells + 6),
                     std::vector<double>({1, 2, 3, 4, 5, 6}));
            QCOMPARE(data.names().texts(), QStringList({"A", "2", "3"}));
            QCOMPARE(reader.nameLines().size(), 1);
        }
        AsciiData data;
        QVERIFY(data.allocate(3, 2) && QFile::remove(file.path()));
        QVERIFY(!reader.getData(data));
    }

    void containerOfAnotherSize_data()
    {
        const DataRows<unsigned, unsigned> row("rows", "columns");
        row("fewer rows", 1, 3);
        row("fewer columns", 2, 2);
        row("more of both", 3, 4);
        row("empty", 0, 0);
    }

    void containerOfAnotherSize()
    {
        using plaincomparison::untouched;
        QFETCH(unsigned, rows);
        QFETCH(unsigned, columns);
        const SampleFile file("data.txt", "1 2 3\n4 5 6\n");
        AsciiDataReader reader(file.path(), nullptr);
        QVERIFY(reader.readFile());
        AsciiData data;
        QVERIFY(plaincomparison::prepare(data, rows, columns));
        QVERIFY(!reader.getData(data));
        QCOMPARE(data.rows(), rows);
        for (int r = 0; r < data.matrix().rows(); ++r)
            for (int c = 0; c < data.matrix().columns(); ++c)
                QCOMPARE(data.matrix()[r][c], r < 2 && c < 3 ? 3 * r + c + 1 : untouched);
    }

    void randomFilesAgainstThePlainReader()
    {
        QRandomGenerator random(3);
        ReaderRecord record;
        int accepted = 0;
        for (int i = 0; i < 500; ++i) {
            const QByteArray bytes = randomFile(random);
            const SampleFile file("data.txt", bytes);
            AsciiData data;
            const auto outcome = plaincomparison::compare(
                file.path(), [&] { return record.takeRecord(); }, data);
            if (!outcome.difference.isEmpty())
                qInfo() << bytes;
            QCOMPARE(outcome.difference, QString());
            accepted += outcome.filled;
        }
        QVERIFY2(accepted > 150 && accepted < 400, qPrintable(QString::number(accepted)));
    }
};

QTEST_MAIN(TestAsciiDataReader)
#include "tst_asciidatareader.moc"
