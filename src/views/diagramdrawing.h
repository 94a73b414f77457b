// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QFont>
#include <QLine>
#include <QRect>
#include <QString>

#include <vector>

class factorModel;

/// The circular diagram as circles, texts and rules, each where the page paints it. Lengths are
/// pixels. What looks alike is kept together, so that files name a colour or a font once.
struct DiagramDrawing
{
    struct Circles
    {
        QColor fill;                ///< the outlines are black and one pixel wide
        std::vector<QRect> squares; ///< around each circle; an empty one is a dot
    };
    struct Text
    {
        QPoint origin; ///< where the baseline begins
        int width;
        QString text;
    };
    struct Texts
    {
        QFont font;
        bool centred = true;  ///< keeps its centre in another font; else its start
        bool upright = false; ///< reads from bottom to top
        std::vector<Text> texts;
    };

    QSize size;
    int dotsPerInch = 96; ///< of the pixels, and what the points of the fonts refer to
    std::vector<QLine> rules;
    std::vector<Circles> circles;
    std::vector<Texts> texts;
};

/// Draws @p model at its diagram size in the order of its variables, with the present settings and
/// a line below that says what the circles mean. Needs an application object, but no page.
/// @throws std::bad_alloc when the memory does not suffice or the user cancels
DiagramDrawing drawDiagram(factorModel* model);
