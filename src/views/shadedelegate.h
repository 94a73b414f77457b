// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyledItemDelegate>

class NumberTableModel;

/// The background of a value between -1 and 1: the palette's base at 0, half-way to its highlight
/// at 1 and beyond. Text of the palette stays readable on it. A value that is no number gets the
/// base.
QColor shadeOf(double value, const QPalette& palette);

/// Paints the numbers of a NumberTableModel on backgrounds whose strength is their absolute value.
class ShadeDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    ShadeDelegate(const NumberTableModel& model, QObject* parent);

    void setShading(bool shading) { m_shading = shading; }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    const NumberTableModel& m_model;
    bool m_shading = true;
};
