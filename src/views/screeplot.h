// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>
#include <QWidget>

/// What a scree plot shows, from the largest eigenvalue on. Values that are not finite are left
/// out.
struct ScreeCurves
{
    QVector<double> eigenvalues;
    QVector<double> randomQuantile;  ///< empty: none
    QVector<double> kaiserReference; ///< empty: none
};

/// Maps the values of a scree plot to pixels.
class ScreeScale
{
public:
    /// @param area  the plot without its labels; the axes are its left and its lower edge
    ScreeScale(const ScreeCurves& curves, const QRectF& area);

    /// @param place  0 is the first eigenvalue
    QPointF at(int place, double value) const;
    /// Round values up to one beyond the largest.
    QVector<double> valueTicks() const;
    /// As many 1-based numbers of eigenvalues as have room beside each other.
    QVector<int> placeTicks(double labelWidth) const;

private:
    QRectF m_area;
    int m_places;
    double m_lowest;
    double m_step;
    int m_steps;
};

/// The eigenvalues as dots joined by a line, with what they are compared with, in the palette's
/// colours. The context menu copies its picture.
class ScreePlot : public QWidget
{
    Q_OBJECT

public:
    explicit ScreePlot(QWidget* parent = nullptr);

    void setCurves(ScreeCurves curves);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void copy();
    void paintAxes(QPainter& painter, const ScreeScale& scale, const QRectF& area) const;
    void paintCurves(QPainter& painter, const ScreeScale& scale, const QRectF& area) const;
    void paintLegend(QPainter& painter, const QRectF& whole) const;

    ScreeCurves m_curves;
};
