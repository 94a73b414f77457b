// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "minimalpairs/minimalpairform.h"

#include "minimalpairs/minimalpairentryform.h"
#include "minimalpairs/minimalpairfinder.h"
#include "ui_minimalpairform.h"

#include <algorithm>

MinimalPairForm::MinimalPairForm(const MinimalPairFinder& finder, int focalFactor, QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::MinimalPairForm>())
    , m_variableCount(finder.variableCount())
{
    m_ui->setupUi(this);
    const auto nonFocal = finder.nonFocalFactors(focalFactor);
    const int shown = std::min(finder.pairCount(), MinimalPairEntryForm::rankCount);
    for (int rank = 0; rank < shown; ++rank) {
        auto* entry = new MinimalPairEntryForm(finder.pair(focalFactor, rank), rank, focalFactor,
                                               nonFocal, m_ui->scrollAreaWidgetContents);
        m_ui->entriesLayout->insertWidget(rank, entry);
        m_entries.append(entry);
    }
}

MinimalPairForm::~MinimalPairForm() = default;

void MinimalPairForm::on_variableNamesChanged(QVector<QString> const& names)
{
    if (names.size() != m_variableCount)
        return;
    for (auto* entry : m_entries)
        entry->setVariableNames(names);
}
