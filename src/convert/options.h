// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace convert {

enum class Kind { Unknown, Data, Correlations };
enum class Separator : char { Unknown = 0, Tab = '\t', Semicolon = ';', Comma = ',', Blank = ' ' };
enum class Decimal : char { Unknown = 0, Point = '.', Comma = ',' };
enum class Header { Unknown, Yes, No };
enum class Encoding {
    Unknown,
    Utf8,
    Utf16LittleEndian,
    Utf16BigEndian,
    Windows1250,
    Windows1251,
    Windows1252,
    Windows1253
};

/// Numbers from 1 on, as "2-10,12" names them.
class Ranges
{
public:
    struct Range
    {
        std::size_t first;
        std::size_t last;
    };

    void add(Range range) { m_ranges.push_back(range); }
    bool isEmpty() const { return m_ranges.empty(); }
    bool contains(std::size_t number) const
    {
        return std::any_of(m_ranges.begin(), m_ranges.end(), [number](const Range& range) {
            return number >= range.first && number <= range.last;
        });
    }
    std::size_t largest() const
    {
        std::size_t largest = 0;
        for (const Range& range : m_ranges)
            largest = std::max(largest, range.last);
        return largest;
    }

private:
    std::vector<Range> m_ranges;
};

/// What the user chose; whatever is left unknown is recognised, or the file is refused with a
/// request for it.
struct Options
{
    Kind kind = Kind::Unknown;
    Separator separator = Separator::Unknown;
    Decimal decimal = Decimal::Unknown;
    Header header = Header::Unknown;
    Encoding encoding = Encoding::Unknown;
    bool noMissingCodes = false; ///< "none": values of nines are values
    QStringList missing;         ///< codes beside empty fields and "NA"
    Ranges columns;              ///< places kept; empty: all
    Ranges skip;                 ///< lines of the file to leave out
    bool transpose = false;
    bool labels = false; ///< labels instead of names, where a file has both
};

} // namespace convert
