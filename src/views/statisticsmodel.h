// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"
#include "numerics/variablestatistics.h"
#include "views/numbertable.h"

#include <vector>

/// One row per variable: its statistics, and a word where it has no correlations.
class StatisticsModel : public NumberTableModel
{
    Q_OBJECT

public:
    enum Column { Mean, StandardDeviation, Minimum, Maximum, Note, ColumnCount };

    explicit StatisticsModel(QObject* parent);

    void setStatistics(const std::vector<pelmora::VariableStatistics>& statistics);

    QVariant data(const QModelIndex& index, int role) const override;

    static QString columnTitle(int column);

private:
    pelmora::Matrix m_values; ///< the last column holds the kind of note
};
