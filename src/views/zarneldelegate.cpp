// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/zarneldelegate.h"

#include "output/numbertext.h"
#include "settings/settings.h"
#include "views/factormodel.h"

#include <QPainter>

#include <cmath>

namespace {

const QColor positiveColour(150, 150, 150);
const QColor negativeColour(230, 230, 230);

DiagramGeometry storedGeometry()
{
    const settings::DiagramSettings stored = settings::diagram();
    return {.edgeX = stored.edgeX,
            .edgeY = stored.edgeY,
            .textCircleOffset = stored.textCircleOffset,
            .proportionalArea = stored.circleScale == QLatin1String("area")};
}

QFont valueFont(int size)
{
    return QFont(QStringLiteral("Helvetica [Cronyx]"), size, QFont::Normal);
}

QPen outlinePen()
{
    return QPen(Qt::black, 1.0, Qt::SolidLine, Qt::RoundCap, Qt::BevelJoin);
}

void paintCircle(QPainter* painter, const QRect& circle, const QColor& fill)
{
    painter->setPen(outlinePen());
    painter->setBrush(fill);
    // The toolkit draws no outline around nothing, but a loading of 0 is a dot.
    if (circle.isEmpty())
        painter->drawPoint(circle.topLeft());
    else
        painter->drawEllipse(circle);
}

} // namespace

zarnelDelegate::zarnelDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
    , m_geometry(storedGeometry())
    , m_font(valueFont(m_geometry.fontSize()))
    , m_fontMetrics(m_font)
    , m_precision(settings::precision())
{
}

void zarnelDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    setFontSize(m_geometry.fontSize());
    const auto* model = qobject_cast<const factorModel*>(index.model());
    bool isNumber = false;
    const double value = index.data().toDouble(&isNumber);
    if (!model || !isNumber) {
        QStyledItemDelegate::paint(painter, option, index);
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (index.row() == 0 || index.column() == 0)
        paintSummary(painter, option.rect, text(value));
    else
        paintLoading(painter, mark(*model, index.row(), index.column(), option.rect.topLeft()));
    painter->restore();
}

void zarnelDelegate::paintSummary(QPainter* painter, const QRect& cell, const QString& text) const
{
    painter->drawText(summaryOrigin(cell, painter->fontMetrics().horizontalAdvance(text)), text);
}

void zarnelDelegate::paintLoading(QPainter* painter, const LoadingMark& mark) const
{
    painter->save();
    painter->setFont(m_font);
    painter->setPen(outlinePen());
    painter->translate(mark.textOrigin);
    painter->rotate(270.0);
    painter->drawText(0, 0, mark.text);
    painter->restore();
    if (mark.hasCircle)
        paintCircle(painter, mark.circle, mark.fill);
}

LoadingMark zarnelDelegate::mark(const factorModel& model, int row, int column, QPoint corner) const
{
    const double value = model.value(row, column);
    const double rowMaximum = model.rowMaximum(row - 1);
    const double columnMaximum = model.columnMaximum(column - 1);
    const QString valueText = text(value);
    m_geometry.size = model.diagramSize();
    measure(valueText);

    LoadingMark mark{valueText,
                     m_geometry.textWidth,
                     m_geometry.textOrigin(rowMaximum, columnMaximum, corner),
                     std::isfinite(value),
                     QRect(),
                     value < 0.0 ? negativeColour : positiveColour};
    if (mark.hasCircle)
        mark.circle = m_geometry.circle(value, rowMaximum, columnMaximum, corner);
    return mark;
}

QSize zarnelDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const auto* model = qobject_cast<const factorModel*>(index.model());
    bool isNumber = false;
    index.data().toDouble(&isNumber);
    if (!model || !isNumber)
        return QStyledItemDelegate::sizeHint(option, index);
    // The headers and the other cells leave enough room for summaries.
    if (index.row() == 0 || index.column() == 0)
        return {1, 1};
    return m_geometry.cellSize(model->rowMaximum(index.row() - 1),
                               model->columnMaximum(index.column() - 1));
}

void zarnelDelegate::rehearse(const factorModel& model)
{
    if (m_widest.model() != &model)
        m_widest = widestLoading(model);
    if (!m_widest.isValid())
        return;
    m_geometry.size = model.diagramSize();
    setFontSize(m_geometry.fontSize());
    measure(text(model.value(m_widest.row(), m_widest.column())));
}

QModelIndex zarnelDelegate::widestLoading(const factorModel& model) const
{
    QModelIndex widest;
    int widestText = -1;
    qsizetype longest = 0;
    for (int row = 1; row <= model.numberOfVariables(); ++row) {
        for (int column = 1; column <= model.numberOfFactors(); ++column) {
            const QString valueText = text(model.value(row, column));
            // Measuring is slow; a text of fewer characters is never wider.
            if (valueText.size() < longest)
                continue;
            longest = valueText.size();
            const int width = m_fontMetrics.horizontalAdvance(valueText);
            if (width > widestText) {
                widestText = width;
                widest = model.index(row, column);
            }
        }
    }
    return widest;
}

QString zarnelDelegate::text(double value) const
{
    return QString::number(numbertext::rounded(value, m_precision), 'g', 6);
}

void zarnelDelegate::setFontSize(int size) const
{
    if (m_font.pointSize() == size)
        return;
    m_font = valueFont(size);
    m_fontMetrics = QFontMetrics(m_font);
}

void zarnelDelegate::measure(const QString& valueText) const
{
    m_geometry.textWidth = m_fontMetrics.horizontalAdvance(valueText);
    m_geometry.textHeight = m_fontMetrics.height();
}
