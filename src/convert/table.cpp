// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/table.h"

namespace convert {

Table::Table(const SourceText& text, std::vector<std::uint32_t> begins, std::size_t columns,
             bool missesCorner)
    : m_text(&text)
    , m_bytes(text.bytes())
    , m_begins(std::move(begins))
    , m_stride(columns + 1)
    , m_fileRows(m_begins.size() / m_stride)
    , m_fileColumns(columns)
    , m_missesCorner(missesCorner)
{
}

QString Table::text(std::size_t row, std::size_t column) const
{
    const std::string_view bytes = field(row, column);
    QString text = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    // Only a quoted field is followed by a quote.
    if (bytes.data() != nullptr && bytes.find('"') != std::string_view::npos) {
        const std::size_t at = m_exchanged ? column * m_stride + row : row * m_stride + column;
        const char* first = m_bytes + m_begins[at];
        while (*first == ' ' || *first == '\t')
            ++first;
        if (*first == '"')
            text.replace(QLatin1String("\"\""), QLatin1String("\""));
    }
    return text;
}

Place Table::place(std::size_t row, std::size_t column) const
{
    if (m_exchanged)
        std::swap(row, column);
    const std::size_t first = row == 0 && m_missesCorner ? 1 : 0;
    return {m_text->lineOf(m_begins[row * m_stride + first]), column + 1};
}

std::size_t Table::dropEmptyColumns()
{
    std::size_t dropped = 0;
    while (m_fileColumns > 1 && isEmptyColumn(m_fileColumns - 1)) {
        --m_fileColumns;
        ++dropped;
    }
    return dropped;
}

bool Table::isEmptyColumn(std::size_t column) const
{
    for (std::size_t row = 0; row < m_fileRows; ++row)
        if (!fileField(row, column).empty())
            return false;
    return true;
}

} // namespace convert
