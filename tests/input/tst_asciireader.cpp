// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciireader.h"

#include "input/asciidatareader.h"
#include "input/plaincomparison.h"
#include "input/scan/linebuffer.h"
#include "input/scan/linescan.h"
#include "support/datarows.h"
#include "support/readerrecord.h"
#include "support/samplefile.h"

#include <QRandomGenerator>
#include <QTest>

#include <sys/stat.h>

using pelmora::LineBuffer;

namespace {

QByteArrayList piecesOf(const QString& path, std::size_t chunkSize)
{
    QFile file(path);
    QByteArrayList pieces;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return pieces;
    LineBuffer buffer(file, chunkSize);
    while (buffer.next()) {
        pelmora::scanLines(buffer.begin(), buffer.end(), [&pieces](const char* p) {
            const char* end = pelmora::pieceEnd(p);
            pieces.append(QByteArray(p, end - p));
            return end;
        });
    }
    return pieces;
}

void requireSameAsPlain(const SampleFile& file)
{
    ReaderRecord record;
    AsciiData data;
    const auto outcome = plaincomparison::compare(
        file.path(), [&] { return record.takeRecord(); }, data);
    QCOMPARE(outcome.difference, QString());
}

} // namespace

class TestAsciiReader : public QObject
{
    Q_OBJECT

private slots:
    void sortsLines_data()
    {
        const DataRows<QByteArray, QStringList, QStringList, QStringList> rows("bytes", "data",
                                                                               "names", "other");
        const auto row = [&rows](const char* name, const QByteArray& bytes, const QStringList& data,
                                 const QStringList& names = {}, const QStringList& other = {}) {
            rows(name, bytes, data, names, other);
        };
        const QByteArray nul(1, '\0');
        row("empty file", "", {});
        row("line ends only", "\n\r\r\n\n", {});
        row("line feeds", "1 2\n\n 3\t4 \n", {"1 2", "3\t4"});
        row("CR LF", "1\r\n2\r\n", {"1", "2"});
        row("carriage returns", "1\r2\r\rvname 1 A", {"1", "2"}, {"vname 1 A"});
        row("lines of blanks", "1\n \t\n\f\n\v2", {"1", "", "", "2"});
        row("lines of every kind", "a 1\n  vname 1 B\n1,2\nvnamex\n-1\nVNAME 1 C", {"-1"},
            {"vname 1 B", "vnamex"}, {"a 1", "1,2", "VNAME 1 C"});
        row("NUL ends a line", "1 2" + nul + "x\n3" + nul + nul + "\n4", {"1 2", "3", "4"});
        row("NUL up to the line feed", "1\r2" + nul + "\r3\r4", {"1", "2"});
        row("NUL at the beginning", nul + "1\n2", {"2"});
        row("letters among numbers", "1 2 3 x\n1 2x\n1x\n1.5e3", {}, {},
            {"1 2 3 x", "1 2x", "1x", "1.5e3"});
        row("no-break space", "\xA0\t1\xA0-2\xA0\n\x85\n+-.", {"1\u00A0-2", "+-."}, {}, {"\u0085"});
        row("byte-order mark", "\xEF\xBB\xBF 1 2\n3 4", {"3 4"}, {}, {"\u00EF\u00BB\u00BF 1 2"});
    }

    void sortsLines()
    {
        QFETCH(QByteArray, bytes);
        const SampleFile file("lines.txt", bytes);
        AsciiReader reader(file.path(), nullptr);
        QVERIFY(reader.readFile());
        QTEST(reader.dataLines(), "data");
        QTEST(reader.nameLines(), "names");
        QTEST(reader.otherLines(), "other");
        requireSameAsPlain(file);
    }

    void longLinesAndManyChunks_data()
    {
        const DataRows<QByteArray> row("bytes");
        const QByteArray nul(1, '\0');
        const QByteArray entries = QByteArray("1.25 -3\t0.5 ").repeated(24'000);
        const QByteArray returns = QByteArray("4 -5.5\r6\rx\r").repeated(8'000);
        QByteArray lines;
        for (int i = 0; i < 30'000; ++i)
            lines += QByteArray::number(i) + ' ' + QByteArray::number(0.37 * i, 'f', i % 9) + '\n';
        row("long lines", entries + '\n' + entries + "x\nvname 1 " + entries);
        row("a long number", QByteArray(600'000, '1'));
        row("carriage returns", QByteArray("1 2 3\r").repeated(60'000));
        row("NULs", QByteArray(600'000, '\0'));
        row("NULs far from line feeds", returns + nul + returns + '\n' + returns + '\n' + nul +
                                            returns + nul + returns + "\n7\r" + returns + nul +
                                            returns);
        row("many lines", lines);
    }

    void longLinesAndManyChunks()
    {
        QFETCH(QByteArray, bytes);
        requireSameAsPlain(SampleFile("long.txt", bytes));
    }

    void onlyReadErrorsAreReported()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QCOMPARE(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
        ReaderRecord record;
        for (const QString& path :
             {folder.path(), folder.filePath("no/such.txt"), QString(), pipe}) {
            QVERIFY(!AsciiReader(path, nullptr).readFile());
            QVERIFY(!AsciiDataReader(path, nullptr).readFile());
        }
        QCOMPARE(record.takeRecord(), QStringList());
        // A file that opens and then refuses to be read.
        const QString refusing = "/proc/self/mem";
        if (!QFileInfo(refusing).isReadable())
            QSKIP("no such file on this system");
        QVERIFY(!AsciiDataReader(refusing, nullptr).readFile());
        QCOMPARE(record.takeRecord(), QStringList("Error|Error while reading file " + refusing));
    }

    void piecesAreTheSameForEveryChunkSize()
    {
        QRandomGenerator random(4);
        for (int i = 0; i < 200; ++i) {
            QByteArray bytes;
            for (int k = random.bounded(100); k > 0; --k)
                bytes += "12 3.vx\n\n\r\0"[random.bounded(11)];
            const SampleFile input("pieces.txt", bytes);
            const QByteArrayList expected = piecesOf(input.path(), LineBuffer::usualChunk);
            for (const std::size_t chunkSize : {1U, 2U, 3U, 5U, 16U, 50U})
                QVERIFY2(piecesOf(input.path(), chunkSize) == expected,
                         bytes.toHex(' ').constData());
        }
    }

    void fileThatShrinksWhileRead()
    {
        const SampleFile input("data.txt", QByteArray("1 2 3\n").repeated(200'000));
        QFile file(input.path());
        QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        LineBuffer buffer(file);
        QVERIFY(buffer.next());
        const auto first = buffer.end() - buffer.begin();
        QVERIFY(QFile::resize(input.path(), 100));
        // Only the piece of a line is left that was read along with the first lines.
        QVERIFY(buffer.next());
        QVERIFY(buffer.end() - buffer.begin() < 6 && first > 100);
        QVERIFY(!buffer.next());
        QVERIFY(!buffer.failed());
    }
};

QTEST_MAIN(TestAsciiReader)
#include "tst_asciireader.moc"
