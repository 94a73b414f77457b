// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/previewmodel.h"

#include <QBrush>
#include <QColor>

#include <algorithm>
#include <utility>

using convert::CellRule;

void PreviewModel::setConversion(std::shared_ptr<const convert::Conversion> conversion)
{
    beginResetModel();
    m_conversion = std::move(conversion);
    endResetModel();
}

std::size_t PreviewModel::firstRow() const
{
    return m_conversion->hasHeader().value_or(false) ? 1 : 0;
}

int PreviewModel::rowCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !m_conversion)
        return 0;
    const std::size_t rows = m_conversion->table().rows();
    return static_cast<int>(std::min(rows - std::min(firstRow(), rows), mostRows));
}

int PreviewModel::columnCount(const QModelIndex& parent) const
{
    if (parent.isValid() || !m_conversion)
        return 0;
    return static_cast<int>(std::min(m_conversion->table().columns(), mostColumns));
}

bool PreviewModel::isKept(std::size_t column) const
{
    const auto& kept = m_conversion->layout().kept;
    return kept.empty() || std::binary_search(kept.begin(), kept.end(), column);
}

QVariant PreviewModel::look(std::size_t row, std::size_t column, int role) const
{
    if (!isKept(column))
        return role == Qt::ForegroundRole ? QVariant(QBrush(Qt::gray)) : QVariant();
    const auto meaning =
        m_conversion->cellRule().read(m_conversion->table().field(row, column)).meaning;
    if (meaning == CellRule::Missing && role == Qt::BackgroundRole)
        return QBrush(QColor(0xE4, 0xE4, 0xE4));
    if (meaning == CellRule::Fault && role == Qt::BackgroundRole)
        return QBrush(QColor(0xF4, 0xC2, 0xBC));
    if (meaning != CellRule::Value && role == Qt::ForegroundRole)
        return QBrush(Qt::black);
    if (role == Qt::ToolTipRole)
        return meaning == CellRule::Fault     ? tr("No number")
               : meaning == CellRule::Missing ? tr("Missing value")
                                              : QVariant();
    return QVariant();
}

QVariant PreviewModel::data(const QModelIndex& index, int role) const
{
    if (!m_conversion || !index.isValid())
        return QVariant();
    const std::size_t row = firstRow() + static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return m_conversion->table().text(row, column).left(200);
    case Qt::ForegroundRole:
    case Qt::BackgroundRole:
    case Qt::ToolTipRole:
        return look(row, column, role);
    default:
        return QVariant();
    }
}

QVariant PreviewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (!m_conversion || role != Qt::DisplayRole)
        return QVariant();
    const auto place = static_cast<std::size_t>(section);
    if (orientation == Qt::Vertical) {
        const auto at = m_conversion->table().place(firstRow() + place, 0);
        return static_cast<qulonglong>(m_conversion->table().isExchanged() ? at.column : at.line);
    }
    if (firstRow() == 0)
        return section + 1;
    return m_conversion->table().text(0, place).simplified().left(60);
}
