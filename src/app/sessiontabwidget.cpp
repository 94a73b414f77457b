// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/sessiontabwidget.h"

#include <QShortcut>
#include <QTabBar>

namespace {

/// Some styles have the close button on the left.
QWidget* closeButton(const QTabBar* bar, int index)
{
    QWidget* button = bar->tabButton(index, QTabBar::RightSide);
    return button ? button : bar->tabButton(index, QTabBar::LeftSide);
}

} // namespace

SessionTabWidget::SessionTabWidget(QWidget* parent) : QTabWidget(parent)
{
    auto* close = new QShortcut(QKeySequence::Close, this);
    close->setContext(Qt::WidgetWithChildrenShortcut);
    connect(close, &QShortcut::activated, this, &SessionTabWidget::requestClose);
}

int SessionTabWidget::addPage(QWidget* page, const QString& title, bool closable, int place)
{
    const int index = insertTab(place, page, title);
    // Shrunk, not removed: the tab bar still has a button for this tab.
    if (QWidget* button = closable ? nullptr : closeButton(tabBar(), index))
        button->resize(0, 0);
    return index;
}

bool SessionTabWidget::isClosable(int index) const
{
    const QWidget* button = closeButton(tabBar(), index);
    return button && !button->size().isEmpty();
}

void SessionTabWidget::requestClose()
{
    if (isClosable(currentIndex()))
        emit tabCloseRequested(currentIndex());
}
