// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QHeaderView>

class NumberTableModel;
class QTableView;

/// The header of a table whose labels are names of variables, which can be very long: a label that
/// does not fit ends with dots and is shown whole in its tool tip.
class NameHeader : public QHeaderView
{
    Q_OBJECT

public:
    NameHeader(Qt::Orientation orientation, QWidget* parent);

    /// Whether labels read from bottom to top, so that columns need not be as wide as their names.
    void setTurned(bool turned);
    /// Whether every label has room when it is not turned, with the columns as they are.
    bool hasRoomForLevelLabels() const;

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    QSize sectionSizeFromContents(int section) const override;
    bool viewportEvent(QEvent* event) override;

private:
    QString label(int section) const;
    QString shownLabel(int section) const;
    int margins() const;

    bool m_turned = false;
};

/// Pixels that a name takes at most before it is cut.
int widestName(const QWidget* widget);

/// Gives @p view such headers, and bounds their widths so that long names leave the numbers room.
void installNameHeaders(QTableView* view);

/// Gives the columns of @p view their widths anew after names have changed.
void fitToNames(QTableView* view, const NumberTableModel& model);

/// The same, with columns as wide as their numbers: names that are wider are turned.
void fitToNumbers(QTableView* view, const NumberTableModel& model);
