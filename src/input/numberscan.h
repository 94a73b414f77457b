// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/charclass.h"
#include "input/powersoften.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace pelmora {

/// Bytes that must be readable behind a text given to scanNumber().
inline constexpr int scanMargin = 16;

namespace numberscan {

inline std::uint64_t load(const char* p)
{
    std::uint64_t word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

/// The highest bit of each byte of @p word (text xor '0' per byte) that is no digit.
inline std::uint64_t nonDigits(std::uint64_t word)
{
    constexpr std::uint64_t low = 0x7F7F7F7F7F7F7F7F;
    return (((word & low) + 0x7676767676767676) | word) & ~low;
}

/// Value of eight digits (0 to 9 per byte, the first in the lowest byte): neighbours are joined to
/// pairs, pairs to fours, fours to the whole.
inline std::uint64_t joinDigits(std::uint64_t word)
{
    constexpr std::uint64_t mask = 0x000000FF000000FF;
    word = word * 10 + (word >> 8);
    return (((word & mask) * (100 + (std::uint64_t(1000000) << 32))) +
            (((word >> 16) & mask) * (1 + (std::uint64_t(10000) << 32)))) >>
           32;
}

/// A number without sign that ends within eight bytes; null for any other.
inline const char* scanWord(const char* p, double& value)
{
    const std::uint64_t word = load(p) ^ 0x3030303030303030;
    std::uint64_t others = nonDigits(word);
    if (others == 0)
        return nullptr;
    int digits = std::countr_zero(others) / 8;
    int length = digits;
    std::uint64_t joined = word;
    if (p[digits] == '.') {
        others &= others - 1;
        if (others == 0)
            return nullptr;
        const std::uint64_t whole = (std::uint64_t(1) << (8 * digits)) - 1;
        joined = (word & whole) | ((word >> 8) & ~whole);
        length = std::countr_zero(others) / 8;
        value = exactPowersOfTen[length - digits - 1];
        digits = length - 1;
    } else {
        value = 1.0;
    }
    if (digits == 0)
        return nullptr;
    value = static_cast<double>(joinDigits(joined << (64 - 8 * digits))) / value;
    return p + length;
}

/// The digits from @p p on, appended to @p mantissa, which may wrap around when there are too many.
inline const char* scanDigits(const char* p, std::uint64_t& mantissa)
{
    for (; classOf(*p) == ByteClass::Digit; ++p)
        mantissa = mantissa * 10 + static_cast<unsigned>(*p - '0');
    return p;
}

/// A number without sign of at most 19 digits that one exact division gives; null for any other.
inline const char* scanLong(const char* p, double& value)
{
    constexpr std::ptrdiff_t mostDigits = 19;
    std::uint64_t mantissa = 0;
    const char* end = scanDigits(p, mantissa);
    std::ptrdiff_t digits = end - p;
    std::ptrdiff_t fraction = 0;
    if (*end == '.') {
        const char* point = end;
        end = scanDigits(point + 1, mantissa);
        fraction = end - point - 1;
        digits += fraction;
    }
    if (digits == 0 || digits > mostDigits || mantissa > largestExactMantissa)
        return nullptr;
    value = static_cast<double>(mantissa) / exactPowersOfTen[fraction];
    return end;
}

} // namespace numberscan

/// Converts the number that starts at @p p in one visit and returns its end, or null where the text
/// is not of the common form (an optional sign, few digits, at most one point): parseNumber()
/// decides then. What follows the number is not judged; a line end or NUL must follow within the
/// text.
inline const char* scanNumber(const char* p, double& value)
{
    const bool negative = *p == '-';
    p += negative || *p == '+';
    const char* end = nullptr;
    if constexpr (std::endian::native == std::endian::little)
        end = numberscan::scanWord(p, value);
    if (!end)
        end = numberscan::scanLong(p, value);
    if (negative)
        value = -value;
    return end;
}

} // namespace pelmora
