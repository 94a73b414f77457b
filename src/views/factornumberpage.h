// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/numberoffactors.h"
#include "numerics/parallelanalysis.h"

#include <QWidget>

#include <memory>
#include <optional>

class NumberTableModel;

namespace Ui {
class FactorNumberPage;
}

/// The number of factors by several rules: lines, the scree plot and a table.
class FactorNumberPage : public QWidget
{
    Q_OBJECT

public:
    explicit FactorNumberPage(QWidget* parent = nullptr);
    ~FactorNumberPage() override;

    /// How many cases the correlations come from. @param cases  0: unknown, the user may enter it
    void setCases(int cases);
    int cases() const;

    /// Computes everything but the parallel analysis, of correlations and a decomposition that must
    /// live until clear().
    void compute(const pelmora::Matrix& correlations, const pelmora::Decomposition& decomposition);
    bool isComputed() const { return m_correlations != nullptr; }
    /// Drops the correlations and shows an empty table.
    void clear();

signals:
    void casesChanged(int cases);

private slots:
    void on_spinBoxCases_valueChanged(int cases);
    void on_pushButtonParallel_clicked();

private:
    void showResults();
    void showTable();

    std::unique_ptr<Ui::FactorNumberPage> m_ui;
    NumberTableModel* m_model;
    const pelmora::Matrix* m_correlations = nullptr;
    const pelmora::Decomposition* m_decomposition = nullptr;
    pelmora::Computed<pelmora::MinimumAveragePartial> m_map;
    pelmora::Computed<pelmora::EmpiricalKaiser> m_kaiser;
    std::optional<pelmora::RandomEigenvalues> m_random;
};
