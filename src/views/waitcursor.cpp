// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/waitcursor.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>

WaitCursor::WaitCursor()
{
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    qApp->installEventFilter(this);
}

WaitCursor::~WaitCursor()
{
    restore();
}

bool WaitCursor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched))
        restore();
    return false;
}

void WaitCursor::restore()
{
    if (m_shown)
        QGuiApplication::restoreOverrideCursor();
    m_shown = false;
}
