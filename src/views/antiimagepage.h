// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/obstacle.h"
#include "numerics/owners.h"

#include <QVector>
#include <QWidget>

#include <memory>

class NumberTableModel;

namespace Ui {
class AntiImagePage;
}

/// The anti-image correlations, with the measures of sampling adequacy on their diagonal.
class AntiImagePage : public QWidget
{
    Q_OBJECT

public:
    explicit AntiImagePage(QWidget* parent = nullptr);
    ~AntiImagePage() override;

    /// @param antiImage  null where @p obstacle says why; the table then has empty cells
    void showAntiImage(pelmora::Matrix antiImage, const pelmora::Obstacle& obstacle, int variables);
    void setNames(const QVector<QString>& names);
    void clear();

private:
    std::unique_ptr<Ui::AntiImagePage> m_ui;
    NumberTableModel* m_model;
};
