// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/tablecopy.h"

#include "output/numbertext.h"
#include "settings/settings.h"
#include "views/numbertable.h"
#include "views/waitcursor.h"

#include <QAbstractItemView>
#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>
#include <numeric>
#include <vector>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("TableCopy", text);
}

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

bool isNumber(const QModelIndex& index)
{
    return index.data().userType() == QMetaType::Double || index.data(exactNumberRole).isValid();
}

bool holdsNumber(const QAbstractItemModel& model, const std::vector<int>& rows, int column)
{
    return std::any_of(rows.begin(), rows.end(),
                       [&](int row) { return isNumber(model.index(row, column)); });
}

QString allDigits(const QModelIndex& index)
{
    const QVariant exact = index.data(exactNumberRole);
    const QVariant number = exact.isValid() ? exact : index.data();
    return QString::fromStdString(numbertext::shortest(number.toDouble()));
}

QString shownText(const QModelIndex& index, unsigned decimals)
{
    const QVariant shown = index.data();
    return shown.userType() == QMetaType::Double ? numbertext::fixed(shown.toDouble(), decimals)
                                                 : onOneLine(shown.toString());
}

/// Stops presses of the right button: they would select the cell below, but the menu is for the
/// selection before.
class RightButtonFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override
    {
        const bool isPress = event->type() == QEvent::MouseButtonPress ||
                             event->type() == QEvent::MouseButtonDblClick;
        return isPress && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton;
    }
};

template <QString (*toText)(const TableGrid&)>
void putText(const TableGrid& grid)
{
    QGuiApplication::clipboard()->setText(toText(grid));
}

/// Word processors take the table, everything else the text.
void putDocument(const TableGrid& grid)
{
    auto* both = new QMimeData;
    both->setHtml(htmlTable(grid));
    both->setText(tabSeparatedTable(grid));
    QGuiApplication::clipboard()->setMimeData(both);
}

QAction* addCopy(QAbstractItemView* view, const QString& title, void (*put)(const TableGrid&),
                 CopiedDigits digits = CopiedDigits::AsShown)
{
    auto* copy = new QAction(title, view);
    QObject::connect(copy, &QAction::triggered, view, [=] {
        const WaitCursor waitCursor;
        put(copiedGrid(*view, digits));
    });
    view->addAction(copy);
    return copy;
}

} // namespace

void installTableCopy(QAbstractItemView* view)
{
    // Text alone: a spreadsheet would prefer a table in HTML and read its numbers in its own
    // locale.
    QAction* copy = addCopy(view, tr("Copy"), putText<tabSeparatedTable>);
    // Not Ctrl+C: that begins the two-key shortcuts of the menus, which must work in a table too.
    copy->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Insert));
    copy->setShortcutContext(Qt::WidgetShortcut);
    addCopy(view, tr("Copy with all digits"), putText<tabSeparatedTable>, CopiedDigits::All);
    addCopy(view, tr("Copy as document table"), putDocument);
    addCopy(view, tr("Copy as Markdown"), putText<markdownTable>);
    addCopy(view, tr("Copy as LaTeX"), putText<latexTable>);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    view->viewport()->installEventFilter(new RightButtonFilter(view));
}

TableGrid copiedGrid(const QAbstractItemView& view, CopiedDigits digits)
{
    TableGrid grid;
    const QAbstractItemModel* model = view.model();
    if (!model)
        return grid;
    const QItemSelection selection = view.selectionModel()->selection();
    const Extent extent = extentOf(*model, selection);
    for (int column : extent.columns)
        grid.columns.push_back({onOneLine(model->headerData(column, Qt::Horizontal).toString()),
                                holdsNumber(*model, extent.rows, column)});
    for (int row : extent.rows)
        grid.rowHeadings += onOneLine(model->headerData(row, Qt::Vertical).toString());
    // Only a selection of several pieces leaves holes in its extent.
    const bool holes = selection.size() > 1;
    const unsigned decimals = settings::precision();
    grid.cell = [=](int row, int column) {
        const QModelIndex index = model->index(extent.rows[static_cast<std::size_t>(row)],
                                               extent.columns[static_cast<std::size_t>(column)]);
        if (holes && !selection.contains(index))
            return QString();
        return digits == CopiedDigits::All && isNumber(index) ? allDigits(index)
                                                              : shownText(index, decimals);
    };
    return grid;
}
