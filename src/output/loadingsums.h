// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <vector>

/// The sums in the margins of a table of loadings.
struct LoadingSums
{
    std::vector<double> communalities;     ///< per variable: the sum of its squared loadings
    std::vector<double> explainedVariance; ///< per factor, in percent of the variables
    double totalVariance = 0.0;            ///< of all factors together
};

/// Of the first @p factors columns.
LoadingSums loadingSums(const pelmora::Matrix& loadings, int factors);
