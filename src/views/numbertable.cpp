// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/numbertable.h"

#include "output/numbertext.h"
#include "settings/settings.h"

#include <cmath>

NumberTableModel::NumberTableModel(QObject* parent) : QAbstractTableModel(parent) {}

void NumberTableModel::fill(const pelmora::Matrix& values)
{
    beginResetModel();
    m_values = values.rowPointers();
    m_rows = values.rows();
    m_columns = values.columns();
    m_decimals = settings::precision();
    endResetModel();
}

void NumberTableModel::fill(pelmora::Matrix&& values)
{
    // The numbers shown so far must live until the view knows the new ones.
    fill(values);
    m_ownValues = std::move(values);
}

void NumberTableModel::clear()
{
    beginResetModel();
    m_values = nullptr;
    m_rows = 0;
    m_columns = 0;
    endResetModel();
    m_ownValues = {};
}

void NumberTableModel::showNotes(int column, std::function<QString(double)> note)
{
    m_noteColumn = column;
    m_note = std::move(note);
}

void NumberTableModel::setHeaders(HeaderText vertical, HeaderText horizontal)
{
    m_verticalHeader = std::move(vertical);
    m_horizontalHeader = std::move(horizontal);
    headersChanged();
}

NumberTableModel::HeaderText NumberTableModel::nameHeader() const
{
    return [this](int variable) { return name(variable); };
}

void NumberTableModel::setNames(const QVector<QString>& names)
{
    m_names = names;
    headersChanged();
}

void NumberTableModel::headersChanged()
{
    if (m_rows > 0)
        emit headerDataChanged(Qt::Vertical, 0, m_rows - 1);
    if (m_columns > 0)
        emit headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
}

int NumberTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int NumberTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_columns;
}

QVariant NumberTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    if (index.column() == m_noteColumn)
        return role == Qt::DisplayRole ? m_note(value(index.row(), m_noteColumn)) : QVariant();
    if (role == Qt::DisplayRole || (role == Qt::ToolTipRole && m_exactToolTips))
        return text(value(index.row(), index.column()), role);
    if (role == exactNumberRole && !isEmpty(value(index.row(), index.column())))
        return value(index.row(), index.column());
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    return QVariant();
}

bool NumberTableModel::isEmpty(double number) const
{
    return m_emptyNotNumbers && std::isnan(number);
}

QString NumberTableModel::text(double number, int role) const
{
    if (isEmpty(number))
        return QString();
    return role == Qt::ToolTipRole ? QString::fromStdString(numbertext::shortest(number))
                                   : numbertext::fixed(number, m_decimals);
}

QVariant NumberTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool vertical = orientation == Qt::Vertical;
    const HeaderText& text = vertical ? m_verticalHeader : m_horizontalHeader;
    const int count = vertical ? m_rows : m_columns;
    if (role != Qt::DisplayRole || !text || section < 0 || section >= count)
        return QAbstractTableModel::headerData(section, orientation, role);
    return text(section);
}
