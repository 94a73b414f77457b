// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/number.h"

#include "input/numberparser.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace convert {

namespace {

/// A number whose first digit is beyond these places is out of the range of doubles; so the zeros
/// of a large exponent need not be written out, and exponents are capped.
constexpr std::int64_t farthestPlace = 400;
constexpr std::int64_t largestExponent = std::int64_t(1) << 40;

bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

/// A number taken apart.
struct Parts
{
    std::string_view mantissa; ///< digits and perhaps a decimal sign
    std::size_t whole = 0;     ///< digits before the sign
    std::size_t fraction = 0;  ///< digits after it
    char sign = 0;
    bool negative = false;
    std::int64_t exponent = 0;
    std::uint64_t digits = 0; ///< value of all digits, where they are few enough
};

std::optional<std::int64_t> exponentIn(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    if (!text.empty() && (text.front() == '-' || text.front() == '+'))
        text.remove_prefix(1);
    if (text.empty() || !std::all_of(text.begin(), text.end(), isDigit))
        return std::nullopt;
    std::int64_t exponent = 0;
    for (const char digit : text)
        exponent = std::min(exponent * 10 + (digit - '0'), largestExponent);
    return negative ? -exponent : exponent;
}

/// False where the text is no number.
bool takeApart(std::string_view text, Parts& parts)
{
    const char* p = text.data();
    const char* const end = p + text.size();
    if (p == end)
        return false;
    parts.negative = *p == '-';
    p += parts.negative || *p == '+';
    const char* const first = p;
    std::uint64_t digits = 0;
    while (p != end && isDigit(*p))
        digits = digits * 10 + static_cast<std::uint64_t>(*p++ - '0');
    parts.whole = static_cast<std::size_t>(p - first);
    if (p != end && (*p == '.' || *p == ',')) {
        parts.sign = *p++;
        const char* const behind = p;
        while (p != end && isDigit(*p))
            digits = digits * 10 + static_cast<std::uint64_t>(*p++ - '0');
        parts.fraction = static_cast<std::size_t>(p - behind);
    }
    parts.digits = digits;
    parts.mantissa = std::string_view(first, static_cast<std::size_t>(p - first));
    if (parts.whole + parts.fraction == 0)
        return false;
    if (p == end)
        return true;
    if (*p != 'e' && *p != 'E')
        return false;
    const auto exponent =
        exponentIn(std::string_view(p + 1, static_cast<std::size_t>(end - p - 1)));
    parts.exponent = exponent.value_or(0);
    return exponent.has_value();
}

std::string digitsOf(const Parts& parts)
{
    std::string digits(parts.mantissa);
    if (parts.sign != 0)
        digits.erase(parts.whole, 1);
    return digits;
}

/// How many places before the point the first digit other than 0 is; nothing for zero.
std::optional<std::int64_t> firstPlace(const Parts& parts)
{
    std::size_t zeros = 0;
    for (const char byte : parts.mantissa) {
        if (isDigit(byte) && byte != '0')
            return static_cast<std::int64_t>(parts.whole) - static_cast<std::int64_t>(zeros) +
                   parts.exponent;
        zeros += byte == '0';
    }
    return std::nullopt;
}

void appendMantissa(std::string& out, const Parts& parts)
{
    const std::size_t begin = out.size();
    out += parts.mantissa;
    if (parts.sign == ',')
        out[begin + parts.whole] = '.';
}

/// @param parts  not zero, its first digit not far from the point
void appendShifted(std::string& out, const Parts& parts)
{
    std::string digits = digitsOf(parts);
    const std::int64_t point = static_cast<std::int64_t>(parts.whole) + parts.exponent;
    if (point <= 0) {
        out += "0.";
        out.append(static_cast<std::size_t>(-point), '0');
        out += digits;
        return;
    }
    const auto places = static_cast<std::size_t>(point);
    if (places > digits.size())
        digits.append(places - digits.size(), '0');
    const std::string whole = digits.substr(0, places);
    const std::size_t first = std::min(whole.find_first_not_of('0'), whole.size() - 1);
    out += whole.substr(first);
    if (places < digits.size())
        out += '.' + digits.substr(places);
}

void appendUnsigned(std::string& out, const Parts& parts)
{
    if (parts.exponent == 0 || !firstPlace(parts))
        appendMantissa(out, parts);
    else
        appendShifted(out, parts);
}

void setValue(Number& number, const Parts& parts)
{
    constexpr std::size_t mostDigits = 19;
    double value = 0.0;
    if (parts.exponent == 0 && parts.whole + parts.fraction <= mostDigits &&
        parts.digits <= pelmora::largestExactMantissa) {
        value = static_cast<double>(static_cast<std::int64_t>(parts.digits)) /
                pelmora::exactPowersOfTen[parts.fraction];
    } else if (const auto place = firstPlace(parts)) {
        number.kind = *place > 0 ? Number::TooLarge : Number::TooSmall;
        if (*place > farthestPlace || *place < -farthestPlace)
            return;
        std::string plain;
        appendUnsigned(plain, parts);
        const auto found = pelmora::parseNumber(plain.data(), plain.data() + plain.size());
        if (!found || !std::isfinite(*found) || *found == 0.0)
            return;
        value = *found;
    }
    number.kind = Number::Value;
    number.value = parts.negative ? -value : value;
}

} // namespace

Number parseNumber(std::string_view field, DecimalSigns signs)
{
    Number number;
    Parts parts;
    if (!takeApart(field, parts) || (parts.sign == '.' && !signs.point) ||
        (parts.sign == ',' && !signs.comma))
        return number;
    number.sign = parts.sign;
    number.mayGroup = parts.sign != 0 && parts.whole >= 1 && parts.whole <= 3 &&
                      parts.fraction == 3 && parts.mantissa.front() != '0';
    setValue(number, parts);
    return number;
}

void appendPlainDecimal(std::string& out, std::string_view number)
{
    // Nearly all numbers have no exponent, so only a comma is replaced.
    const std::size_t begin = out.size();
    out += number;
    char* const bytes = out.data() + begin;
    bool isPlain = true;
    for (std::size_t i = 0; i < number.size(); ++i) {
        isPlain = isPlain && bytes[i] <= '9';
        bytes[i] = bytes[i] == ',' ? '.' : bytes[i];
    }
    if (isPlain)
        return;
    out.resize(begin);
    Parts parts;
    if (!takeApart(number, parts))
        return;
    if (number.front() == '-' || number.front() == '+')
        out += number.front();
    appendUnsigned(out, parts);
}

bool isNines(std::string_view number, double value)
{
    if (std::fabs(value) < 9.0)
        return false;
    std::string plain;
    appendPlainDecimal(plain, number);
    std::string_view digits = plain;
    digits.remove_prefix(std::min(digits.find_first_not_of("+-0"), digits.size()));
    const std::string_view whole = digits.substr(0, digits.find('.'));
    const std::string_view rest = digits.substr(whole.size());
    return !whole.empty() && whole.find_first_not_of('9') == std::string_view::npos &&
           rest.find_first_not_of(".0") == std::string_view::npos;
}

} // namespace convert
