// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The width of a column without measuring each text: rounding is monotonic, so where all digits are
// equally wide, the widest number of a column is its largest, its smallest (the minus sign) or a
// value that is not finite. Only these few cells are measured, and texts that differ in their
// digits only are measured once.

#include "views/numbertable.h"

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QHeaderView>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

namespace {

/// Rows of a column that may hold its widest text; -1: there is none of that kind.
struct Candidates
{
    int smallest = -1;
    int largest = -1;
    int notANumber = -1;
    int infinite = -1;
    int minusInfinite = -1;
    double minimum = std::numeric_limits<double>::infinity();
    double maximum = -std::numeric_limits<double>::infinity();

    /// Most values lie within the range seen so far; only the others need a closer look.
    void look(double x, int row)
    {
        if (!(x >= minimum && x <= maximum))
            widen(x, row);
    }

    void widen(double x, int row)
    {
        if (!std::isfinite(x)) {
            (std::isnan(x) ? notANumber : x > 0.0 ? infinite : minusInfinite) = row;
            return;
        }
        if (x < minimum) {
            minimum = x;
            smallest = row;
        }
        if (x > maximum) {
            maximum = x;
            largest = row;
        }
    }

    std::array<int, 5> rows() const
    {
        return {smallest, largest, notANumber, infinite, minusInfinite};
    }
};

std::vector<Candidates> candidatesOf(const NumberTableModel& model)
{
    const int columns = model.columnCount();
    std::vector<Candidates> candidates(static_cast<std::size_t>(columns));
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < columns; ++column)
            candidates[static_cast<std::size_t>(column)].look(model.value(row, column), row);
    return candidates;
}

/// Whether every digit is as wide as any other, beside each other and beside sign and point.
bool measureDigits(const QFont& font)
{
    const QFontMetricsF metrics(font);
    const QString digits = QStringLiteral("0123456789");
    const auto differs = [&metrics](const QString& text, const QString& zeros) {
        return std::abs(metrics.horizontalAdvance(text) - metrics.horizontalAdvance(zeros)) > 0.01;
    };
    for (QChar left : digits) {
        const QString beside = QStringLiteral("-%1.%1").arg(left);
        if (differs(beside, QStringLiteral("-0.0")))
            return false;
        for (QChar right : digits)
            if (differs(QString(left) + right, QStringLiteral("00")))
                return false;
    }
    return true;
}

/// The same, measured once for each font: it takes as long as filling a small table.
bool digitsAreEquallyWide(const QFont& font)
{
    static QHash<QFont, bool> known;
    const auto place = known.constFind(font);
    return place != known.constEnd() ? *place : *known.insert(font, measureDigits(font));
}

/// Asks the view for the width of a cell, once for all texts that differ in their digits only.
class WidthTable
{
public:
    WidthTable(const QTableView& view, const NumberTableModel& model)
        : m_view(view)
        , m_model(model)
        , m_grid(view.showGrid() ? 1 : 0)
    {
    }

    int widthOf(int row, int column)
    {
        const QModelIndex index = m_model.index(row, column);
        QString shape = index.data().toString();
        for (QChar& c : shape)
            if (c.isDigit())
                c = u'0';
        const auto known = m_widths.constFind(shape);
        return known != m_widths.constEnd()
                   ? *known
                   : *m_widths.insert(shape, m_view.sizeHintForIndex(index).width() + m_grid);
    }

private:
    const QTableView& m_view;
    const NumberTableModel& m_model;
    int m_grid;
    QHash<QString, int> m_widths;
};

void measureEveryCell(QTableView* view)
{
    QHeaderView* header = view->horizontalHeader();
    const int precision = header->resizeContentsPrecision();
    header->setResizeContentsPrecision(-1);
    view->resizeColumnsToContents();
    header->setResizeContentsPrecision(precision);
}

} // namespace

void fitColumnWidths(QTableView* view, const NumberTableModel& model)
{
    if (!digitsAreEquallyWide(view->font())) {
        measureEveryCell(view);
        return;
    }
    QHeaderView* header = view->horizontalHeader();
    WidthTable widths(*view, model);
    const std::vector<Candidates> candidates = candidatesOf(model);
    // A header that is shown goes through all its columns whenever one changes.
    header->setUpdatesEnabled(false);
    for (int column = 0; column < model.columnCount(); ++column) {
        int width = header->sectionSizeHint(column);
        for (int row : candidates[static_cast<std::size_t>(column)].rows())
            if (row >= 0)
                width = std::max(width, widths.widthOf(row, column));
        header->resizeSection(
            column, std::clamp(width, header->minimumSectionSize(), header->maximumSectionSize()));
    }
    header->setUpdatesEnabled(true);
}

void showWhole(QTableView* view, QSplitter* splitter, double others)
{
    const QHeaderView* names = view->verticalHeader();
    const int needed = std::min(names->sizeHint().width(), names->maximumWidth()) +
                       view->horizontalHeader()->length() + 2 * view->frameWidth() +
                       view->verticalScrollBar()->sizeHint().width();
    const int left = std::max(splitter->width() - needed, static_cast<int>(needed * others));
    splitter->setSizes({left, needed});
}

void setLowRows(QTableView* view)
{
    QHeaderView* header = view->verticalHeader();
    const QAbstractItemView& cells = *view; // there the hint is public
    if (header->count() > 0)
        header->setDefaultSectionSize(
            std::max(cells.sizeHintForRow(0), header->sectionSizeHint(0)));
}
