// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/zoombar.h"

#include <QWheelEvent>

#include <cstdlib>

ZoomBar::ZoomBar(QWidget* parent) : QScrollBar(parent)
{
    setInvertedControls(false);
}

void ZoomBar::wheelEvent(QWheelEvent* event)
{
    // A wheel turned sideways points along the bar, so it works as in a plain scroll bar.
    const QPoint turn = event->angleDelta();
    setInvertedControls(std::abs(turn.x()) > std::abs(turn.y()));
    QScrollBar::wheelEvent(event);
    setInvertedControls(false);
}
