// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollBar>

/// A scroll bar that sets a size: keys and wheel move its thumb the way they point, upwards being
/// more. A plain one moves what it scrolls, so its directions are reversed.
class ZoomBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit ZoomBar(QWidget* parent);

protected:
    void wheelEvent(QWheelEvent* event) override;
};
