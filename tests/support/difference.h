// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <QString>

#include <bit>
#include <cmath>
#include <cstdint>
#include <span>

/// What two results differ in: where, both numbers and how far they are apart; empty when they are
/// equal. To be compared with QString(), so that a failing test tells what it saw.
///
/// With a limit they may be that far apart, which NaN never is; else they have to be equal to the
/// bit, but one NaN is as good as another.

inline QString difference(double a, double b, double limit = NAN)
{
    const bool toTheBit = std::isnan(limit);
    const bool same = toTheBit
                          ? std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b) ||
                                (std::isnan(a) && std::isnan(b))
                          : std::fabs(a - b) <= limit;
    if (same)
        return {};
    return QStringLiteral("%1 and %2 differ by %3")
               .arg(a, 0, 'g', 17)
               .arg(b, 0, 'g', 17)
               .arg(a - b) +
           (toTheBit ? QString() : QStringLiteral(", more than %1").arg(limit));
}

inline QString difference(std::span<const double> a, std::span<const double> b, double limit = NAN)
{
    if (a.size() != b.size())
        return QStringLiteral("%1 and %2 elements").arg(a.size()).arg(b.size());
    for (std::size_t i = 0; i < a.size(); ++i)
        if (const QString text = difference(a[i], b[i], limit); !text.isEmpty())
            return QStringLiteral("element %1: %2").arg(i).arg(text);
    return {};
}

inline QString difference(const pelmora::Matrix& a, const pelmora::Matrix& b, double limit = NAN)
{
    if (a.rows() != b.rows() || a.columns() != b.columns())
        return QStringLiteral("%1 x %2 and %3 x %4")
            .arg(a.rows())
            .arg(a.columns())
            .arg(b.rows())
            .arg(b.columns());
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            if (const QString text = difference(a[i][j], b[i][j], limit); !text.isEmpty())
                return QStringLiteral("row %1, column %2: %3").arg(i).arg(j).arg(text);
    return {};
}
