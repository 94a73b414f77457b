// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "minimalpairs/minimalpairfinder.h"

#include <QWidget>

#include <memory>

namespace Ui {
class MinimalPairEntryForm;
}

/// What all pairs of one focal factor share.
struct FocalFactor
{
    int factor = 0;            ///< 0-based, as all others here
    std::vector<int> nonFocal; ///< all other factors
    unsigned decimals = 2;     ///< that their numbers are shown with
};

/// One minimal pair: its variables, their loadings on all factors and what they differ by.
class MinimalPairEntryForm : public QWidget
{
    Q_OBJECT

public:
    /// Pairs that are shown per focal factor: "First", "Second", "Third".
    static constexpr int rankCount = 3;

    /// @param rank  0-based, below rankCount
    MinimalPairEntryForm(const MinimalPair& pair, int rank, const FocalFactor& focal,
                         QWidget* parent);
    ~MinimalPairEntryForm() override;

    /// Shows the names of @p pair in place of those shown so far; the numbers stay.
    void showNames(const MinimalPair& pair);

private:
    void fillTable(const MinimalPair& pair, const FocalFactor& focal);
    void fillRow(int row, const QString& header, const MinimalPair& pair, int factor,
                 unsigned decimals);

    std::unique_ptr<Ui::MinimalPairEntryForm> m_ui;
    int m_rank;
};
