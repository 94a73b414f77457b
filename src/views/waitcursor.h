// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

/// Shows the wait cursor while it lives, but not over a box that appears meanwhile: from the first
/// dialog on the ordinary cursor is back.
class WaitCursor : public QObject
{
    Q_OBJECT

public:
    WaitCursor();
    ~WaitCursor() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restore();

    bool m_shown = true;
};
