// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/nameheaders.h"

#include "views/numbertable.h"
#include "views/plaintooltip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionHeader>
#include <QTableView>
#include <QToolTip>

NameHeader::NameHeader(Qt::Orientation orientation, QWidget* parent)
    : QHeaderView(orientation, parent)
{
    setSectionsClickable(true);
    // Bold labels would be wider than the sections that were fitted to them.
    setHighlightSections(false);
}

void NameHeader::setTurned(bool turned)
{
    m_turned = turned;
    if (count() > 0)
        headerDataChanged(orientation(), 0, count() - 1); // its size changes
}

bool NameHeader::hasRoomForLevelLabels() const
{
    for (int section = 0; section < count(); ++section)
        if (QHeaderView::sectionSizeFromContents(section).width() > sectionSize(section))
            return false;
    return true;
}

void NameHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    option->text = m_turned ? QString() : shownLabel(section);
}

void NameHeader::paintSection(QPainter* painter, const QRect& rect, int section) const
{
    painter->save();
    QHeaderView::paintSection(painter, rect, section);
    painter->restore(); // styles leave a clip behind
    if (!m_turned)
        return;
    painter->save();
    painter->translate(rect.x(), rect.y() + rect.height());
    painter->rotate(-90);
    const QRect turned(margins() / 2, 0, rect.height() - margins(), rect.width());
    style()->drawItemText(painter, turned, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          shownLabel(section), QPalette::ButtonText);
    painter->restore();
}

QSize NameHeader::sectionSizeFromContents(int section) const
{
    const QSize level = QHeaderView::sectionSizeFromContents(section);
    return m_turned ? level.transposed() : level;
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

int NameHeader::margins() const
{
    return 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this);
}

QString NameHeader::shownLabel(int section) const
{
    const int width = m_turned                          ? viewport()->height()
                      : orientation() == Qt::Horizontal ? sectionSize(section)
                                                        : viewport()->width();
    QStringList lines = label(section).split(u'\n');
    for (QString& line : lines)
        line = fontMetrics().elidedText(line, Qt::ElideRight, width - margins());
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
    view->horizontalHeader()->setMaximumHeight(widest * 3 / 4);
    view->verticalHeader()->setMaximumWidth(widest);
}

void fitToNames(QTableView* view, const NumberTableModel& model)
{
    fitColumnWidths(view, model);
    // A wider vertical header may call for a scroll bar.
    view->doItemsLayout();
}

void fitToNumbers(QTableView* view, const NumberTableModel& model)
{
    auto* header = qobject_cast<NameHeader*>(view->horizontalHeader());
    header->setTurned(true);
    fitColumnWidths(view, model);
    header->setTurned(!header->hasRoomForLevelLabels());
    view->doItemsLayout();
}
