// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/diagramgeometry.h"

#include <algorithm>
#include <cmath>

namespace {

/// Gap between the circle's box and the text, added to the offset, and the margin of the text above
/// and below.
constexpr double textGap = 4.0;
constexpr int textMargin = 4;

/// Cuts towards zero; lengths beyond every screen are bounded, since they might not fit an int. For
/// the same reason lengths are added up as doubles: a setting may hold any number.
int truncated(double length)
{
    constexpr double bound = 1e6;
    return std::isnan(length) ? 0 : static_cast<int>(std::clamp(length, -bound, bound));
}

} // namespace

double DiagramGeometry::diameter(double value) const
{
    const double absolute = std::abs(value);
    return size * (proportionalArea ? std::sqrt(absolute) : absolute);
}

int DiagramGeometry::fontSize() const
{
    return std::max(7, truncated((size - 25) * 0.15 + 5.0));
}

QRect DiagramGeometry::circle(double value, double rowMaximum, double columnMaximum,
                              QPoint corner) const
{
    const double d = diameter(value);
    const int side = truncated(d);
    return {truncated((diameter(columnMaximum) - d) * 0.5 + corner.x() + edgeX),
            truncated((diameter(rowMaximum) - d) * 0.5 + corner.y() + edgeY), side, side};
}

QPoint DiagramGeometry::textOrigin(double rowMaximum, double columnMaximum, QPoint corner) const
{
    const int halfHeight = textHeight / 2;
    const int halfWidth = textWidth / 2;
    return {truncated(diameter(columnMaximum) + textGap + (double(corner.x()) + edgeX) +
                      textCircleOffset + halfHeight),
            truncated(0.5 * diameter(rowMaximum) + (double(corner.y()) + edgeY) + halfWidth)};
}

QSize DiagramGeometry::cellSize(double rowMaximum, double columnMaximum) const
{
    return {
        truncated(2.0 * edgeX + textGap + textHeight + textCircleOffset + diameter(columnMaximum)),
        std::max(truncated(2.0 * edgeY + diameter(rowMaximum)), textWidth + textMargin)};
}

QPoint summaryOrigin(const QRect& cell, int textWidth)
{
    return {cell.left() + (cell.width() - textWidth) / 2, cell.top() + cell.height() / 2};
}
