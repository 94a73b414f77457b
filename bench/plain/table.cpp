// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/table.h"

#include "output/numbertext.h"
#include "settings/settings.h"

#include <QTableWidget>

namespace pelmora::plain {

void fillTable(QTableWidget& table, const double* const* values, int rows, int columns)
{
    const unsigned decimals = settings::precision();
    table.setRowCount(rows);
    table.setColumnCount(columns);
    for (int i = 0; i < rows; ++i) {
        for (int j = 0; j < columns; ++j) {
            auto* item = new QTableWidgetItem(numbertext::fixed(values[i][j], decimals));
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table.setItem(i, j, item);
        }
    }
    table.resizeColumnsToContents();
}

} // namespace pelmora::plain
