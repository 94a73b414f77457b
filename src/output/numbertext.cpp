// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/numbertext.h"

#include "numerics/powersoften.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

namespace numbertext {

namespace {

unsigned capped(unsigned decimals)
{
    return std::min(decimals, 9U);
}

} // namespace

double rounded(double x, unsigned decimals)
{
    const double factor = pelmora::exactPowersOfTen[capped(decimals)];
    return std::floor(x * factor + 0.5) / factor;
}

QString fixed(double x, unsigned decimals)
{
    return QString::number(rounded(x, decimals), 'f', static_cast<int>(capped(decimals)));
}

std::string fixedBytes(double x, unsigned decimals)
{
    return fixed(x, decimals).toStdString();
}

std::string general(double x)
{
    return QByteArray::number(x, 'g', 6).toStdString();
}

std::string shortest(double x)
{
    // The toolkit drops the sign of minus zero.
    if (x == 0.0 && std::signbit(x))
        return "-0";
    return QString::number(x, 'f', QLocale::FloatingPointShortest).toStdString();
}

std::string rightAligned(const std::string& text, std::size_t width)
{
    const std::size_t padding = width > text.size() ? width - text.size() : 0;
    return std::string(padding, ' ') + text;
}

} // namespace numbertext
