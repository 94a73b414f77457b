// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/nameheaders.h"

#include "views/numbertable.h"
#include "views/plaintooltip.h"

#include <QHelpEvent>
#include <QStyleOptionHeader>
#include <QTableView>
#include <QToolTip>

NameHeader::NameHeader(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent)
{
    setSectionsClickable(true);
    // Bold labels would be wider than what was made to fit.
    setHighlightSections(false);
}

void NameHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    option->text = shownLabel(section);
}

bool NameHeader::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QHeaderView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int section = logicalIndexAt(help->pos());
    const bool cut = section >= 0 && shownLabel(section) != label(section);
    QToolTip::showText(help->globalPos(), cut ? plainToolTip(label(section)) : QString(), this);
    return true;
}

QString NameHeader::label(int section) const
{
    return model() ? model()->headerData(section, orientation()).toString() : QString();
}

QString NameHeader::shownLabel(int section) const
{
    const int margin = 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
    const int width = orientation() == Qt::Horizontal ? sectionSize(section) : viewport()->width();
    QStringList lines = label(section).split(u'\n');
    for (QString& line : lines)
        line = fontMetrics().elidedText(line, Qt::ElideRight, width - margin);
    return lines.join(u'\n');
}

int widestName(const QWidget* widget)
{
    return 40 * widget->fontMetrics().averageCharWidth();
}

void installNameHeaders(QTableView* view)
{
    const int widest = widestName(view);
    view->setHorizontalHeader(new NameHeader(Qt::Horizontal, view));
    view->setVerticalHeader(new NameHeader(Qt::Vertical, view));
    view->horizontalHeader()->setMaximumSectionSize(widest);
    view->verticalHeader()->setMaximumWidth(widest);
}

void fitToNames(QTableView* view, const NumberTableModel& model)
{
    fitColumnWidths(view, model);
    // A wider vertical header may call for a scroll bar.
    view->doItemsLayout();
}
