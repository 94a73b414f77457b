// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "minimalpairs/minimalpairentryform.h"

#include <QVector>
#include <QWidget>

#include <memory>

namespace Ui {
class MinimalPairForm;
}

/// The minimal pairs of one focal factor, one entry under the other. There can be hundreds of such
/// pages, most of which nobody looks at: the entries are made when the page is first shown.
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

protected:
    void showEvent(QShowEvent* event) override;

private:
    void makeEntries();

    std::unique_ptr<Ui::MinimalPairForm> m_ui;
    FocalFactor m_focal;
    int m_variableCount;
    std::vector<MinimalPair> m_pairs;
    std::vector<MinimalPairEntryForm*> m_entries;
};
