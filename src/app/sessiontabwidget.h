// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTabWidget>

/// The pages of one analysis session.
class SessionTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    using QTabWidget::QTabWidget;

    /// Adds @p page under @p title, at the end or at @p place, and returns its index. A page that
    /// is not closable shows no close button; call this after the tabs have been made closable.
    int addPage(QWidget* page, const QString& title, bool closable, int place = -1);
};
