// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "minimalpairs/minimalpairentryform.h"

#include "output/numbertext.h"
#include "ui_minimalpairentryform.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/plaintooltip.h"
#include "views/tablecopy.h"

#include <array>
#include <cmath>

namespace {

enum Column { FirstVariable, SecondVariable, Difference, ColumnCount };

void setNumber(QTableWidget* table, int row, int column, double value, unsigned decimals)
{
    auto* item = new QTableWidgetItem(numbertext::fixed(value, decimals));
    item->setData(exactNumberRole, value);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table->setItem(row, column, item);
}

} // namespace

MinimalPairEntryForm::MinimalPairEntryForm(const MinimalPair& pair, int rank,
                                           const FocalFactor& focal, QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::MinimalPairEntryForm>())
    , m_rank(rank)
{
    m_ui->setupUi(this);
    installNameHeaders(m_ui->tableWidget);
    installTableCopy(m_ui->tableWidget);
    fillTable(pair, focal);
    showNames(pair);
    m_ui->labelDifference->setText(
        tr("difference: %1").arg(numbertext::fixed(pair.difference, focal.decimals)));
}

MinimalPairEntryForm::~MinimalPairEntryForm() = default;

void MinimalPairEntryForm::fillTable(const MinimalPair& pair, const FocalFactor& focal)
{
    auto* table = m_ui->tableWidget;
    const int averageRow = static_cast<int>(focal.nonFocal.size()) + 1;
    table->setColumnCount(ColumnCount);
    table->setRowCount(averageRow + 1);
    fillRow(0, tr("Focal factor F%1").arg(focal.factor + 1), pair, focal.factor, focal.decimals);
    int row = 0;
    for (const int factor : focal.nonFocal)
        fillRow(++row, tr("Non focal\nfactor F%1").arg(factor + 1), pair, factor, focal.decimals);
    const auto& [first, second] = pair.variables;
    table->setVerticalHeaderItem(averageRow,
                                 new QTableWidgetItem(tr("avg.|differ| :\n(non focal)")));
    setNumber(table, averageRow, Difference,
              averageNonFocalDifference(first.loadings.data(), second.loadings.data(),
                                        static_cast<int>(first.loadings.size()), focal.factor),
              focal.decimals);
    table->resizeRowsToContents();
}

void MinimalPairEntryForm::fillRow(int row, const QString& header, const MinimalPair& pair,
                                   int factor, unsigned decimals)
{
    const auto column = static_cast<std::size_t>(factor);
    const double first = pair.variables[0].loadings[column];
    const double second = pair.variables[1].loadings[column];
    m_ui->tableWidget->setVerticalHeaderItem(row, new QTableWidgetItem(header));
    setNumber(m_ui->tableWidget, row, FirstVariable, first, decimals);
    setNumber(m_ui->tableWidget, row, SecondVariable, second, decimals);
    setNumber(m_ui->tableWidget, row, Difference, std::abs(first - second), decimals);
}

void MinimalPairEntryForm::showNames(const MinimalPair& pair)
{
    const std::array<QString, rankCount> ranks = {tr("First"), tr("Second"), tr("Third")};
    const auto& [first, second] = pair.variables;
    const auto cut = [this](const QString& name) {
        return fontMetrics().elidedText(name, Qt::ElideRight, widestName(this));
    };
    m_ui->labelPair->setText(
        tr("%1 minimal pair\nvar. %2\nvar. %3")
            .arg(ranks[static_cast<std::size_t>(m_rank)], cut(first.name), cut(second.name)));
    m_ui->labelPair->setToolTip(plainToolTip(first.name + u'\n' + second.name));
    m_ui->tableWidget->setHorizontalHeaderLabels({first.name, second.name, tr("| difference |")});
    m_ui->tableWidget->resizeColumnsToContents();
    m_ui->tableWidget->updateGeometry();
}
