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

protected:
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;
    bool viewportEvent(QEvent* event) override;

private:
    QString label(int section) const;
    QString shownLabel(int section) const;
};

/// Pixels that a name takes at most before it is cut.
int widestName(const QWidget* widget);

/// Gives @p view such headers, and bounds their widths so that long names leave the numbers room.
void installNameHeaders(QTableView* view);

/// Gives the columns of @p view their widths anew after names have changed.
void fitToNames(QTableView* view, const NumberTableModel& model);
