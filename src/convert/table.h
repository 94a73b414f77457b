// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/encoding.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace convert {

/// The position of a field in the file, both from 1; the line is the one where its row begins.
struct Place
{
    std::size_t line;
    std::size_t column;
};

/// A file's rows and columns. It holds where the fields begin; their text stays in the file's
/// bytes, which must live as long.
class Table
{
public:
    Table() = default;
    /// @param begins  for every row where its fields begin and, last, the place after the one that
    ///                ends the row; there is at least one byte between two fields
    /// @param missesCorner  whether the first field is none of the file's, so that its place is
    ///                      not in the row
    Table(const SourceText& text, std::vector<std::uint32_t> begins, std::size_t columns,
          bool missesCorner);

    std::size_t rows() const { return m_exchanged ? m_fileColumns : m_fileRows; }
    std::size_t columns() const { return m_exchanged ? m_fileRows : m_fileColumns; }

    /// The field without its quotes and outer blanks; quotes inside a quoted one are still doubled.
    std::string_view field(std::size_t row, std::size_t column) const
    {
        return m_exchanged ? fileField(column, row) : fileField(row, column);
    }
    QString text(std::size_t row, std::size_t column) const;

    Place place(std::size_t row, std::size_t column) const;

    /// Rows become columns; places stay those of the file.
    void exchange() { m_exchanged = !m_exchanged; }
    bool isExchanged() const { return m_exchanged; }
    /// Whether the rows are equally long only with a first one that lacks a field.
    bool missesCorner() const { return m_missesCorner; }

    /// Drops columns at the right that have nothing in any row and returns how many.
    std::size_t dropEmptyColumns();

private:
    std::string_view fileField(std::size_t row, std::size_t column) const
    {
        const std::size_t at = row * m_stride + column;
        return bareField(m_bytes + m_begins[at], m_bytes + m_begins[at + 1] - 1);
    }
    static std::string_view bareField(const char* first, const char* last);
    bool isEmptyColumn(std::size_t column) const;

    const SourceText* m_text = nullptr;
    const char* m_bytes = nullptr;
    std::vector<std::uint32_t> m_begins;
    std::size_t m_stride = 1;
    std::size_t m_fileRows = 0;
    std::size_t m_fileColumns = 0;
    bool m_missesCorner = false;
    bool m_exchanged = false;
};

inline std::string_view Table::bareField(const char* first, const char* last)
{
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
    const auto trim = [&] {
        while (first != last && isBlank(*first))
            ++first;
        while (first != last && isBlank(*(last - 1)))
            --last;
    };
    trim();
    if (first != last && *first == '"') {
        ++first;
        --last;
        trim();
    }
    return std::string_view(first, static_cast<std::size_t>(last - first));
}

} // namespace convert
