// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Two passes over the values: sums and extremes first, then squared deviations from the means,
// which loses nothing to cancellation where a mean is large beside its deviation. The matrix is
// walked row by row, whichever way the variables lie, since its rows are contiguous. Where the
// columns are the variables, each step is a loop over plain arrays, one element per variable.

#include "numerics/variablestatistics.h"

#include <cmath>
#include <limits>

namespace pelmora {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

/// Sums and extremes of all variables, one element each.
struct Sums
{
    explicit Sums(int variables)
        : totals(static_cast<std::size_t>(variables), 0.0)
        , squares(static_cast<std::size_t>(variables), 0.0)
        , minima(static_cast<std::size_t>(variables), infinity)
        , maxima(static_cast<std::size_t>(variables), -infinity)
    {
    }

    std::vector<double> totals;  ///< sums, then means
    std::vector<double> squares; ///< of the deviations
    std::vector<double> minima;
    std::vector<double> maxima;
};

inline void addValue(double value, double& total, double& minimum, double& maximum)
{
    total += value;
    minimum = value < minimum ? value : minimum;
    maximum = value > maximum ? value : maximum;
}

inline void addDeviation(double value, double mean, double& square)
{
    square += (value - mean) * (value - mean);
}

/// Some cases at a time, so that the sums are loaded and stored once for all of them.
template <int cases>
void addCases(const double* const* values, int variables, double* totals, double* minima,
              double* maxima)
{
    for (int i = 0; i < variables; ++i) {
        double total = totals[i];
        double minimum = minima[i];
        double maximum = maxima[i];
        for (int c = 0; c < cases; ++c)
            addValue(values[c][i], total, minimum, maximum);
        totals[i] = total;
        minima[i] = minimum;
        maxima[i] = maximum;
    }
}

template <int cases>
void addDeviations(const double* const* values, int variables, const double* means, double* squares)
{
    for (int i = 0; i < variables; ++i) {
        double square = squares[i];
        for (int c = 0; c < cases; ++c)
            addDeviation(values[c][i], means[i], square);
        squares[i] = square;
    }
}

void finishMeans(Sums& sums, int cases)
{
    for (std::size_t i = 0; i < sums.totals.size(); ++i) {
        // The mean of equal values is that value, whatever their sum was rounded to.
        const bool constant = sums.minima[i] == sums.maxima[i];
        sums.totals[i] = constant ? sums.minima[i] : sums.totals[i] / cases;
    }
}

Sums gatherColumns(const double* const* values, int rows, int columns)
{
    Sums sums(columns);
    double* totals = sums.totals.data();
    const int whole = rows / 4 * 4;
    for (int row = 0; row < whole; row += 4)
        addCases<4>(values + row, columns, totals, sums.minima.data(), sums.maxima.data());
    for (int row = whole; row < rows; ++row)
        addCases<1>(values + row, columns, totals, sums.minima.data(), sums.maxima.data());
    finishMeans(sums, rows);
    for (int row = 0; row < whole; row += 4)
        addDeviations<4>(values + row, columns, totals, sums.squares.data());
    for (int row = whole; row < rows; ++row)
        addDeviations<1>(values + row, columns, totals, sums.squares.data());
    return sums;
}

Sums gatherRows(const double* const* values, int rows, int columns)
{
    Sums sums(rows);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const auto i = static_cast<std::size_t>(row);
            addValue(values[row][column], sums.totals[i], sums.minima[i], sums.maxima[i]);
        }
    finishMeans(sums, columns);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column) {
            const auto i = static_cast<std::size_t>(row);
            addDeviation(values[row][column], sums.totals[i], sums.squares[i]);
        }
    return sums;
}

} // namespace

std::vector<VariableStatistics> variableStatistics(const double* const* values, int rows,
                                                   int columns, bool rowWise)
{
    const Sums sums =
        rowWise ? gatherRows(values, rows, columns) : gatherColumns(values, rows, columns);
    const int cases = rowWise ? columns : rows;
    std::vector<VariableStatistics> statistics;
    statistics.reserve(sums.totals.size());
    for (std::size_t i = 0; i < sums.totals.size(); ++i)
        statistics.push_back({cases, sums.totals[i], std::sqrt(sums.squares[i] / cases),
                              sums.minima[i], sums.maxima[i]});
    return statistics;
}

} // namespace pelmora
