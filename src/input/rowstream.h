// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <map>
#include <string>

class QFile;

namespace pelmora {

/// The data lines of a file, or of a range of its bytes, handed on block by block in one pass, so
/// that they need not fit into memory. Data lines, numbers, faults and their messages are those of
/// AsciiDataReader. Running out of memory throws std::bad_alloc.
class RowStream
{
public:
    /// Takes the numbers of so many data lines, line by line.
    using TakeRows =
        std::function<void(const double* values, std::size_t rows, std::size_t columns)>;

    enum Outcome { Complete, CannotOpen, Refused };

    /// @param fileName  "-" is standard input; unlike the file of a reader it may be a pipe
    explicit RowStream(const QString& fileName) : m_fileName(fileName) {}

    /// Restricts the stream to the lines that begin at the bytes from @p from up to but not
    /// including @p to, wherever they end.
    void setRange(std::uint64_t from, std::uint64_t to = unlimited);

    /// Tells of lines of the same table that were read before: the stream's lines must have as many
    /// entries, and line numbers in messages count on from those of the same file.
    void continueBehind(std::size_t linesOfFile, std::size_t columns);

    /// Reads to the end. A file that cannot be opened is not reported; a refused one is, as by
    /// AsciiDataReader, after rows before the fault were handed on.
    /// @param rowsPerBlock  rows of every block but the last
    Outcome read(std::size_t rowsPerBlock, const TakeRows& takeRows);

    /// Entries in the first data line; 0 without any.
    std::size_t columnCount() const { return m_columns; }
    /// Data lines taken, those without entries included.
    std::size_t lineCount() const { return m_lines; }
    /// The names that name lines give, by zero-based number of the variable; some may lie beyond
    /// the columns.
    const std::map<std::size_t, std::string>& names() const { return m_names; }

    static constexpr std::uint64_t unlimited = std::numeric_limits<std::uint64_t>::max();

private:
    struct Reading;

    bool open(QFile& file, std::uint64_t& start) const;
    const char* takeLine(const char* p, Reading& reading);
    Outcome finish(Reading& reading) const;
    void takeName(const char* first, const char* last);

    QString m_fileName;
    std::uint64_t m_from = 0;
    std::uint64_t m_to = unlimited;
    std::size_t m_linesBefore = 0;
    std::size_t m_columnsBefore = 0;
    bool m_continued = false;
    std::size_t m_columns = 0;
    std::size_t m_lines = 0;
    std::map<std::size_t, std::string> m_names;
};

} // namespace pelmora
