// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/statisticsmodel.h"

#include <array>

namespace {

enum NoteKind { NoNote, Constant, TooFewCases };

NoteKind noteOf(const pelmora::VariableStatistics& variable)
{
    if (variable.hasTooFewCases())
        return TooFewCases;
    return variable.isConstant() ? Constant : NoNote;
}

} // namespace

StatisticsModel::StatisticsModel(QObject* parent) : NumberTableModel(parent) {}

void StatisticsModel::setStatistics(const std::vector<pelmora::VariableStatistics>& statistics)
{
    pelmora::Matrix values(static_cast<int>(statistics.size()), ColumnCount);
    for (int row = 0; row < values.rows(); ++row) {
        const auto& variable = statistics[static_cast<std::size_t>(row)];
        values[row][Mean] = variable.mean;
        values[row][StandardDeviation] = variable.standardDeviation;
        values[row][Minimum] = variable.minimum;
        values[row][Maximum] = variable.maximum;
        values[row][Note] = noteOf(variable);
    }
    fill(values.rowPointers(), values.rows(), values.columns());
    m_values = std::move(values);
}

QVariant StatisticsModel::data(const QModelIndex& index, int role) const
{
    if (index.column() != Note)
        return NumberTableModel::data(index, role);
    if (role != Qt::DisplayRole || !index.isValid())
        return QVariant();
    const std::array<QString, 3> notes = {QString(), tr("constant"), tr("too few cases")};
    return notes[static_cast<std::size_t>(value(index.row(), Note))];
}

QString StatisticsModel::columnTitle(int column)
{
    const std::array<QString, ColumnCount> titles = {tr("Mean"), tr("Standard\ndeviation"),
                                                     tr("Minimum"), tr("Maximum"), tr("Note")};
    return titles[static_cast<std::size_t>(column)];
}
