// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <QAbstractTableModel>
#include <QVector>

#include <functional>

class QSplitter;
class QTableView;

/// The role of the unrounded number of a cell.
inline constexpr int exactNumberRole = Qt::UserRole;

/// Shows a matrix as numbers without an item per cell: texts are made when a cell is looked at,
/// with the decimals that were in force when the table was filled.
class NumberTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using HeaderText = std::function<QString(int section)>;

    explicit NumberTableModel(QObject* parent = nullptr);

    /// Shows @p values, which the caller keeps alive until clear() or the next fill. Reads the
    /// precision once.
    void fill(const pelmora::Matrix& values);
    /// Shows @p values and keeps them itself.
    void fill(pelmora::Matrix&& values);
    /// Shows an empty table; touches no values.
    void clear();

    /// Cells without a number are empty instead of "nan".
    void leaveNotNumbersEmpty() { m_emptyNotNumbers = true; }
    /// Tool tips tell the value in the shortest plain form that reads back to exactly it.
    void showExactInToolTips() { m_exactToolTips = true; }
    /// Shows in @p column what @p note makes of its numbers, in place of them.
    void showNotes(int column, std::function<QString(double)> note);

    void setHeaders(HeaderText vertical, HeaderText horizontal);
    /// A header of the names last set.
    HeaderText nameHeader() const;
    void setNames(const QVector<QString>& names);
    QString name(int variable) const { return m_names.value(variable); }

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    /// Display: fixed notation, rounded first. Tool tip where wanted. Alignment: right, vertically
    /// centred. The number itself under exactNumberRole.
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    unsigned decimals() const { return m_decimals; }
    double value(int row, int column) const { return m_values[row][column]; }

private:
    void headersChanged();
    bool isEmpty(double number) const;
    QString text(double number, int role) const;

    pelmora::Matrix m_ownValues;
    const double* const* m_values = nullptr;
    int m_rows = 0;
    int m_columns = 0;
    unsigned m_decimals = 0;
    bool m_emptyNotNumbers = false;
    bool m_exactToolTips = false;
    int m_noteColumn = -1;
    std::function<QString(double)> m_note;
    QVector<QString> m_names;
    HeaderText m_verticalHeader;
    HeaderText m_horizontalHeader;
};

/// Makes every column of a view on a NumberTableModel as wide as its widest number and its header,
/// over all rows, without formatting each cell.
void fitColumnWidths(QTableView* view, const NumberTableModel& model);

/// Gives @p view, the last of two widgets in @p splitter, the width of all its columns. The other
/// keeps the rest, or @p others times that width where the rest is less.
void showWhole(QTableView* view, QSplitter* splitter, double others);

/// Gives all rows the smallest height that fits the first.
void setLowRows(QTableView* view);
