// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/adequacy.h"
#include "numerics/numberoffactors.h"
#include "numerics/parallelanalysis.h"

#include <optional>

namespace pelmora {

/// All that is reported of a correlation matrix before factors are extracted.
struct AdequacyResults
{
    Adequacy measures;
    Obstacle toInverse;
    Computed<Bartlett> bartlett;
    int eigenvaluesOfAtLeastOne = 0;
    Obstacle toComparison;
    std::optional<RandomEigenvalues> random; ///< null with an obstacle
    int byQuantile = 0;                      ///< the number of factors by parallel analysis
    int byMean = 0;
    Computed<EmpiricalKaiser> kaiser;
    Computed<MinimumAveragePartial> partial;
};

/// @param cases  0: unknown
AdequacyResults adequacyResults(const Matrix& r, const Decomposition& d, int cases);

} // namespace pelmora
