// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractButton>
#include <QTableView>

inline void click(const QWidget& page, const char* button)
{
    page.findChild<QAbstractButton*>(button)->click();
}

/// What a table shows: a line of column headers, then a line per row that begins with its header.
inline QStringList shown(const QAbstractItemModel* model)
{
    QStringList lines;
    for (int row = -1; row < model->rowCount(); ++row) {
        lines << (row < 0 ? QString() : model->headerData(row, Qt::Vertical).toString());
        for (int column = 0; column < model->columnCount(); ++column) {
            const QVariant field = row < 0 ? model->headerData(column, Qt::Horizontal)
                                           : model->index(row, column).data();
            lines.last() += '|' + field.toString();
        }
    }
    return lines;
}

inline QStringList shown(const QTableView* view)
{
    return shown(view->model());
}
