// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/nameheaders.h"

#include <QHeaderView>
#include <QTableView>

#include <algorithm>

void limitNameHeaders(QTableView* view)
{
    const int widest = view->fontMetrics().averageCharWidth() * 40;
    view->horizontalHeader()->setMaximumSectionSize(widest);
    view->verticalHeader()->setMaximumWidth(widest);
    view->horizontalHeader()->setTextElideMode(Qt::ElideRight);
    view->verticalHeader()->setTextElideMode(Qt::ElideRight);
}

void widenForHeaders(QTableView* view)
{
    auto* header = view->horizontalHeader();
    for (int column = 0; column < header->count(); ++column)
        if (const int needed = header->sectionSizeHint(column);
            needed > header->sectionSize(column))
            header->resizeSection(column, std::min(needed, header->maximumSectionSize()));
}
