// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCursor>
#include <QGuiApplication>

/// Shows the wait cursor as long as it lives. It must be gone before a box or dialog opens.
class BusyCursor
{
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY_MOVE(BusyCursor)
};
