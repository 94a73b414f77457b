// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

/// Where the circular diagram draws what. All lengths are pixels.
///
/// A loading cell holds, from left to right, the left margin, a box as wide as the largest circle
/// of the factor and as high as the largest circle of the variable, and the value text, which reads
/// from bottom to top. Every circle is centred in its box, so the circles of a row share a centre
/// line, and so do those of a column.
struct DiagramGeometry
{
    int size = 50; ///< length of a loading of absolute value 1
    int edgeX = 4;
    int edgeY = 4;
    int textCircleOffset = 2;
    bool proportionalArea = true; ///< else the diameter is proportional to the absolute loading
    int textWidth = 27;           ///< of the value text before it is turned
    int textHeight = 8;

    /// Diameter of the circle of @p value, before it is cut to whole pixels.
    double diameter(double value) const;

    /// Point size of the value texts.
    int fontSize() const;

    /// Circle of @p value in a cell at @p corner; @p rowMaximum and @p columnMaximum are the
    /// largest absolute loadings of its variable and its factor.
    QRect circle(double value, double rowMaximum, double columnMaximum, QPoint corner) const;

    /// Where the baseline of the turned value text begins.
    QPoint textOrigin(double rowMaximum, double columnMaximum, QPoint corner) const;

    /// Room that a loading cell needs.
    QSize cellSize(double rowMaximum, double columnMaximum) const;
};

/// Where the baseline of a summary begins, so that it is centred in its cell.
QPoint summaryOrigin(const QRect& cell, int textWidth);
