// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <string>

/// How numbers are rounded and written. All pages and exports go through these, so that one value
/// reads the same everywhere. Not-a-number is "nan", infinities are "inf" and "-inf".
namespace numbertext {

/// floor(x 10^p + 0.5) / 10^p with p = min(decimals, 9). Halves go towards positive infinity, so
/// the result is never minus zero.
double rounded(double x, unsigned decimals);

/// Rounded value in fixed notation with as many decimals.
QString fixed(double x, unsigned decimals);
/// The same as the bytes of a file.
std::string fixedBytes(double x, unsigned decimals);

/// At most six significant digits, no trailing zeros: the default form of a text stream. The value
/// is written as given; callers round first.
std::string general(double x);

/// The shortest plain decimal form (never an exponent) that reads back to exactly x.
std::string shortest(double x);

/// @p text right aligned in a field of @p width characters.
std::string rightAligned(const std::string& text, std::size_t width);

} // namespace numbertext
