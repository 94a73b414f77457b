// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/factornumberpage.h"

#include "output/adequacytext.h"
#include "ui_factornumberpage.h"
#include "views/longwork.h"
#include "views/numbertable.h"
#include "views/tablecopy.h"

#include <QPointer>

#include <algorithm>
#include <limits>

namespace {

enum Column {
    Eigenvalue,
    RandomMean,
    RandomQuantile,
    KaiserReference,
    Squares,
    FourthPowers,
    Columns
};

QString columnTitle(int column)
{
    return QStringList{
        FactorNumberPage::tr("Eigenvalue"),    FactorNumberPage::tr("Random,\nmean"),
        FactorNumberPage::tr("Random,\n95 %"), FactorNumberPage::tr("Empirical Kaiser\nreference"),
        FactorNumberPage::tr("MAP,\nsquares"), FactorNumberPage::tr("MAP,\n4th powers")}
        .value(column);
}

/// Leaves the rest of the column as it is.
void fillColumn(pelmora::Matrix& table, int column, int firstRow, const pelmora::Vector& values)
{
    for (int i = 0; i < values.size(); ++i)
        table[firstRow + i][column] = values[i];
}

QVector<double> points(const pelmora::Vector& values)
{
    return QVector<double>(values.begin(), values.end());
}

} // namespace

FactorNumberPage::FactorNumberPage(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::FactorNumberPage>())
    , m_model(new NumberTableModel(this))
{
    m_ui->setupUi(this);
    m_model->setHeaders([](int row) { return QString::number(row); }, columnTitle);
    m_model->leaveNotNumbersEmpty();
    m_model->showExactInToolTips();
    m_ui->tableNumberOfFactors->setModel(m_model);
    installTableCopy(m_ui->tableNumberOfFactors);
    m_ui->splitter->setStretchFactor(0, 1);
    m_ui->splitter->setStretchFactor(1, 0);
}

FactorNumberPage::~FactorNumberPage() = default;

void FactorNumberPage::setCases(int cases)
{
    const QSignalBlocker blocker(m_ui->spinBoxCases);
    m_ui->spinBoxCases->setValue(cases);
    m_ui->spinBoxCases->setReadOnly(cases > 0);
    m_ui->spinBoxCases->setButtonSymbols(cases > 0 ? QSpinBox::NoButtons : QSpinBox::UpDownArrows);
}

int FactorNumberPage::cases() const
{
    return m_ui->spinBoxCases->value();
}

void FactorNumberPage::compute(const pelmora::Matrix& correlations,
                               const pelmora::Decomposition& decomposition)
{
    m_correlations = &correlations;
    m_decomposition = &decomposition;
    m_random.reset();
    m_ui->spinBoxRandom->setValue(pelmora::proposedMatrices(correlations.rows()));
    m_map = pelmora::minimumAveragePartial(correlations, decomposition);
    m_kaiser = pelmora::empiricalKaiserCriterion(correlations, decomposition, cases());
    showResults();
    showWhole(m_ui->tableNumberOfFactors, m_ui->splitter, 0.5);
}

void FactorNumberPage::clear()
{
    m_correlations = nullptr;
    m_decomposition = nullptr;
    m_model->clear();
}

void FactorNumberPage::on_spinBoxCases_valueChanged(int cases)
{
    if (isComputed()) {
        m_random.reset();
        m_kaiser = pelmora::empiricalKaiserCriterion(*m_correlations, *m_decomposition, cases);
        showResults();
    }
    emit casesChanged(cases);
}

void FactorNumberPage::on_pushButtonParallel_clicked()
{
    if (!isComputed() || LongWork::isRunning())
        return;
    const LongWork work(this);
    const QPointer<FactorNumberPage> self(this);
    auto random =
        pelmora::parallelAnalysis(m_correlations->rows(), cases(), m_ui->spinBoxRandom->value());
    // Page and session may have been deleted while the progress was shown.
    if (!self || !isComputed() || !random)
        return;
    m_random = std::move(random);
    showResults();
}

void FactorNumberPage::showResults()
{
    const pelmora::Vector& eigenvalues = m_decomposition->eigenvalues;
    const pelmora::Obstacle obstacle =
        pelmora::obstacleToComparison(*m_correlations, eigenvalues, cases());
    m_ui->labelCount->setText(
        adequacytext::eigenvaluesOfAtLeastOne(pelmora::countEigenvaluesOfAtLeastOne(eigenvalues)));
    m_ui->labelParallel->setText(
        adequacytext::parallelAnalysis(obstacle, m_random ? &*m_random : nullptr, eigenvalues));
    m_ui->labelKaiser->setText(adequacytext::empiricalKaiser(m_kaiser));
    m_ui->labelPartial->setText(adequacytext::minimumAveragePartial(m_map));
    m_ui->pushButtonParallel->setEnabled(!obstacle);
    showTable();
    m_ui->screePlot->setCurves({points(eigenvalues),
                                m_random ? points(m_random->quantile95) : QVector<double>(),
                                points(m_kaiser.value.references)});
}

/// Row m belongs to m factors, row 0 to none.
void FactorNumberPage::showTable()
{
    pelmora::Matrix values(m_correlations->rows() + 1, Columns);
    for (int row = 0; row < values.rows(); ++row)
        std::fill_n(values[row], Columns, std::numeric_limits<double>::quiet_NaN());
    if (!values.isNull()) {
        fillColumn(values, Eigenvalue, 1, m_decomposition->eigenvalues);
        fillColumn(values, KaiserReference, 1, m_kaiser.value.references);
        fillColumn(values, Squares, 0, m_map.value.squares);
        fillColumn(values, FourthPowers, 0, m_map.value.fourthPowers);
        if (m_random) {
            fillColumn(values, RandomMean, 1, m_random->mean);
            fillColumn(values, RandomQuantile, 1, m_random->quantile95);
        }
    }
    m_model->fill(std::move(values));
    fitColumnWidths(m_ui->tableNumberOfFactors, *m_model);
    setLowRows(m_ui->tableNumberOfFactors);
}
