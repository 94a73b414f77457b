// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>
#include <QWidget>

#include <memory>

class MinimalPairEntryForm;
class MinimalPairFinder;

namespace Ui {
class MinimalPairForm;
}

/// The minimal pairs of one focal factor, one entry under the other.
class MinimalPairForm : public QWidget
{
    Q_OBJECT

public:
    /// @param focalFactor  0-based
    MinimalPairForm(const MinimalPairFinder& finder, int focalFactor, QWidget* parent);
    ~MinimalPairForm() override;

public slots:
    /// Shows the session's new names; lists of another length are ignored.
    void on_variableNamesChanged(QVector<QString> const& names);

private:
    std::unique_ptr<Ui::MinimalPairForm> m_ui;
    QVector<MinimalPairEntryForm*> m_entries;
    int m_variableCount;
};
