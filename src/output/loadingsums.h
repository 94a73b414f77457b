// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <vector>

/// What a table of loadings says at its edges.
struct LoadingSums
{
    std::vector<double> communalities;     ///< per variable: the sum of its squared loadings
    std::vector<double> explainedVariance; ///< per factor, in percent of the variables
    double totalVariance = 0.0;            ///< of all factors together
};

LoadingSums loadingSums(const pelmora::Matrix& loadings);
