// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTabBar>
#include <QTabWidget>

/// Tabs titled with paths: a path is cut at its beginning, never within the name of the file.
class FileTabBar : public QTabBar
{
    Q_OBJECT

public:
    using QTabBar::QTabBar;

protected:
    QSize minimumTabSizeHint(int index) const override;
};

class FileTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit FileTabWidget(QWidget* parent = nullptr);

    /// Shows @p widget, its child, over the pane while there is no tab.
    void setShownWhileEmpty(QWidget* widget);

protected:
    void tabInserted(int index) override;
    void tabRemoved(int index) override;

private:
    QWidget* m_shownWhileEmpty = nullptr;
};
