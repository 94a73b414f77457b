// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "views/diagramgeometry.h"

#include <QFont>
#include <QFontMetrics>
#include <QStyledItemDelegate>

class factorModel;

/// How one loading is shown in the diagram. Lengths are pixels.
struct LoadingMark
{
    QString text;
    int textWidth;
    QPoint textOrigin; ///< where the baseline begins, before it is turned by 270 degrees
    bool hasCircle;    ///< a value that is not finite has no size: only its text is shown
    QRect circle;      ///< square around it; empty: a dot
    QColor fill;
};

/// Draws the cells of a factorModel as a diagram: every loading is a filled circle with its value
/// beside it, turned upright; summaries are centred numbers.
///
/// Size hints follow the model's diagram size only after a loading cell was painted, and leave room
/// for the text that was painted last. Call rehearse() before a table is laid out anew.
class zarnelDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Reads the diagram's settings and the precision, once.
    explicit zarnelDelegate(QObject* parent = nullptr);

    /// Diameter of the circle of @p value in pixels.
    double diameter(double value) const { return m_geometry.diameter(value); }
    /// Whether a circle's area follows the loading, not its diameter.
    bool areasAreProportional() const { return m_geometry.proportionalArea; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Makes the size hints fit @p model as it is now, as if the loading with the widest text had
    /// been painted last.
    void rehearse(const factorModel& model);

    /// The loading in @p row and @p column of @p model, in a cell at @p corner.
    LoadingMark mark(const factorModel& model, int row, int column, QPoint corner) const;

    /// How a value is written.
    QString text(double value) const;
    /// Font of the values beside the circles.
    const QFont& font() const { return m_font; }

private:
    void setFontSize(int size) const;
    void measure(const QString& valueText) const;
    void paintSummary(QPainter* painter, const QRect& cell, const QString& text) const;
    void paintLoading(QPainter* painter, const LoadingMark& mark) const;
    QModelIndex widestLoading(const factorModel& model) const;

    mutable DiagramGeometry m_geometry;
    mutable QFont m_font;
    mutable QFontMetrics m_fontMetrics;
    unsigned m_precision;
    QPersistentModelIndex m_widest;
};
