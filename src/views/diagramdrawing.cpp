// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/diagramdrawing.h"

#include "views/diagramgeometry.h"
#include "views/diagramview.h"
#include "views/drawingprogress.h"
#include "views/factormodel.h"
#include "views/zarneldelegate.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QHeaderView>
#include <QStyle>
#include <QTableView>

#include <algorithm>

namespace {

constexpr int noteMargin = 6;

QString tr(const char* text)
{
    return QCoreApplication::translate("DiagramDrawing", text);
}

/// Reads places and texts off a view that is laid out as a page shows it.
class Draughtsman
{
public:
    explicit Draughtsman(factorModel* model) : m_model(*model)
    {
        layOutWholeDiagram(&m_view, model);
        m_drawing.size = m_view.size();
        m_drawing.dotsPerInch = m_view.logicalDpiY();
        m_corner = {m_view.verticalHeader()->width(), m_view.horizontalHeader()->height()};
    }

    DiagramDrawing draw()
    {
        drawRules();
        drawHeadings();
        drawNames();
        drawSummaries();
        drawLoadings();
        drawNotes();
        return std::move(m_drawing);
    }

private:
    QRect cell(int row, int column) const
    {
        return m_view.visualRect(m_model.index(row, column)).translated(m_corner);
    }

    void drawRules()
    {
        const QSize size = m_drawing.size;
        const auto across = [&](int y) { m_drawing.rules.emplace_back(0, y, size.width(), y); };
        const auto down = [&](int x) { m_drawing.rules.emplace_back(x, 0, x, size.height()); };
        across(m_corner.y());
        for (int row = 0; row < m_model.rowCount(); ++row)
            across(cell(row, 0).bottom() + 1);
        down(m_corner.x());
        for (int column = 0; column < m_model.columnCount(); ++column)
            down(cell(0, column).right() + 1);
    }

    /// The lines of @p label, one under the other, centred vertically in @p room.
    void drawLabel(DiagramDrawing::Texts& texts, const QString& label, const QRect& room)
    {
        const QFontMetrics metrics(texts.font);
        const int margin = m_view.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &m_view);
        const QStringList lines = label.split(u'\n');
        int baseline = room.top() + metrics.ascent() +
                       (room.height() - int(lines.size()) * metrics.lineSpacing()) / 2;
        for (const QString& line : lines) {
            const int width = metrics.horizontalAdvance(line);
            const int left = texts.centred ? (room.width() - width) / 2 : margin;
            texts.texts.push_back({{room.left() + left, baseline}, width, line});
            baseline += metrics.lineSpacing();
        }
    }

    void drawHeadings()
    {
        DiagramDrawing::Texts headings{.font = m_view.horizontalHeader()->font(), .texts = {}};
        for (int column = 0; column < m_model.columnCount(); ++column) {
            const QRect below = cell(0, column);
            drawLabel(headings,
                      m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                      {below.left(), 0, below.width(), m_corner.y()});
        }
        m_drawing.texts.push_back(std::move(headings));
    }

    void drawNames()
    {
        DiagramDrawing::Texts names{
            .font = m_view.verticalHeader()->font(), .centred = false, .texts = {}};
        for (int row = 0; row < m_model.rowCount(); ++row) {
            const QRect beside = cell(row, 0);
            drawLabel(names, m_model.headerData(row, Qt::Vertical, Qt::DisplayRole).toString(),
                      {0, beside.top(), m_corner.x(), beside.height()});
        }
        m_drawing.texts.push_back(std::move(names));
    }

    void drawSummaries()
    {
        DiagramDrawing::Texts summaries{.font = m_view.font(), .texts = {}};
        const QFontMetrics metrics(summaries.font);
        const auto add = [&](int row, int column) {
            const QString text = delegate().text(m_model.value(row, column));
            const int width = metrics.horizontalAdvance(text);
            summaries.texts.push_back({summaryOrigin(cell(row, column), width), width, text});
        };
        for (int column = 0; column < m_model.columnCount(); ++column)
            add(0, column);
        for (int row = 1; row < m_model.rowCount(); ++row)
            add(row, 0);
        m_drawing.texts.push_back(std::move(summaries));
    }

    void drawLoadings()
    {
        DiagramDrawing::Texts values{.font = delegate().font(), .upright = true, .texts = {}};
        DrawingMeter meter;
        for (int row = 1; row < m_model.rowCount(); ++row) {
            for (int column = 1; column < m_model.columnCount(); ++column) {
                const LoadingMark mark =
                    delegate().mark(m_model, row, column, cell(row, column).topLeft());
                values.texts.push_back({mark.textOrigin, mark.textWidth, mark.text});
                if (mark.hasCircle)
                    circlesOf(mark.fill).squares.push_back(mark.circle);
                meter.count();
            }
        }
        m_drawing.texts.push_back(std::move(values));
    }

    DiagramDrawing::Circles& circlesOf(const QColor& fill)
    {
        auto& all = m_drawing.circles;
        const auto found = std::find_if(all.begin(), all.end(),
                                        [&](const auto& circles) { return circles.fill == fill; });
        return found != all.end() ? *found : all.emplace_back(DiagramDrawing::Circles{fill, {}});
    }

    /// Adds the notes at the foot: the drawing becomes higher, and wider where it is very narrow.
    void drawNotes()
    {
        DiagramDrawing::Texts below{.font = m_view.font(), .centred = false, .texts = {}};
        const QFontMetrics metrics(below.font);
        const QStringList notes = {delegate().areasAreProportional()
                                       ? tr("Area of a circle: absolute value of the loading.")
                                       : tr("Diameter of a circle: absolute value of the loading."),
                                   tr("Grey: positive, light grey: negative.")};
        const QString line = notes.join(u' ');
        const bool fits = metrics.horizontalAdvance(line) <= m_drawing.size.width();
        int baseline = m_drawing.size.height() + noteMargin + metrics.ascent();
        for (const QString& note : fits ? QStringList(line) : notes) {
            const int width = metrics.horizontalAdvance(note);
            below.texts.push_back({{noteMargin, baseline}, width, note});
            m_drawing.size = m_drawing.size.expandedTo(
                {width + 2 * noteMargin, baseline + metrics.descent() + noteMargin});
            baseline += metrics.lineSpacing();
        }
        m_drawing.texts.push_back(std::move(below));
    }

    const zarnelDelegate& delegate() const
    {
        return *qobject_cast<const zarnelDelegate*>(m_view.itemDelegate());
    }

    const factorModel& m_model;
    QTableView m_view;
    QPoint m_corner; ///< upper left of the cells
    DiagramDrawing m_drawing;
};

} // namespace

DiagramDrawing drawDiagram(factorModel* model)
{
    return Draughtsman(model).draw();
}
