// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/screeplot.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace {

/// 1, 2 or 5 times a power of ten, so that about five steps cover @p range.
double roundStep(double range)
{
    const double rough = range / 5.0;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (rough <= factor * power)
            return factor * power;
    return 10.0 * power;
}

/// The finite values of all curves, and the line at 1.
std::pair<double, double> extremes(const ScreeCurves& curves)
{
    double lowest = 0.0;
    double highest = 1.0;
    for (const auto* values :
         {&curves.eigenvalues, &curves.randomQuantile, &curves.kaiserReference})
        for (const double value : *values)
            if (std::isfinite(value)) {
                lowest = std::min(lowest, value);
                highest = std::max(highest, value);
            }
    // Rounding may leave eigenvalues of 0 slightly negative.
    return {lowest < -0.01 * highest ? lowest : 0.0, highest};
}

QPen curvePen(const QPalette& palette, Qt::PenStyle style)
{
    return QPen(palette.color(style == Qt::DashLine ? QPalette::Highlight : QPalette::Text),
                style == Qt::SolidLine ? 1.0 : 2.0, style, Qt::FlatCap);
}

void paintCurve(QPainter& painter, const ScreeScale& scale, const QVector<double>& values)
{
    QPolygonF line;
    for (int place = 0; place <= values.size(); ++place) {
        if (place < values.size() && std::isfinite(values[place])) {
            line << scale.at(place, values[place]);
            continue;
        }
        painter.drawPolyline(line);
        line.clear();
    }
}

struct LegendLine
{
    Qt::PenStyle style;
    QString text;
};

std::vector<LegendLine> legendOf(const ScreeCurves& curves)
{
    std::vector<LegendLine> lines = {{Qt::SolidLine, ScreePlot::tr("Eigenvalues")}};
    if (!curves.randomQuantile.isEmpty())
        lines.push_back({Qt::DashLine, ScreePlot::tr("Random, 95 %")});
    if (!curves.kaiserReference.isEmpty())
        lines.push_back({Qt::DotLine, ScreePlot::tr("Empirical Kaiser")});
    return lines;
}

} // namespace

ScreeScale::ScreeScale(const ScreeCurves& curves, const QRectF& area)
    : m_area(area)
    , m_places(std::max(1, int(curves.eigenvalues.size())))
{
    const auto [lowest, highest] = extremes(curves);
    m_step = roundStep(highest - lowest);
    m_lowest = std::floor(lowest / m_step) * m_step;
    m_steps = int(std::ceil((highest - m_lowest) / m_step));
}

QPointF ScreeScale::at(int place, double value) const
{
    return {m_area.left() + (place + 0.5) * m_area.width() / m_places,
            m_area.bottom() - (value - m_lowest) / (m_step * m_steps) * m_area.height()};
}

QVector<double> ScreeScale::valueTicks() const
{
    QVector<double> ticks;
    for (int i = 0; i <= m_steps; ++i)
        ticks << m_lowest + i * m_step;
    return ticks;
}

QVector<int> ScreeScale::placeTicks(double labelWidth) const
{
    const int most = std::max(1, int(m_area.width() / labelWidth));
    const int step = std::max(1, int(roundStep(5.0 * m_places / most)));
    QVector<int> ticks;
    for (int number = step; number <= m_places; number += step)
        ticks << number;
    return ticks;
}

ScreePlot::ScreePlot(QWidget* parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    auto* action = new QAction(tr("Copy"), this);
    action->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Insert));
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, &ScreePlot::copy);
    addAction(action);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

void ScreePlot::setCurves(ScreeCurves curves)
{
    m_curves = std::move(curves);
    update();
}

QSize ScreePlot::sizeHint() const
{
    return minimumSizeHint() * 3 / 2;
}

QSize ScreePlot::minimumSizeHint() const
{
    return {22 * fontMetrics().averageCharWidth(), 8 * fontMetrics().height()};
}

void ScreePlot::copy()
{
    QGuiApplication::clipboard()->setPixmap(grab());
}

void ScreePlot::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setRenderHint(QPainter::Antialiasing);
    const QFontMetricsF metrics(font());
    const double line = metrics.height();
    const QRectF whole = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    // The labels left of the axis are at most this wide.
    double labels = 0.0;
    for (const double value : ScreeScale(m_curves, whole).valueTicks())
        labels = std::max(labels, metrics.horizontalAdvance(QString::number(value)));
    const QRectF area = whole.adjusted(
        labels + line / 2, (double(legendOf(m_curves).size()) + 0.5) * line, 0, -2.5 * line);
    const ScreeScale scale(m_curves, area);
    paintAxes(painter, scale, area);
    paintCurves(painter, scale, area);
    paintLegend(painter, whole);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void ScreePlot::paintAxes(QPainter& painter, const ScreeScale& scale, const QRectF& area) const
{
    const QFontMetricsF metrics(font());
    const double line = metrics.height();
    painter.setPen(palette().color(QPalette::Text));
    painter.drawLine(area.topLeft(), area.bottomLeft());
    painter.drawLine(area.bottomLeft(), area.bottomRight());
    for (const double value : scale.valueTicks()) {
        const double y = scale.at(0, value).y();
        painter.drawLine(QPointF(area.left() - line / 4, y), QPointF(area.left(), y));
        const QRectF label(0, y - line / 2, area.left() - line / 2, line);
        painter.drawText(label, Qt::AlignRight | Qt::AlignVCenter, QString::number(value));
    }
    for (const int number : scale.placeTicks(metrics.horizontalAdvance(QStringLiteral("0000")))) {
        const double x = scale.at(number - 1, 0.0).x();
        painter.drawLine(QPointF(x, area.bottom()), QPointF(x, area.bottom() + line / 4));
        const QRectF label(x - 3 * line, area.bottom() + line / 4, 6 * line, line);
        painter.drawText(label, Qt::AlignHCenter | Qt::AlignTop, QString::number(number));
    }
    const QRectF title(area.left(), area.bottom() + 1.25 * line, area.width(), line);
    painter.drawText(title, Qt::AlignCenter, tr("Number of the eigenvalue"));
}

void ScreePlot::paintCurves(QPainter& painter, const ScreeScale& scale, const QRectF& area) const
{
    const double one = scale.at(0, 1.0).y();
    painter.setPen(QPen(palette().color(QPalette::Text), 0.0));
    painter.drawLine(QPointF(area.left(), one), QPointF(area.right(), one));
    painter.setPen(curvePen(palette(), Qt::DotLine));
    paintCurve(painter, scale, m_curves.kaiserReference);
    painter.setPen(curvePen(palette(), Qt::DashLine));
    paintCurve(painter, scale, m_curves.randomQuantile);
    painter.setPen(curvePen(palette(), Qt::SolidLine));
    paintCurve(painter, scale, m_curves.eigenvalues);

    painter.setBrush(palette().color(QPalette::Text));
    const double between = area.width() / std::max(1, int(m_curves.eigenvalues.size()));
    const double radius = std::clamp(between / 3.0, 1.0, 3.0);
    for (int place = 0; place < m_curves.eigenvalues.size(); ++place)
        if (std::isfinite(m_curves.eigenvalues[place]))
            painter.drawEllipse(scale.at(place, m_curves.eigenvalues[place]), radius, radius);
}

void ScreePlot::paintLegend(QPainter& painter, const QRectF& whole) const
{
    const std::vector<LegendLine> lines = legendOf(m_curves);
    const QFontMetricsF metrics(font());
    double widest = 0.0;
    for (const LegendLine& line : lines)
        widest = std::max(widest, metrics.horizontalAdvance(line.text));
    const double height = metrics.height();
    const double left = whole.right() - widest;
    double y = whole.top();
    for (const LegendLine& line : lines) {
        painter.setPen(curvePen(palette(), line.style));
        const QPointF middle(left - 2 * height, y + height / 2);
        painter.drawLine(middle - QPointF(1.5 * height, 0), middle + QPointF(1.5 * height, 0));
        if (line.style == Qt::SolidLine)
            painter.drawEllipse(middle, 3.0, 3.0);
        painter.setPen(palette().color(QPalette::Text));
        painter.drawText(QRectF(left, y, widest + 1, height), Qt::AlignVCenter, line.text);
        y += height;
    }
}
