// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/powersoften.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// The inner steps of reading numbers, eight bytes or more at a time. Where numbers end is found
/// for 64 bytes at once and independently of what they are worth, so that the processor works on
/// several numbers side by side; a loop over digits would wait for each before it knows where the
/// next begins.
namespace pelmora::numberscan {

inline constexpr std::size_t windowSize = 64;

/// Bytes that must be readable after a text.
inline constexpr std::size_t margin = windowSize + sizeof(std::uint64_t);

inline constexpr std::uint64_t lowBits = 0x7F7F7F7F7F7F7F7F;

/// The same byte eight times.
constexpr std::uint64_t each(std::uint64_t byte)
{
    return byte * 0x0101010101010101;
}

/// Eight bytes of text, the first in the lowest byte.
inline std::uint64_t load(const char* p)
{
    std::uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    if constexpr (std::endian::native == std::endian::big)
        word = __builtin_bswap64(word);
    return word;
}

// Numbers consist of the bytes from '+' to '9'; the comma and the slash among them are found out
// when a number is converted.
inline constexpr unsigned char firstOfNumber = '+';
inline constexpr unsigned char behindNumber = '9' + 1;

/// One bit for each of the eight bytes that cannot be part of a number, the first in the lowest
/// bit.
inline std::uint64_t breaksInWord(std::uint64_t word)
{
    const std::uint64_t low = word & lowBits;
    const std::uint64_t reached = low + each(0x80 - firstOfNumber);
    const std::uint64_t passed = low + each(0x80 - behindNumber);
    const std::uint64_t breaks = ~(reached & ~passed & ~word) & ~lowBits;
    return ((breaks >> 7) * 0x0102040810204080) >> 56;
}

inline std::uint64_t breaksByWords(const char* window)
{
    std::uint64_t breaks = 0;
    for (unsigned i = 0; i < windowSize / 8; ++i)
        breaks |= breaksInWord(load(window + 8 * i)) << (8 * i);
    return breaks;
}

/// The same for the 64 bytes of a window.
inline std::uint64_t breaksInWindow(const char* window)
{
#ifdef __SSE2__
    std::uint64_t numbers = 0;
    const __m128i toLowest = _mm_set1_epi8(static_cast<char>(0x80 - firstOfNumber));
    const __m128i bound = _mm_set1_epi8(static_cast<char>(0x80 + behindNumber - firstOfNumber));
    for (unsigned i = 0; i < windowSize / 16; ++i) {
        const auto* bytes = reinterpret_cast<const __m128i*>(window + 16 * i);
        const __m128i shifted = _mm_add_epi8(_mm_loadu_si128(bytes), toLowest);
        const int mask = _mm_movemask_epi8(_mm_cmplt_epi8(shifted, bound));
        numbers |= static_cast<std::uint64_t>(mask) << (16 * i);
    }
    return ~numbers;
#else
    return breaksByWords(window);
#endif
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

/// A number, or eight bytes of one: value / 10^fraction.
struct Digits
{
    std::uint64_t value;
    int fraction;
    bool hasPoint;
};

/// Digits with at most one point among them; false for anything else.
/// @param word  text xor '0', its last byte in the highest byte, zeros below its first
inline bool takeDigits(std::uint64_t word, Digits& digits)
{
    const std::uint64_t others = (((word & lowBits) + each(0x80 - 10)) | word) & ~lowBits;
    if (others == 0) {
        digits = {joinDigits(word), 0, false};
        return true;
    }
    const std::uint64_t point = others >> 7;
    const std::uint64_t pointByte = (others << 1) - point;
    if ((others & (others - 1)) != 0 || (word & pointByte) != point * ('.' ^ '0'))
        return false;
    const std::uint64_t before = word & (point - 1);
    const std::uint64_t behind = word & (~(others << 1) + 1);
    digits = {joinDigits(behind | (before << 8)), std::countl_zero(others) / 8, true};
    return true;
}

/// Digits and a point of at most 16 bytes; both words are as takeDigits() takes them.
inline bool takeDigits(std::uint64_t head, std::uint64_t tail, Digits& digits)
{
    Digits last{};
    if (!takeDigits(head, digits) || !takeDigits(tail, last) || (digits.hasPoint && last.hasPoint))
        return false;
    digits.value = digits.value * (last.hasPoint ? 10'000'000 : 100'000'000) + last.value;
    digits.fraction = digits.hasPoint ? digits.fraction + 8 : last.fraction;
    return digits.value <= largestExactMantissa;
}

/// Converts a number of the common form: perhaps a minus, then at most 16 digits with at most one
/// point among them, which one exact division gives. False for any other; parseNumber() decides
/// then.
inline bool parseCommon(const char* first, const char* last, double& value)
{
    const std::uint64_t negative = *first == '-';
    first += negative;
    const auto size = static_cast<std::size_t>(last - first);
    const std::uint64_t head = load(first) ^ each('0');
    Digits digits{};
    if (size - 1 < 8) {
        if (!takeDigits(head << (64 - 8 * size), digits) || (digits.hasPoint && size == 1))
            return false;
    } else if (size - 9 >= 8 ||
               !takeDigits(head << (128 - 8 * size), load(last - 8) ^ each('0'), digits)) {
        return false;
    }
    const double magnitude = static_cast<double>(static_cast<std::int64_t>(digits.value)) /
                             exactPowersOfTen[static_cast<std::size_t>(digits.fraction)];
    // Signs are too irregular to branch on.
    value = std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) | (negative << 63));
    return true;
}

} // namespace pelmora::numberscan
