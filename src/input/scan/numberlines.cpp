// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/scan/numberlines.h"

#include "input/numberparser.h"
#include "input/scan/linescan.h"
#include "input/scan/numberscan.h"
#include "numerics/largepages.h"
#include "numerics/memory.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdint>

namespace pelmora {

namespace {

/// Converts numbers of the common form, the entries of nearly all files, as far as there are
/// places. Returns where the next entry begins or what ends them.
const char* takeCommonNumbers(const char* p, double*& places, const double* limit)
{
    const char* window = p;
    std::uint64_t breaks = numberscan::breaksInWindow(window);
    double* next = places;
    for (;;) {
        while (breaks == 0) {
            window += numberscan::windowSize;
            breaks = numberscan::breaksInWindow(window);
        }
        const char* end = window + std::countr_zero(breaks);
        breaks &= breaks - 1;
        if (end != p) {
            if (next == limit || !numberscan::parseCommon(p, end, *next))
                break;
            ++next;
        }
        p = end;
        if (*p != ' ' && classOf(*p) != ByteClass::Blank)
            break;
        ++p;
    }
    places = next;
    return p;
}

const char* entryEnd(const char* p)
{
    while (belongsToNumber(classOf(*p)))
        ++p;
    return p;
}

} // namespace

void NumberLines::continueBehind(std::size_t lines, std::size_t columns)
{
    m_lines = lines;
    m_columns = columns;
    m_columnsKnown = true;
}

const char* NumberLines::takeLine(const char* p, bool& isData)
{
    const char* start = p;
    Line line = beginLine();
    for (;;) {
        p = takeCommonNumbers(p, line.next, line.limit);
        const ByteClass byteClass = classOf(*p);
        isData = byteClass != ByteClass::Other;
        if (!isData)
            return pieceEnd(p);
        if (!belongsToNumber(byteClass))
            break;
        const char* end = entryEnd(p);
        takeEntry(p, end, line);
        p = end;
    }
    endLine(line, static_cast<std::size_t>(p - start));
    return p;
}

NumberLines::Line NumberLines::beginLine()
{
    Line line;
    if (!m_interrupted && reserve(m_columns))
        setPlaces(line, 0);
    return line;
}

/// All later lines have as many places as the first one has entries.
void NumberLines::setPlaces(Line& line, std::size_t kept)
{
    if (!m_block)
        return;
    line.start = m_block.get() + 1 + m_size;
    line.next = line.start + kept;
    line.limit = line.start + (m_columnsKnown ? m_columns : m_capacity - m_size);
}

void NumberLines::takeEntry(const char* first, const char* last, Line& line)
{
    if (line.unkept == 0 && makeRoom(line)) {
        if (const auto value = parseNumber(first, last)) {
            *line.next++ = *value;
            return;
        }
        line.fault = {LineFault::NotANumber, m_lines, line.entries(),
                      QString::fromLatin1(first, last - first)};
        line.limit = line.next;
    }
    ++line.unkept;
}

/// Capacity for one more number of the line; only the first line can need it.
bool NumberLines::makeRoom(Line& line)
{
    if (line.next != line.limit)
        return true;
    if (m_columnsKnown || m_interrupted)
        return false;
    const std::size_t kept = line.kept();
    if (!reserve(kept + 1))
        return false;
    setPlaces(line, kept);
    return true;
}

void NumberLines::endLine(const Line& line, std::size_t length)
{
    const bool isFirst = !m_columnsKnown;
    if (isFirst)
        m_columns = line.entries();
    m_columnsKnown = true;
    if (m_fault.kind == LineFault::None) {
        if (line.entries() != m_columns)
            m_fault = {LineFault::EntryCount, m_lines, 0, {}};
        else
            m_fault = line.fault;
    }
    m_size += line.kept();
    m_interrupted = m_interrupted || line.kept() < m_columns;
    if (isFirst && !m_interrupted)
        reserveForText(length);
    ++m_lines;
}

/// Capacity for the whole file, if its other lines are about as long as the first.
void NumberLines::reserveForText(std::size_t lineLength)
{
    const std::size_t lines = m_textSize / (lineLength + 1);
    resize((lines + lines / 32 + 1) * m_columns);
}

/// Capacity for so many more numbers. Without memory the block stays as it is: there is none for
/// the matrix then either, which is reported.
bool NumberLines::reserve(std::size_t numbers)
{
    const std::size_t needed = m_size + numbers;
    if (needed <= m_capacity)
        return true;
    constexpr std::size_t smallest = 8192;
    // As much in reserve as there is memory for, but at least a sixteenth: with a fixed reserve the
    // time for copying would grow with the square of the size.
    for (const std::size_t more : {m_capacity, m_capacity / 4, m_capacity / 16})
        if (resize(std::max({needed, m_capacity + more, smallest})))
            return true;
    m_interrupted = true;
    return false;
}

bool NumberLines::resize(std::size_t capacity)
{
    if (!pelmora::resize(m_block, capacity + 1))
        return false;
    m_capacity = capacity;
    adviseLargePages(m_block.get(), (capacity + 1) * sizeof(double));
    return true;
}

bool NumberLines::isComplete() const
{
    return !m_interrupted && m_size > 0;
}

Matrix NumberLines::takeMatrix()
{
    if (!isComplete() || m_lines > INT_MAX || m_columns > INT_MAX)
        return {};
    // Gives back the reserved rest.
    resize(m_size);
    const int rows = static_cast<int>(m_lines);
    const int columns = static_cast<int>(m_columns);
    double** pointers = matrix_from_block(m_block.get(), rows, columns);
    if (!pointers)
        return {};
    static_cast<void>(m_block.release());
    m_capacity = 0;
    m_size = 0;
    m_taken = true;
    return Matrix::adopt(pointers, rows, columns);
}

void NumberLines::copyTo(Matrix& matrix) const
{
    for (std::size_t i = 0; i < m_size; ++i) {
        const std::size_t row = i / m_columns;
        const std::size_t column = i % m_columns;
        if (row < static_cast<std::size_t>(matrix.rows()) &&
            column < static_cast<std::size_t>(matrix.columns()))
            matrix[static_cast<int>(row)][static_cast<int>(column)] = m_block[i + 1];
    }
}

} // namespace pelmora
