// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

namespace pelmora {

/// White space in every file and name: 09-0D, 20 and A0, independent of toolkit and locale.
constexpr bool isBlank(char16_t code)
{
    return (code >= 0x09 && code <= 0x0D) || code == 0x20 || code == 0xA0;
}

constexpr bool isDigit(char16_t code)
{
    return code >= u'0' && code <= u'9';
}

/// Whether a data line may hold the character.
constexpr bool isNumeric(char16_t code)
{
    return isDigit(code) || code == u'+' || code == u'-' || code == u'.' || isBlank(code);
}

/// What one byte of a file means to the readers; what makes up numbers comes first.
enum class ByteClass : std::uint8_t { Digit, Sign, Point, Other, Blank, LineEnd, Nul };

inline constexpr std::array<ByteClass, 256> byteClasses = [] {
    std::array<ByteClass, 256> classes{};
    for (unsigned code = 0; code < 256; ++code)
        classes[code] = isDigit(char16_t(code))        ? ByteClass::Digit
                        : code == '+' || code == '-'   ? ByteClass::Sign
                        : code == '.'                  ? ByteClass::Point
                        : code == '\n' || code == '\r' ? ByteClass::LineEnd
                        : isBlank(char16_t(code))      ? ByteClass::Blank
                        : code == 0                    ? ByteClass::Nul
                                                       : ByteClass::Other;
    return classes;
}();

constexpr ByteClass classOf(char byte)
{
    return byteClasses[static_cast<unsigned char>(byte)];
}

/// Digits, signs and points make up the entries of data lines.
constexpr bool belongsToNumber(ByteClass byteClass)
{
    return byteClass <= ByteClass::Point;
}

} // namespace pelmora
