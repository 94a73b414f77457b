// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/powersoften.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace convert {

/// Which decimal signs a number may have.
struct DecimalSigns
{
    bool point = true;
    bool comma = true;
};

/// What a field says as a number.
struct Number
{
    enum Kind { None, Value, TooLarge, TooSmall };

    Kind kind = None;
    char sign = 0; ///< the decimal sign in it; 0 without one
    /// Whether the sign could part thousands: one to three digits before it of which the first is
    /// not 0, and exactly three after it.
    bool mayGroup = false;
    double value = 0.0;
};

/// Takes a field for a number: a sign, ASCII digits with at most one decimal sign, an exponent. The
/// value is the one that the readers make of what appendPlainDecimal() writes; what they would
/// refuse is TooLarge or, where it is not 0 but would be read so, TooSmall.
Number parseNumber(std::string_view field, DecimalSigns signs);

/// parseNumber() for what nearly all fields of a file are: at most 15 digits without an exponent.
/// False for any other.
inline bool parseCommonNumber(std::string_view field, DecimalSigns signs, Number& number)
{
    constexpr std::size_t mostDigits = 15;
    const char* p = field.data();
    const char* const end = p + field.size();
    const bool negative = p != end && *p == '-';
    p += negative;
    const char* const first = p;
    std::int64_t digits = 0;
    const auto takeDigits = [&] {
        const char* const begin = p;
        for (; p != end && static_cast<unsigned char>(*p - '0') < 10; ++p)
            digits = digits * 10 + (*p - '0');
        return static_cast<std::size_t>(p - begin);
    };
    if (field.size() > mostDigits)
        return false;
    const std::size_t whole = takeDigits();
    std::size_t fraction = 0;
    char sign = 0;
    if (p != end && ((*p == '.' && signs.point) || (*p == ',' && signs.comma))) {
        sign = *p++;
        fraction = takeDigits();
    }
    if (p != end || whole + fraction == 0)
        return false;
    const double value = static_cast<double>(digits) / pelmora::exactPowersOfTen[fraction];
    const bool mayGroup = sign != 0 && fraction == 3 && whole >= 1 && whole <= 3 && *first != '0';
    number = {Number::Value, sign, mayGroup, negative ? -value : value};
    return true;
}

/// Appends a number with its digits unchanged, a point for its decimal sign, and its exponent
/// written out.
/// @param number  one for which parseNumber() found a value
void appendPlainDecimal(std::string& out, std::string_view number);

/// Whether the number is 9, 99, 999 and so on, with any sign.
bool isNines(std::string_view number, double value);

} // namespace convert
