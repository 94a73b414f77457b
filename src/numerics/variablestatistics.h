// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

namespace pelmora {

/// What the raw data page tells of one variable.
struct VariableStatistics
{
    int cases = 0;
    double mean = 0.0;
    double standardDeviation = 0.0; ///< divisor n, the number of cases
    double minimum = 0.0;
    double maximum = 0.0;

    /// A constant variable has no correlations. Judged by its extremes: the sum of a constant that
    /// is no binary fraction leaves a tiny deviation behind.
    bool isConstant() const { return minimum == maximum; }
    /// One case is no distribution: nothing correlates.
    bool hasTooFewCases() const { return cases < 2; }
};

/// Statistics of every variable of a matrix of @p rows x @p columns raw values.
/// @param rowWise  true: the rows are the variables; false: the columns are
std::vector<VariableStatistics> variableStatistics(const double* const* values, int rows,
                                                   int columns, bool rowWise);

} // namespace pelmora
