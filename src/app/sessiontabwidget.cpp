// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/sessiontabwidget.h"

#include <QTabBar>

int SessionTabWidget::addPage(QWidget* page, const QString& title, bool closable, int place)
{
    const int index = insertTab(place, page, title);
    if (closable)
        return index;
    // Shrinking keeps the button in its place in the tab bar's book-keeping. Some styles have it on
    // the left.
    for (const auto side : {QTabBar::RightSide, QTabBar::LeftSide}) {
        if (QWidget* closeButton = tabBar()->tabButton(index, side))
            closeButton->resize(0, 0);
    }
    return index;
}
