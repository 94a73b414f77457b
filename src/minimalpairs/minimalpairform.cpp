// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "minimalpairs/minimalpairform.h"

#include "settings/settings.h"
#include "ui_minimalpairform.h"

#include <algorithm>

MinimalPairForm::MinimalPairForm(const MinimalPairFinder& finder, int focalFactor, QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::MinimalPairForm>())
    , m_focal{focalFactor, finder.nonFocalFactors(focalFactor), settings::precision()}
    , m_variableCount(finder.variableCount())
{
    m_ui->setupUi(this);
    // The background of the tab shows through.
    m_ui->scrollArea->viewport()->setAutoFillBackground(false);
    m_ui->scrollAreaWidgetContents->setAutoFillBackground(false);
    const int shown = std::min(finder.pairCount(), MinimalPairEntryForm::rankCount);
    for (int rank = 0; rank < shown; ++rank)
        m_pairs.push_back(finder.pair(focalFactor, rank));
}

MinimalPairForm::~MinimalPairForm() = default;

void MinimalPairForm::on_variableNamesChanged(QVector<QString> const& names)
{
    if (names.size() != m_variableCount)
        return;
    for (auto& pair : m_pairs)
        for (auto& variable : pair.variables)
            variable.name = names[variable.index];
    for (std::size_t rank = 0; rank < m_entries.size(); ++rank)
        m_entries[rank]->showNames(m_pairs[rank]);
}

void MinimalPairForm::showEvent(QShowEvent* event)
{
    if (m_entries.empty())
        makeEntries();
    QWidget::showEvent(event);
}

void MinimalPairForm::makeEntries()
{
    for (const auto& pair : m_pairs) {
        const int rank = static_cast<int>(m_entries.size());
        auto* entry = new MinimalPairEntryForm(pair, rank, m_focal, m_ui->scrollAreaWidgetContents);
        m_ui->entriesLayout->insertWidget(rank, entry);
        m_entries.push_back(entry);
    }
}
