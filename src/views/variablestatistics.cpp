// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The matrix is walked row by row, whichever way the variables lie, since its rows are contiguous.
// Two passes: sums and extremes first, then squared deviations from the means, which loses nothing
// to cancellation where a mean is large beside its deviation.

#include "views/variablestatistics.h"

#include <cmath>
#include <limits>

namespace pelmora {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

inline void addValue(VariableStatistics& variable, double value)
{
    variable.mean += value;
    variable.minimum = value < variable.minimum ? value : variable.minimum;
    variable.maximum = value > variable.maximum ? value : variable.maximum;
}

inline void addDeviation(VariableStatistics& variable, double value)
{
    const double deviation = value - variable.mean;
    variable.standardDeviation += deviation * deviation;
}

void finishMean(VariableStatistics& variable)
{
    // The mean of equal values is that value, whatever their sum was rounded to.
    variable.mean = variable.isConstant() ? variable.minimum : variable.mean / variable.cases;
}

void finishDeviation(VariableStatistics& variable)
{
    variable.standardDeviation = std::sqrt(variable.standardDeviation / variable.cases);
}

template <class Step>
void forEachValue(const double* const* values, int rows, int columns, bool rowWise,
                  std::vector<VariableStatistics>& variables, Step step)
{
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            step(variables[static_cast<std::size_t>(rowWise ? row : column)], values[row][column]);
}

} // namespace

std::vector<VariableStatistics> variableStatistics(const double* const* values, int rows,
                                                   int columns, bool rowWise)
{
    const VariableStatistics none{rowWise ? columns : rows, 0.0, 0.0, infinity, -infinity};
    std::vector<VariableStatistics> variables(static_cast<std::size_t>(rowWise ? rows : columns),
                                              none);
    forEachValue(values, rows, columns, rowWise, variables, addValue);
    for (auto& variable : variables)
        finishMean(variable);
    forEachValue(values, rows, columns, rowWise, variables, addDeviation);
    for (auto& variable : variables)
        finishDeviation(variable);
    return variables;
}

} // namespace pelmora
