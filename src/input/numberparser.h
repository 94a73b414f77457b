// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <optional>

namespace pelmora {

/// Converts a plain decimal number: an optional sign, digits, at most one point. Accepts and yields
/// exactly what QString::toDouble does: nothing for a number beyond the range of doubles, nor for
/// one that underflows to zero.
std::optional<double> parseNumber(const char* first, const char* last);
std::optional<double> parseNumber(QStringView text);

} // namespace pelmora
