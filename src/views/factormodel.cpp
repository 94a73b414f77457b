// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/factormodel.h"

#include "input/linetext.h"
#include "output/loadingsums.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

std::size_t at(int index)
{
    return static_cast<std::size_t>(index);
}

/// The words of @p name on lines of their own.
QString wordsAsLines(const QString& name)
{
    QString lines;
    bool wordEnded = false;
    for (QChar c : name) {
        if (linetext::isBlank(c.unicode())) {
            wordEnded = !lines.isEmpty();
            continue;
        }
        if (wordEnded)
            lines += u'\n';
        wordEnded = false;
        lines += c;
    }
    return lines;
}

void raise(double& maximum, double loading)
{
    const double absolute = std::abs(loading);
    if (absolute > maximum && std::isfinite(absolute))
        maximum = absolute;
}

} // namespace

factorModel::factorModel(const NamedMatrix& loadings, int numberOfFactors, QObject* parent)
    : QAbstractTableModel(parent)
    , m_numberOfVariables(loadings.values.rows())
    , m_numberOfFactors(std::min(numberOfFactors, loadings.values.columns()))
    , m_rowMaxima(at(m_numberOfVariables), std::numeric_limits<double>::min())
    , m_columnMaxima(at(m_numberOfFactors), std::numeric_limits<double>::min())
    , m_names(loadings.names)
{
    const LoadingSums sums = loadingSums(loadings.values, m_numberOfFactors);
    m_cells.reserve(at(m_numberOfVariables + 1) * at(m_numberOfFactors + 1));
    m_cells.push_back(sums.totalVariance);
    m_cells.insert(m_cells.end(), sums.explainedVariance.begin(), sums.explainedVariance.end());
    for (int i = 0; i < m_numberOfVariables; ++i) {
        const double* row = loadings.values[i];
        m_cells.push_back(sums.communalities[at(i)]);
        m_cells.insert(m_cells.end(), row, row + m_numberOfFactors);
        for (int j = 0; j < m_numberOfFactors; ++j) {
            raise(m_rowMaxima[at(i)], row[j]);
            raise(m_columnMaxima[at(j)], row[j]);
        }
    }
}

int factorModel::rowCount(const QModelIndex&) const
{
    return m_numberOfVariables + 1;
}

int factorModel::columnCount(const QModelIndex&) const
{
    return m_numberOfFactors + 1;
}

QVariant factorModel::data(const QModelIndex& index, int role) const
{
    if (role != Qt::DisplayRole || !index.isValid() || index.row() > m_numberOfVariables ||
        index.column() > m_numberOfFactors)
        return QVariant();
    return value(index.row(), index.column());
}

QVariant factorModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole || section < 0)
        return QVariant();
    if (orientation == Qt::Horizontal)
        return section == 0 ? tr("Communality") : tr("Factor F%1").arg(section);
    if (section == 0)
        return tr("Explained\nvariance:");
    if (section > m_numberOfVariables)
        return QVariant();
    return wordsAsLines(m_names.text(at(section - 1)));
}

double factorModel::value(int row, int column) const
{
    return m_cells[at(row) * at(m_numberOfFactors + 1) + at(column)];
}

double factorModel::rowMaximum(int variable) const
{
    return m_rowMaxima[at(variable)];
}

double factorModel::columnMaximum(int factor) const
{
    return m_columnMaxima[at(factor)];
}

void factorModel::setVariableNames(const VariableNames& names)
{
    m_names = names;
    if (m_numberOfVariables > 0)
        emit headerDataChanged(Qt::Vertical, 1, m_numberOfVariables);
}
