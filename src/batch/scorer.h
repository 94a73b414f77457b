// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <QString>

#include <optional>
#include <vector>

class QJsonObject;

namespace batch {

/// Computes factor scores of cases, new ones too, from an analysis that "analyse --json" wrote:
/// z-scores by its means and deviations, times its score coefficients. Cases that were analysed get
/// the same bits as in the analysis.
class Scorer
{
public:
    static constexpr int casesPerBlock = 4096;

    /// Nothing where the file is no such analysis or lacks what is needed; @p fault tells what.
    /// @param page  "pelmora", "varimax" or "initial"
    static std::optional<Scorer> fromFile(const QString& path, const QString& page, QString& fault);

    int variables() const { return static_cast<int>(m_means.size()); }

    /// The scores of at most casesPerBlock cases, which lie one after the other: a row each. Rows
    /// beyond are left over.
    const pelmora::Matrix& scores(const double* values, int cases);

private:
    Scorer() = default;
    bool takeScales(const QJsonObject& analysis);
    bool takeCoefficients(const QJsonObject& page);

    std::vector<double> m_means;
    std::vector<double> m_scales; ///< 1 / deviation
    pelmora::Matrix m_coefficients;
    pelmora::Matrix m_standardised;
    pelmora::Matrix m_scores;
};

} // namespace batch
