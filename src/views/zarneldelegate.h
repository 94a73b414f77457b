// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "views/diagramgeometry.h"

#include <QFont>
#include <QFontMetrics>
#include <QStyledItemDelegate>

class factorModel;

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

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// Paints the loading with the widest text where nobody sees it, so that the size hints fit
    /// @p model as it is now, whatever cells were painted last.
    void rehearse(const factorModel& model);

private:
    QString text(double value) const;
    void setFontSize(int size) const;
    void paintSummary(QPainter* painter, const QRect& cell, const QString& text) const;
    void paintLoading(QPainter* painter, QPoint corner, const factorModel& model,
                      const QModelIndex& index) const;
    QModelIndex widestLoading(const factorModel& model) const;

    mutable DiagramGeometry m_geometry;
    mutable QFont m_font;
    mutable QFontMetrics m_fontMetrics;
    unsigned m_precision;
    QPersistentModelIndex m_widest;
};
