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
    // A wheel turned sideways points the way that a plain scroll bar goes.
    const QPoint turn = event->angleDelta();
    setInvertedControls(std::abs(turn.x()) > std::abs(turn.y()));
    QScrollBar::wheelEvent(event);
    setInvertedControls(false);
}
