// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/namedmatrix.h"

#include <QAbstractTableModel>

#include <vector>

/// The loadings of one factor page with a summary row and a summary column:
///
///     total variance[%]   variance[%] of factor 1   ...
///     communality         loading                   ...
///
/// Communality of a variable: sum of its squared loadings. Variance of a factor in percent: 100
/// times the sum of its squared loadings, divided by the number of variables (on purpose not by the
/// sum of the eigenvalues).
class factorModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Copies the first @p numberOfFactors columns of @p loadings.
    factorModel(const NamedMatrix& loadings, int numberOfFactors, QObject* parent);

    /// Variables and the summary row; the index is ignored.
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Factors and the summary column; the index is ignored.
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Display: the unrounded number. Nothing for any other role or outside of the table.
    QVariant data(const QModelIndex& index, int role) const override;
    /// Display: headings; the words of a variable's name stand one under the other.
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    int numberOfVariables() const { return m_numberOfVariables; }
    int numberOfFactors() const { return m_numberOfFactors; }

    /// Number in a cell, summaries included; both indexes inside the table.
    double value(int row, int column) const;

    /// Largest absolute loading of a variable (0-based), at least the smallest normal double.
    /// Values that are not finite do not count, since no circle shows them.
    double rowMaximum(int variable) const;
    /// The same over the variables, of one factor (0-based).
    double columnMaximum(int factor) const;

    /// Length in pixels of a loading of absolute value 1.
    int diagramSize() const { return m_diagramSize; }
    void setDiagramSize(int size) { m_diagramSize = size; }

    /// Renames the variables; there must be as many names as variables.
    void setVariableNames(const VariableNames& names);

private:
    int m_numberOfVariables;
    int m_numberOfFactors;
    int m_diagramSize = 50;
    std::vector<double> m_cells; ///< the whole table with its summaries, row by row
    std::vector<double> m_rowMaxima;
    std::vector<double> m_columnMaxima;
    VariableNames m_names;
};
