// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTabWidget>

/// The pages of one analysis session. The platform's shortcut for closing closes the current page
/// if that has a close button.
class SessionTabWidget : public QTabWidget
{
    Q_OBJECT

public:
    explicit SessionTabWidget(QWidget* parent = nullptr);

    /// Adds @p page under @p title, at the end or at @p place, and returns its index. A page that
    /// is not closable shows no close button; call this after the tabs have been made closable.
    int addPage(QWidget* page, const QString& title, bool closable, int place = -1);

private:
    bool isClosable(int index) const;
    void requestClose();
};
