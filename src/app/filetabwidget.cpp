// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/filetabwidget.h"

#include "views/nameheaders.h"

#include <QVBoxLayout>

#include <algorithm>

QSize FileTabBar::minimumTabSizeHint(int index) const
{
    const auto widthOf = [this](const QString& text) {
        return fontMetrics().size(Qt::TextShowMnemonic, text).width();
    };
    const QString path = tabText(index);
    const int name = widthOf(u'\u2026' + path.mid(path.lastIndexOf(u'/')));
    QSize size = tabSizeHint(index);
    size.rwidth() -= std::max(widthOf(path) - std::min(name, widestName(this)) - 1, 0);
    return size;
}

FileTabWidget::FileTabWidget(QWidget* parent) : QTabWidget(parent)
{
    setTabBar(new FileTabBar(this));
    setElideMode(Qt::ElideLeft);
}

void FileTabWidget::setShownWhileEmpty(QWidget* widget)
{
    m_shownWhileEmpty = widget;
    auto* pane = new QVBoxLayout(this);
    pane->addWidget(widget);
}

void FileTabWidget::tabInserted(int)
{
    if (m_shownWhileEmpty)
        m_shownWhileEmpty->hide();
}

void FileTabWidget::tabRemoved(int)
{
    if (m_shownWhileEmpty)
        m_shownWhileEmpty->setVisible(count() == 0);
}
