// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Where the first line of a range begins depends on the bytes before it: a NUL hides the rest of
// its line, up to the line feed. So the stream starts reading further back, at the last line end
// or, if one follows the last line feed, at a NUL, and skips the lines that begin before the range.

#include "input/rowstream.h"

#include "input/linetext.h"
#include "input/scan/faultreport.h"
#include "input/scan/linebuffer.h"
#include "input/scan/linescan.h"
#include "input/scan/numberlines.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstdio>
#include <new>
#include <string_view>

namespace pelmora {

namespace {

/// Finds where to start reading, from the bytes before a range, the last ones first.
class LookBack
{
public:
    /// Looks at bytes that begin at @p offset in the file; true when they tell where to start.
    bool take(std::string_view bytes, std::uint64_t offset)
    {
        constexpr auto none = std::string_view::npos;
        const auto lineFeed = bytes.rfind('\n');
        // The first NUL after the line feed cuts the line; those further on are cut off anyway.
        const auto nul = bytes.rfind('\0');
        if (nul != none && (lineFeed == none || nul > lineFeed)) {
            m_start = offset + nul;
            return true;
        }
        const auto lineEnd = bytes.find_last_of("\r\n");
        if (!m_found && lineEnd != none) {
            m_start = offset + lineEnd + 1;
            m_found = true;
        }
        return lineFeed != none;
    }

    /// The start of a line, or a NUL, from which the following lines can be read.
    std::uint64_t start() const { return m_start; }

private:
    std::uint64_t m_start = 0;
    bool m_found = false;
};

/// Where to start reading so that the lines from byte @p from on are understood.
std::uint64_t startBefore(QFile& file, std::uint64_t from)
{
    constexpr std::uint64_t step = 64 * 1024;
    LookBack lookBack;
    std::uint64_t end = from;
    while (end > 0) {
        const std::uint64_t begin = end - std::min(end, step);
        if (!file.seek(static_cast<qint64>(begin)))
            break;
        const QByteArray bytes = file.read(static_cast<qint64>(end - begin));
        if (lookBack.take({bytes.constData(), static_cast<std::size_t>(bytes.size())}, begin))
            break;
        end = begin;
    }
    return lookBack.start();
}

} // namespace

void RowStream::setRange(std::uint64_t from, std::uint64_t to)
{
    m_from = from;
    m_to = to;
}

void RowStream::continueBehind(std::size_t linesOfFile, std::size_t columns)
{
    m_continued = true;
    m_linesBefore = linesOfFile;
    m_columnsBefore = columns;
}

bool RowStream::open(QFile& file, std::uint64_t& start) const
{
    constexpr auto mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    if (m_fileName == u'-')
        return m_from == 0 && file.open(fileno(stdin), mode);
    file.setFileName(m_fileName);
    if (QFileInfo(m_fileName).isDir() || !file.open(mode))
        return false;
    // A range beyond the end of the file starts at its end.
    start = std::min(m_from, static_cast<std::uint64_t>(file.size()));
    if (m_from == 0)
        return true;
    if (file.isSequential())
        return false;
    start = startBefore(file, start);
    return file.seek(static_cast<qint64>(start));
}

/// A file while it is read.
struct RowStream::Reading
{
    Reading(QFile& file, std::uint64_t startOfFile, std::size_t rows, const TakeRows& take)
        : buffer(file)
        , start(startOfFile)
        , rowsPerBlock(rows)
        , takeRows(take)
    {
    }

    std::size_t waitingRows() const { return numbers.lineCount() - handedOn; }
    bool isRefused() const { return numbers.fault().kind != LineFault::None; }
    bool isOver() const { return atEnd || isRefused() || numbers.isInterrupted(); }

    void handOn()
    {
        if (waitingRows() > 0)
            takeRows(numbers.kept(), waitingRows(), numbers.columnCount());
        handedOn = numbers.lineCount();
        numbers.dropNumbers();
    }

    LineBuffer buffer;
    NumberLines numbers;
    std::uint64_t start;
    std::size_t rowsPerBlock;
    const TakeRows& takeRows;
    std::size_t handedOn = 0;
    bool atEnd = false;
};

RowStream::Outcome RowStream::read(std::size_t rowsPerBlock, const TakeRows& takeRows)
{
    QFile file;
    std::uint64_t start = 0;
    if (!open(file, start))
        return CannotOpen;
    Reading reading(file, start, rowsPerBlock, takeRows);
    if (m_continued)
        reading.numbers.continueBehind(m_linesBefore, m_columnsBefore);
    reading.handedOn = m_linesBefore;
    const auto takePiece = [this, &reading](const char* p) { return takeLine(p, reading); };
    while (!reading.isOver() && reading.buffer.next())
        scanLines(reading.buffer.begin(), reading.buffer.end(), takePiece);
    m_columns = reading.numbers.columnCount();
    m_lines = reading.numbers.lineCount() - m_linesBefore;
    return finish(reading);
}

const char* RowStream::takeLine(const char* p, Reading& reading)
{
    const std::uint64_t offset = reading.start + reading.buffer.bytesBefore(p);
    reading.atEnd = offset >= m_to;
    if (reading.isOver())
        return reading.buffer.end();
    if (offset < m_from)
        return pieceEnd(p);
    if (isNameLine(p)) {
        const char* end = pieceEnd(p);
        takeName(p, end);
        return end;
    }
    bool isData = false;
    const char* end = reading.numbers.takeLine(p, isData);
    if (reading.waitingRows() == reading.rowsPerBlock && !reading.isOver())
        reading.handOn();
    return end;
}

RowStream::Outcome RowStream::finish(Reading& reading) const
{
    if (reading.isRefused()) {
        reportLineFault(reading.numbers.fault());
        return Refused;
    }
    if (reading.buffer.failed()) {
        reportReadError(m_fileName);
        return Refused;
    }
    if (reading.numbers.isInterrupted())
        throw std::bad_alloc();
    reading.handOn();
    return Complete;
}

void RowStream::takeName(const char* first, const char* last)
{
    const QString line = linetext::trimmed(QString::fromLatin1(first, last - first)).toString();
    QString name;
    const int index = linetext::parseName(line, name);
    if (index >= 0)
        m_names[static_cast<std::size_t>(index)] = name.toLatin1().toStdString();
}

} // namespace pelmora
