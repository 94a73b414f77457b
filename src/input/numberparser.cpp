// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/numberparser.h"

#include "input/scan/charclass.h"
#include "numerics/powersoften.h"

#include <QByteArray>
#include <QByteArrayView>

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace pelmora {

namespace {

/// A plain decimal taken apart: mantissa / 10^fraction.
struct Decimal
{
    std::uint64_t mantissa = 0;
    std::size_t fraction = 0;
    bool fits = true; ///< whether the mantissa holds all digits
};

void append(Decimal& decimal, unsigned digit)
{
    constexpr std::uint64_t roomForADigit = (UINT64_MAX - 9) / 10;
    decimal.fits = decimal.fits && decimal.mantissa <= roomForADigit;
    if (decimal.fits)
        decimal.mantissa = decimal.mantissa * 10 + digit;
}

/// Nothing where the text has no digits, two points or anything else.
std::optional<Decimal> takeApart(const char* first, const char* last)
{
    Decimal decimal;
    bool anyDigit = false;
    bool afterPoint = false;
    for (const char* p = first; p != last; ++p) {
        if (classOf(*p) == ByteClass::Digit) {
            append(decimal, static_cast<unsigned>(*p - '0'));
            anyDigit = true;
            decimal.fraction += afterPoint;
        } else if (*p == '.' && !afterPoint) {
            afterPoint = true;
        } else {
            return std::nullopt;
        }
    }
    return anyDigit ? std::optional(decimal) : std::nullopt;
}

/// The value of a number that no exact division gives; its form is known to be right.
std::optional<double> parseRest(const char* first, const char* last)
{
#ifdef __cpp_lib_to_chars
    double value = 0.0;
    const auto [end, error] = std::from_chars(first, last, value, std::chars_format::fixed);
    // Libraries differ at both ends of the range.
    if (error == std::errc() && end == last && std::isfinite(value) && value != 0.0)
        return value;
#endif
    bool ok = false;
    const double slowValue = QByteArrayView(first, last).toDouble(&ok);
    return ok ? std::optional(slowValue) : std::nullopt;
}

std::optional<double> parseUnsigned(const char* first, const char* last)
{
    const auto decimal = takeApart(first, last);
    if (!decimal)
        return std::nullopt;
    if (decimal->fits && decimal->mantissa <= largestExactMantissa &&
        decimal->fraction < exactPowersOfTen.size())
        return static_cast<double>(decimal->mantissa) / exactPowersOfTen[decimal->fraction];
    return parseRest(first, last);
}

} // namespace

std::optional<double> parseNumber(const char* first, const char* last)
{
    const bool isSigned = first != last && classOf(*first) == ByteClass::Sign;
    const auto value = parseUnsigned(isSigned ? first + 1 : first, last);
    return value && isSigned && *first == '-' ? -*value : value;
}

std::optional<double> parseNumber(QStringView text)
{
    const QByteArray bytes = text.toLatin1();
    return parseNumber(bytes.constData(), bytes.constData() + bytes.size());
}

} // namespace pelmora
