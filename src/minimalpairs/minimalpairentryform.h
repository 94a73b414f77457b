// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "minimalpairs/minimalpairfinder.h"

#include <QVector>
#include <QWidget>

#include <memory>

namespace Ui {
class MinimalPairEntryForm;
}

/// One minimal pair: its variables, their loadings on all factors and what they differ by.
class MinimalPairEntryForm : public QWidget
{
    Q_OBJECT

public:
    /// Pairs that are shown per focal factor: "First", "Second", "Third".
    static constexpr int rankCount = 3;

    /// @param rank         0-based, below rankCount
    /// @param focalFactor  0-based
    /// @param nonFocal     all other factors, 0-based
    MinimalPairEntryForm(const MinimalPair& pair, int rank, int focalFactor,
                         const std::vector<int>& nonFocal, QWidget* parent);
    ~MinimalPairEntryForm() override;

    /// Takes the pair's names from those of all variables.
    void setVariableNames(const QVector<QString>& names);

private:
    void fillTable(int focalFactor, const std::vector<int>& nonFocal);
    void fillRow(int row, const QString& header, int factor, unsigned decimals);
    void showNames();

    std::unique_ptr<Ui::MinimalPairEntryForm> m_ui;
    MinimalPair m_pair;
    int m_rank;
};
