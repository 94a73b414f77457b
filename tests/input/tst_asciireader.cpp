// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciireader.h"

#include "input/asciidatareader.h"
#include "input/inputfile.h"
#include "input/linebuffer.h"
#include "input/linescan.h"
#include "plain/reader.h"
#include "support/dialogscript.h"

#include <QRandomGenerator>
#include <QTest>

#include <sys/stat.h>

using pelmora::LineBuffer;

namespace {

QByteArrayList piecesOf(const InputFile& input, std::size_t chunkSize)
{
    QFile file(input.path());
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

} // namespace

class TestAsciiReader : public QObject
{
    Q_OBJECT

private slots:
    void sortsLines_data();
    void sortsLines();
    void longLinesAndManyChunks_data();
    void longLinesAndManyChunks();
    void whatCannotBeOpenedEndsSilently_data();
    void whatCannotBeOpenedEndsSilently();
    void readErrorIsReported();
    void piecesAreTheSameForEveryChunkSize();
    void pipeIsNotWaitedFor();
    void fileThatShrinksWhileRead();
    void fileThatVanishesAfterReading();
};

void TestAsciiReader::sortsLines_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("data");
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("other");
    const auto row = [](const char* name, const QByteArray& bytes, const QStringList& data,
                        const QStringList& names = {}, const QStringList& other = {}) {
        QTest::newRow(name) << bytes << data << names << other;
    };
    const auto nul = QByteArray(1, '\0');
    row("empty", "", {});
    row("line ends only", "\n\r\r\n\n", {});
    row("LF", "1 2\n\n 3\t4 \n", {"1 2", "3\t4"});
    row("CR LF", "1\r\n2\r\n", {"1", "2"});
    row("CR", "1\r2\r\rvname 1 A", {"1", "2"}, {"vname 1 A"});
    row("no end", "1 2", {"1 2"});
    row("blanks are a data line", "1\n \t\n\f\n2", {"1", "", "", "2"});
    row("kinds", "a 1\n  vname 1 B\n1,2\nvnamex\n-1", {"-1"}, {"vname 1 B", "vnamex"},
        {"a 1", "1,2"});
    row("NUL cuts up to the line feed", "1 2" + nul + "x\n3" + nul + nul + "\n4",
        {"1 2", "3", "4"});
    row("NUL takes all of a CR file", "1\r2" + nul + "\r3\r4", {"1", "2"});
    row("NUL first", nul + "1\n2", {"2"});
    row("letter behind numbers", "1 2 3 x\n1 2x\n1x", {}, {}, {"1 2 3 x", "1 2x", "1x"});
    row("hard space",
        "\xA0"
        "1\xA0"
        "2\xA0\n",
        {QString::fromLatin1("1\xA0"
                             "2")});
    row("next line is text", "1\n\x85\n", {"1"}, {}, {QString(QChar(0x85))});
    row("byte order mark",
        "\xEF\xBB\xBF"
        "1 2\n3 4",
        {"3 4"}, {},
        {QString::fromLatin1("\xEF\xBB\xBF"
                             "1 2")});
}

void TestAsciiReader::sortsLines()
{
    QFETCH(QByteArray, bytes);
    const InputFile file(bytes);
    AsciiReader text(file.path(), nullptr);
    AsciiDataReader converting(file.path(), nullptr);
    for (AsciiReader* reader : {&text, static_cast<AsciiReader*>(&converting)}) {
        QVERIFY(reader->readFile());
        QTEST(reader->dataLines(), "data");
        QTEST(reader->nameLines(), "names");
        QTEST(reader->otherLines(), "other");
        QCOMPARE(reader->lineCount(), unsigned(reader->dataLines().size()));
        const auto first = reader->dataLines().value(0).split(u' ', Qt::SkipEmptyParts);
        if (!first.value(0).contains(u'\t') && !first.value(0).contains(QChar(0xA0)))
            QCOMPARE(reader->columnCount(), unsigned(first.size()));
    }
}

void TestAsciiReader::longLinesAndManyChunks_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray entries = QByteArray("1.25 -3\t0.5 ").repeated(30'000);
    QTest::newRow("one long line") << entries;
    QTest::newRow("long lines of all kinds")
        << entries + '\n' + entries + "x\nvname 1 " + entries + '\n' + entries + '\n';
    QTest::newRow("one long number") << QByteArray(1'000'000, '1');
    QTest::newRow("CR only") << QByteArray("1 2 3\r").repeated(100'000);
    QTest::newRow("NULs only") << QByteArray(1'000'000, '\0');
    const QByteArray returns = QByteArray("4 -5.5\r6\rx\r").repeated(15'000);
    const QByteArray nul(1, '\0');
    QTest::newRow("CR and NUL") << returns + nul + returns + '\n' + returns + '\n' + nul + returns +
                                       nul + returns + "\n7\r" + returns + nul + returns;
    QByteArray lines;
    for (int i = 0; i < 50'000; ++i)
        lines += QByteArray::number(i) + ' ' + QByteArray::number(0.37 * i, 'f', i % 9) + '\n';
    QTest::newRow("many short lines") << lines;
}

void TestAsciiReader::longLinesAndManyChunks()
{
    QFETCH(QByteArray, bytes);
    const InputFile file(bytes);
    pelmora::plain::TextFile expected;
    QVERIFY(pelmora::plain::readFile(file.path(), expected));
    AsciiReader text(file.path(), nullptr);
    AsciiDataReader converting(file.path(), nullptr);
    for (AsciiReader* reader : {&text, static_cast<AsciiReader*>(&converting)}) {
        QVERIFY(reader->readFile());
        QVERIFY(reader->dataLines() == expected.data);
        QVERIFY(reader->nameLines() == expected.names);
        QVERIFY(reader->otherLines() == expected.other);
        QCOMPARE(reader->lineCount(), unsigned(expected.data.size()));
        QCOMPARE(reader->columnCount(), unsigned(pelmora::plain::columnCount(expected)));
    }
}

void TestAsciiReader::whatCannotBeOpenedEndsSilently_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("folder") << QDir::tempPath();
    QTest::newRow("missing") << QDir::temp().filePath(QStringLiteral("no/such/file.txt"));
    QTest::newRow("no name") << QString();
}

void TestAsciiReader::whatCannotBeOpenedEndsSilently()
{
    QFETCH(QString, path);
    DialogScript script;
    QVERIFY(!AsciiReader(path, nullptr).readFile());
    QVERIFY(!AsciiDataReader(path, nullptr).readFile());
    QCOMPARE(script.takeRecord(), QStringList());
}

void TestAsciiReader::readErrorIsReported()
{
    // A file that opens and then refuses to be read.
    const auto path = QStringLiteral("/proc/self/mem");
    if (!QFileInfo(path).isReadable())
        QSKIP("no such file on this system");
    DialogScript script;
    QVERIFY(!AsciiDataReader(path, nullptr).readFile());
    QCOMPARE(script.takeRecord(), QStringList("Error|Error while reading file /proc/self/mem"));
}

void TestAsciiReader::piecesAreTheSameForEveryChunkSize()
{
    QRandomGenerator random(4);
    for (int i = 0; i < 200; ++i) {
        QByteArray bytes;
        for (int k = random.bounded(100); k > 0; --k)
            bytes += "12 3.vx\n\n\r\0"[random.bounded(11)];
        const InputFile input(bytes);
        const QByteArrayList expected = piecesOf(input, LineBuffer::usualChunk);
        for (const std::size_t chunkSize : {1, 2, 3, 5, 16, 50})
            QVERIFY2(piecesOf(input, chunkSize) == expected, bytes.toHex(' ').constData());
    }
}

void TestAsciiReader::pipeIsNotWaitedFor()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("pipe"));
    if (mkfifo(path.toLocal8Bit().constData(), 0600) != 0)
        QSKIP("no pipes on this system");
    QVERIFY(!AsciiDataReader(path, nullptr).readFile());
}

void TestAsciiReader::fileThatShrinksWhileRead()
{
    const InputFile input(QByteArray("1 2 3\n").repeated(200'000));
    QFile file(input.path());
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    LineBuffer buffer(file);
    QVERIFY(buffer.next());
    const auto first = buffer.end() - buffer.begin();
    QVERIFY(QFile::resize(input.path(), 100));
    // The piece of a line that was read along with the first run is all that is left.
    QVERIFY(buffer.next());
    QVERIFY(buffer.end() - buffer.begin() < 6 && first > 100);
    QVERIFY(!buffer.next());
    QVERIFY(!buffer.failed());
}

void TestAsciiReader::fileThatVanishesAfterReading()
{
    DialogScript script;
    auto file = std::make_unique<InputFile>("1 2\n3 4\nx\n");
    AsciiDataReader reader(file->path(), nullptr);
    QVERIFY(reader.readFile());
    file.reset();
    QCOMPARE(reader.lineCount(), 2U);
    QVERIFY(reader.checkConsistency());
    QVERIFY(reader.otherLines().isEmpty());
    QCOMPARE(script.takeRecord(), QStringList());
}

QTEST_MAIN(TestAsciiReader)
#include "tst_asciireader.moc"
