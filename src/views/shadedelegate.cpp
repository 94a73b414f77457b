// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/shadedelegate.h"

#include "views/numbertable.h"

#include <algorithm>
#include <cmath>

QColor shadeOf(double value, const QPalette& palette)
{
    const float strength =
        std::isnan(value) ? 0.0F : 0.5F * static_cast<float>(std::min(std::abs(value), 1.0));
    const QColor base = palette.color(QPalette::Base);
    const QColor highlight = palette.color(QPalette::Highlight);
    const auto mixed = [strength](float from, float to) { return from + strength * (to - from); };
    return QColor::fromRgbF(mixed(base.redF(), highlight.redF()),
                            mixed(base.greenF(), highlight.greenF()),
                            mixed(base.blueF(), highlight.blueF()));
}

ShadeDelegate::ShadeDelegate(const NumberTableModel& model, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
{
}

void ShadeDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (m_shading)
        option->backgroundBrush =
            shadeOf(m_model.value(index.row(), index.column()), option->palette);
}
