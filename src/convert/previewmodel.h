// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/conversion.h"

#include <QAbstractTableModel>

#include <memory>

/// The first rows of a file that is to be converted: fields that are no numbers are marked, missing
/// values and columns that are left out are grey.
class PreviewModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    static constexpr std::size_t mostRows = 100;
    static constexpr std::size_t mostColumns = 1000;

    using QAbstractTableModel::QAbstractTableModel;

    /// Null for an empty table.
    void setConversion(std::shared_ptr<const convert::Conversion> conversion);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::size_t firstRow() const;
    bool isKept(std::size_t column) const;
    QVariant look(std::size_t row, std::size_t column, int role) const;

    std::shared_ptr<const convert::Conversion> m_conversion;
};
