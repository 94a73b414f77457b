// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/tablecopy.h"

#include "output/numbertext.h"
#include "settings/settings.h"
#include "views/waitcursor.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

/// What is copied: rows and columns that hold a selected cell, all of them without a selection.
struct Extent
{
    std::vector<int> rows;
    std::vector<int> columns;
};

std::vector<int> indexes(int count)
{
    std::vector<int> all(static_cast<std::size_t>(count));
    std::iota(all.begin(), all.end(), 0);
    return all;
}

std::vector<int> keepMarked(const std::vector<bool>& marked)
{
    std::vector<int> kept;
    for (std::size_t i = 0; i < marked.size(); ++i)
        if (marked[i])
            kept.push_back(static_cast<int>(i));
    return kept;
}

Extent extentOf(const QAbstractItemModel& model, const QItemSelection& selection)
{
    if (selection.isEmpty())
        return {indexes(model.rowCount()), indexes(model.columnCount())};
    std::vector<bool> rows(static_cast<std::size_t>(model.rowCount()));
    std::vector<bool> columns(static_cast<std::size_t>(model.columnCount()));
    for (const QItemSelectionRange& range : selection) {
        std::fill(rows.begin() + range.top(), rows.begin() + range.bottom() + 1, true);
        std::fill(columns.begin() + range.left(), columns.begin() + range.right() + 1, true);
    }
    return {keepMarked(rows), keepMarked(columns)};
}

/// Characters that would end a field or a line become blanks.
QString field(const QVariant& value, unsigned decimals)
{
    if (value.userType() == QMetaType::Double)
        return numbertext::fixed(value.toDouble(), decimals);
    QString text = value.toString();
    for (QChar& c : text)
        if (c == u'\t' || c == u'\n' || c == u'\r')
            c = u' ';
    return text;
}

void copyTable(const QAbstractItemView& view)
{
    const WaitCursor waitCursor;
    QGuiApplication::clipboard()->setText(tableText(view));
}

} // namespace

void installTableCopy(QAbstractItemView* view)
{
    auto* copy = new QAction(QCoreApplication::translate("TableCopy", "Copy"), view);
    // Not Ctrl+C: that begins the two-key shortcuts of the menus, which must work in a table too.
    copy->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Insert));
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, view, [view] { copyTable(*view); });
    view->addAction(copy);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

QString tableText(const QAbstractItemView& view)
{
    const QAbstractItemModel* model = view.model();
    if (!model)
        return QString();
    const QItemSelection selection = view.selectionModel()->selection();
    const Extent extent = extentOf(*model, selection);
    // Only a selection of several pieces leaves holes in its extent.
    const bool holes = selection.size() > 1;
    const unsigned decimals = settings::precision();

    QString text;
    for (int column : extent.columns)
        text += u'\t' + field(model->headerData(column, Qt::Horizontal), decimals);
    text += u'\n';
    for (int row : extent.rows) {
        text += field(model->headerData(row, Qt::Vertical), decimals);
        for (int column : extent.columns) {
            const QModelIndex index = model->index(row, column);
            text += u'\t';
            if (!holes || selection.contains(index))
                text += field(index.data(), decimals);
        }
        text += u'\n';
    }
    return text;
}
