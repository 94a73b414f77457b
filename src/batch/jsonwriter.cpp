// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/jsonwriter.h"

#include <array>
#include <charconv>
#include <cmath>

namespace batch {

JsonWriter& JsonWriter::key(std::string_view name)
{
    startValue();
    m_text += '"';
    m_text += name;
    m_text += "\": ";
    m_afterKey = true;
    return *this;
}

void JsonWriter::value(double number)
{
    startValue();
    append(number);
}

void JsonWriter::value(std::int64_t number)
{
    startValue();
    m_text += std::to_string(number);
}

void JsonWriter::value(bool truth)
{
    startValue();
    m_text += truth ? "true" : "false";
}

void JsonWriter::value(const QString& text)
{
    startValue();
    append(text);
}

void JsonWriter::null()
{
    startValue();
    m_text += "null";
}

void JsonWriter::numbers(std::span<const double> list)
{
    startValue();
    m_text += '[';
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (i > 0)
            m_text += ", ";
        append(list[i]);
    }
    m_text += ']';
}

void JsonWriter::rows(const pelmora::Matrix& matrix)
{
    beginArray();
    for (int i = 0; i < matrix.rows(); ++i)
        numbers({matrix[i], static_cast<std::size_t>(matrix.columns())});
    endArray();
}

void JsonWriter::begin(char bracket)
{
    startValue();
    m_text += bracket;
    ++m_depth;
    m_isFirst = true;
}

void JsonWriter::end(char bracket)
{
    --m_depth;
    if (!m_isFirst)
        m_text += '\n' + std::string(m_depth, ' ');
    m_text += bracket;
    m_isFirst = false;
}

void JsonWriter::startValue()
{
    if (m_afterKey || m_depth == 0) {
        m_afterKey = false;
        return;
    }
    m_text += m_isFirst ? "\n" : ",\n";
    m_text.append(m_depth, ' ');
    m_isFirst = false;
}

void JsonWriter::append(double number)
{
    if (!std::isfinite(number)) {
        m_text += "null";
        return;
    }
    std::array<char, 32> digits;
    const auto [end, error] = std::to_chars(digits.begin(), digits.end(), number);
    m_text.append(digits.begin(), end);
}

void JsonWriter::append(const QString& text)
{
    constexpr std::string_view hexadecimal = "0123456789abcdef";
    m_text += '"';
    for (const char character : text.toUtf8()) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20) {
            m_text += "\\u00";
            m_text += hexadecimal[code / 16];
            m_text += hexadecimal[code % 16];
            continue;
        }
        if (character == '"' || character == '\\')
            m_text += '\\';
        m_text += character;
    }
    m_text += '"';
}

} // namespace batch
