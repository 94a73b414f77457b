// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/rowstream.h"

#include "input/asciidata.h"
#include "input/loading.h"
#include "input/randomdata.h"
#include "support/datarows.h"
#include "support/readerrecord.h"
#include "support/samplefile.h"

#include <QTest>

#include <algorithm>
#include <vector>

using pelmora::RowStream;

namespace {

/// What a stream hands on.
struct Streamed
{
    std::vector<double> values;
    std::size_t lines = 0;
    std::size_t columns = 0;
    std::map<std::size_t, std::string> names;
    bool complete = true;

    void take(RowStream& stream, std::size_t rowsPerBlock)
    {
        const auto outcome =
            stream.read(rowsPerBlock, [&](const double* first, std::size_t rows, std::size_t p) {
                if (rows > rowsPerBlock)
                    qFatal("More rows than a block has");
                values.insert(values.end(), first, first + rows * p);
            });
        complete = complete && outcome == RowStream::Complete;
        lines += stream.lineCount();
        columns = std::max(columns, stream.columnCount());
        for (const auto& [index, name] : stream.names())
            names[index] = name;
    }
};

Streamed wholeFile(const QString& path)
{
    Streamed result;
    RowStream stream(path);
    result.take(stream, 3);
    return result;
}

/// The file in ranges of so many bytes, each knowing what the ones before it held.
Streamed inRanges(const QString& path, std::uint64_t fileSize, std::uint64_t size)
{
    Streamed result;
    for (std::uint64_t from = 0; result.complete && from < fileSize; from += size) {
        RowStream stream(path);
        stream.setRange(from, from + size);
        if (result.lines > 0)
            stream.continueBehind(result.lines, result.columns);
        result.take(stream, 2);
    }
    return result;
}

bool sameNames(const Streamed& streamed, const VariableNames& names)
{
    VariableNames given(names.size());
    for (const auto& [index, name] : streamed.names)
        given.set(index, name);
    return given.texts() == names.texts();
}

} // namespace

class TestRowStream : public QObject
{
    Q_OBJECT

private slots:
    /// Whole and in ranges of several sizes, with the same messages.
    void randomFilesAgainstTheReader()
    {
        QRandomGenerator random(1);
        for (int file = 0; file < 150; ++file) {
            const QByteArray bytes = randomFile(random);
            const SampleFile sample(QStringLiteral("data.txt"), bytes);
            const auto fileSize = static_cast<std::uint64_t>(bytes.size());
            ReaderRecord record;
            AsciiData data;
            const bool loaded = loadDataMatrix(sample.path(), data);
            QStringList messages = record.takeRecord();
            // Whether no rows at all are a fault is for the caller of a stream to say.
            messages.removeAll(QStringLiteral("Error|Error in data matrix."));

            std::vector<Streamed> all = {wholeFile(sample.path())};
            QCOMPARE(record.takeRecord(), messages);
            for (std::uint64_t size : {1, 3, 20}) {
                all.push_back(inRanges(sample.path(), fileSize, size));
                QCOMPARE(record.takeRecord(), messages);
            }
            for (const Streamed& streamed : all) {
                QCOMPARE(streamed.complete, messages.isEmpty());
                if (!loaded)
                    continue;
                QCOMPARE(streamed.lines, std::size_t(data.rows()));
                QCOMPARE(streamed.columns, std::size_t(data.cols()));
                QVERIFY2(std::equal(streamed.values.begin(), streamed.values.end(),
                                    data.matrix()[0], data.matrix()[0] + data.rows() * data.cols()),
                         bytes.toPercentEncoding().constData());
                QVERIFY2(sameNames(streamed, data.names()), bytes.toPercentEncoding().constData());
            }
        }
    }

    void rangesOfOddLines_data()
    {
        const DataRows<QByteArray, std::vector<double>> row("bytes", "values");
        row("carriage returns only", "1\r2\r3\r", {1, 2, 3});
        row("CR LF", "1\r\n2\r\n\r\n3", {1, 2, 3});
        row("NUL up to the line feed", QByteArray("1\r2\0 3\r4\r5\n6\r7", 15), {1, 2, 6, 7});
        row("NUL and no line feed", QByteArray("1\r2\r\0\r3\r4", 9), {1, 2});
        row("two NULs", QByteArray("1\n\0a\0\r2\n3", 9), {1, 3});
        row("no numbers", "", {});
    }

    void rangesOfOddLines()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(std::vector<double>, values);
        const SampleFile sample(QStringLiteral("data.txt"), bytes);
        const auto fileSize = static_cast<std::uint64_t>(bytes.size());
        QCOMPARE(wholeFile(sample.path()).values, values);
        for (std::uint64_t size = 1; size <= fileSize; ++size)
            QCOMPARE(inRanges(sample.path(), fileSize, size).values, values);
    }

    void countsLinesAndColumnsFromBefore()
    {
        const SampleFile sample(QStringLiteral("data.txt"), "1 2\n3 4\n5 x\n6 -\n");
        ReaderRecord record;
        RowStream stream(sample.path());
        stream.continueBehind(100, 2);
        QCOMPARE(stream.read(10, [](auto...) {}), RowStream::Refused);
        RowStream narrow(sample.path());
        narrow.continueBehind(0, 3);
        QCOMPARE(narrow.read(10, [](auto...) {}), RowStream::Refused);
        QCOMPARE(record.takeRecord(),
                 QStringList({"Error while reading data|Entry in line 102 and column 1 is not a "
                              "number: -",
                              "Error while reading data|Line 0 has different number of entries "
                              "compared to line no.1."}));
    }

    /// Lines that are longer than what is looked at in one step.
    void lookedForFarBack()
    {
        const QByteArray longLine = "x" + QByteArray(300'000, '1');
        const QByteArray bytes = "1\r" + longLine + "\r2\n3\r" + longLine + "\n4\n";
        const SampleFile sample(QStringLiteral("data.txt"), bytes);
        for (std::uint64_t size : {70'000, 299'999, 300'003, 400'000})
            QCOMPARE(inRanges(sample.path(), static_cast<std::uint64_t>(bytes.size()), size).values,
                     std::vector<double>({1, 2, 3, 4}));
    }

    void filesThatCannotBeOpened()
    {
        const SampleFile sample(QStringLiteral("data.txt"), "1 2\n");
        for (const QString& path : {sample.folder(), sample.folder() + QStringLiteral("/none")})
            QCOMPARE(RowStream(path).read(10, [](auto...) {}), RowStream::CannotOpen);
    }
};

QTEST_GUILESS_MAIN(TestRowStream)
#include "tst_rowstream.moc"
