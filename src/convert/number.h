// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

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
    /// not 0, and exactly three behind it.
    bool mayGroup = false;
    double value = 0.0;
};

/// Takes a field for a number: a sign, ASCII digits with at most one decimal sign, an exponent. The
/// value is the one that the readers make of plainDecimal(); what they would refuse is TooLarge or,
/// where it is not 0 but would be read so, TooSmall.
Number parseNumber(std::string_view field, DecimalSigns signs);

/// Appends a number with its digits as they stand, a point for its decimal sign, and its exponent
/// written out.
/// @param number  one for which parseNumber() found a value
void appendPlainDecimal(std::string& out, std::string_view number);

/// Whether the number is 9, 99, 999 and so on, with any sign.
bool isNines(std::string_view number, double value);

} // namespace convert
