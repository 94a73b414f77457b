// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <QString>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace batch {

/// Writes JSON text, in UTF-8: numbers in the shortest form that reads back, null for those that
/// are not finite. Numbers of a list are on one line, everything else on lines of its own.
class JsonWriter
{
public:
    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }

    /// Names the value that comes next.
    JsonWriter& key(std::string_view name);

    void value(double number);
    void value(int number) { value(std::int64_t{number}); }
    void value(std::int64_t number);
    void value(bool truth);
    void value(const QString& text);
    void null();
    void numbers(std::span<const double> list);
    /// A list of the matrix's rows.
    void rows(const pelmora::Matrix& matrix);

    const std::string& text() const { return m_text; }

private:
    void begin(char bracket);
    void end(char bracket);
    void startValue();
    void append(double number);
    void append(const QString& text);

    std::string m_text;
    std::size_t m_depth = 0;
    bool m_isFirst = true; ///< of what the innermost bracket holds
    bool m_afterKey = false;
};

} // namespace batch
