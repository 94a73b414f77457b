// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/fields.h"

#include "convert/bytescan.h"
#include "convert/refusal.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace convert {

namespace {

bool isBlank(char byte)
{
    return byte == ' ' || byte == '\t';
}

/// A row while it is split.
struct Row
{
    std::size_t place = 0;
    std::size_t fields = 0;
    bool isEmpty = true; ///< nothing but separators and blanks
};

class Tokenizer
{
public:
    Tokenizer(const SourceText& text, std::size_t begin, std::size_t line, Separator separator,
              const Ranges& skip, bool mayMissCorner)
        : m_text(text)
        , m_p(text.bytes() + begin)
        , m_end(text.bytes() + text.end())
        , m_line(line)
        , m_lastSkipped(skip.isEmpty() ? 0 : skip.largest())
        , m_skip(skip)
        , m_separator(static_cast<char>(separator))
        , m_mayMissCorner(mayMissCorner)
        , m_scan(m_separator)
    {
        m_reading.separator = separator;
    }

    Reading run();

private:
    std::size_t placeOf(const char* p) const
    {
        return static_cast<std::size_t>(p - m_text.bytes());
    }
    bool isSeparator(char byte) const
    {
        return byte == m_separator || (m_separator == ' ' && byte == '\t');
    }
    bool endsRow(const char* p) const { return *p == '\n' || *p == '\r' || p == m_end; }

    bool skipLines();
    bool takeRow(Row& row);
    bool takeField(Row& row);
    bool takeQuoted();
    void passLineEnd();
    bool keep(const Row& row);
    bool fail(Reading::Fault fault, std::size_t place, std::size_t fields = 0);
    void reserve();

    const SourceText& m_text;
    const char* m_p;
    const char* m_end;
    std::size_t m_line;
    std::size_t m_lastSkipped;
    const Ranges& m_skip;
    char m_separator;
    bool m_mayMissCorner;
    ByteScan m_scan;
    std::vector<std::uint32_t> m_begins;
    std::size_t m_rows = 0;
    std::size_t m_columns = 0;
    bool m_missesCorner = false;
    std::size_t m_emptyRows = 0; ///< kept ones, since the last that is not
    Row m_raggedEmpty;           ///< the first empty row of another length since then
    Reading m_reading;
};

bool Tokenizer::fail(Reading::Fault fault, std::size_t place, std::size_t fields)
{
    m_reading.fault = fault;
    m_reading.faultPlace = place;
    m_reading.faultFields = fields;
    return false;
}

/// False at the end of the text.
bool Tokenizer::skipLines()
{
    while (m_p != m_end && m_line <= m_lastSkipped && m_skip.contains(m_line)) {
        while (!endsRow(m_p))
            ++m_p;
        passLineEnd();
    }
    return m_p != m_end;
}

void Tokenizer::passLineEnd()
{
    if (m_p == m_end)
        return;
    m_p += *m_p == '\r' && m_p[1] == '\n' ? 2 : 1;
    ++m_line;
}

Reading Tokenizer::run()
{
    while (skipLines()) {
        Row row;
        if (!takeRow(row) || !keep(row))
            return std::move(m_reading);
    }
    m_begins.resize((m_rows - m_emptyRows) * (m_columns + 1));
    m_reading.droppedLines += m_emptyRows;
    m_reading.table = Table(m_text, std::move(m_begins), m_columns, m_missesCorner);
    return std::move(m_reading);
}

/// Adds where the row's fields begin.
bool Tokenizer::takeRow(Row& row)
{
    row.place = placeOf(m_p);
    for (;;) {
        if (m_separator == ' ')
            while (isBlank(*m_p))
                ++m_p;
        if (m_separator == ' ' && row.fields > 0 && endsRow(m_p))
            break;
        m_begins.push_back(static_cast<std::uint32_t>(placeOf(m_p)));
        ++row.fields;
        if (!takeField(row))
            return false;
        if (endsRow(m_p))
            break;
        ++m_p;
    }
    m_begins.push_back(static_cast<std::uint32_t>(placeOf(m_p) + 1));
    passLineEnd();
    return true;
}

/// Advances to the separator or line end after the field.
bool Tokenizer::takeField(Row& row)
{
    while (isBlank(*m_p) && *m_p != m_separator)
        ++m_p;
    if (*m_p == '"') {
        row.isEmpty = false;
        return takeQuoted();
    }
    const char* const first = m_p;
    m_p = m_scan.find(m_p);
    row.isEmpty = row.isEmpty && m_p == first;
    return true;
}

bool Tokenizer::takeQuoted()
{
    const std::size_t place = placeOf(m_p);
    for (++m_p;; ++m_p) {
        if (m_p == m_end)
            return fail(Reading::Fault::OpenQuote, place);
        if (*m_p == '"') {
            if (m_p[1] != '"')
                break;
            ++m_p;
        } else if (*m_p == '\n' || (*m_p == '\r' && m_p[1] != '\n')) {
            ++m_line;
            if (m_line <= m_lastSkipped && m_skip.contains(m_line))
                return fail(Reading::Fault::SkippedInsideQuotes, place);
        }
    }
    ++m_p;
    while (isBlank(*m_p) && !isSeparator(*m_p))
        ++m_p;
    return isSeparator(*m_p) || endsRow(m_p) || fail(Reading::Fault::TextBehindQuote, place);
}

/// Counts the row, or drops it again where it is empty.
bool Tokenizer::keep(const Row& row)
{
    const bool lineIsEmpty = row.isEmpty && row.fields == 1;
    if (row.isEmpty && (lineIsEmpty || (m_rows > 0 && row.fields != m_columns))) {
        m_begins.resize(m_begins.size() - row.fields - 1);
        if (m_raggedEmpty.place == 0)
            m_raggedEmpty = row;
        ++m_reading.droppedLines;
        return true;
    }
    if (m_raggedEmpty.place != 0 && !row.isEmpty)
        return fail(m_raggedEmpty.fields == 1 ? Reading::Fault::EmptyLine : Reading::Fault::Ragged,
                    m_raggedEmpty.place, m_raggedEmpty.fields);
    if (m_rows == 0) {
        m_columns = row.fields;
        m_reading.fields = row.fields;
    } else if (m_rows == 1 && m_mayMissCorner && m_columns > 1 && row.fields == m_columns + 1) {
        // The first row's own corner: an empty field in front of it.
        m_begins.insert(m_begins.begin(), m_begins.front() - 1);
        m_columns = row.fields;
        m_missesCorner = true;
    } else if (row.fields != m_columns) {
        return fail(Reading::Fault::Ragged, row.place, row.fields);
    }
    m_emptyRows = row.isEmpty ? m_emptyRows + 1 : 0;
    if (++m_rows == 2)
        reserve();
    return true;
}

/// Reserves enough for the whole text if its other lines are about as long as the second; memory
/// that is not needed is never touched.
void Tokenizer::reserve()
{
    const std::size_t left = m_text.end() - placeOf(m_p);
    const std::size_t length = placeOf(m_p) - m_begins[m_begins.size() - m_columns - 1];
    const std::size_t rows = left / std::max<std::size_t>(length, 1);
    m_begins.reserve(std::min((rows + rows / 8 + 3) * (m_columns + 1), left + 2 * m_begins.size()));
}

} // namespace

Reading takeApart(const SourceText& text, std::size_t begin, std::size_t line, Separator separator,
                  const Ranges& skip, bool mayMissCorner)
{
    return Tokenizer(text, begin, line, separator, skip, mayMissCorner).run();
}

QString faultText(const SourceText& text, const Reading& reading)
{
    const QString line = QString::number(text.lineOf(reading.faultPlace));
    switch (reading.fault) {
    case Reading::Fault::Ragged:
        return tr("line %1: %2 fields, but the first row has %3 (separator %4); every row must "
                  "have as many. Lines can be left out by --skip.")
            .arg(line)
            .arg(reading.faultFields)
            .arg(reading.fields)
            .arg(nameOf(reading.separator));
    case Reading::Fault::EmptyLine:
        return tr("line %1: an empty line among the others; leave it out by --skip %1.").arg(line);
    case Reading::Fault::TextBehindQuote:
        return tr("line %1: text stands behind the closing quote of a field that begins in this "
                  "line (separator %2; another one is named by --separator).")
            .arg(line, nameOf(reading.separator));
    case Reading::Fault::OpenQuote:
        return tr("line %1: the quote of a field that begins in this line is not closed (separator "
                  "%2).")
            .arg(line, nameOf(reading.separator));
    case Reading::Fault::SkippedInsideQuotes:
        return tr("line %1: a field in quotes begins in this line and goes on in one that --skip "
                  "leaves out.")
            .arg(line);
    default:
        return QString();
    }
}

QString nameOf(Separator separator)
{
    switch (separator) {
    case Separator::Tab:
        return tr("tab");
    case Separator::Semicolon:
        return tr("semicolon");
    case Separator::Comma:
        return tr("comma");
    case Separator::Blank:
        return tr("blank");
    default:
        return tr("unknown");
    }
}

} // namespace convert
