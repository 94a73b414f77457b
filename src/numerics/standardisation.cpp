// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/standardisation.h"

#include <algorithm>
#include <cmath>

namespace pelmora {

namespace {

/// Calls @p take(variable, value) for all values; those of a variable come in the cases' order,
/// which decides the last bits of its sums.
template <typename Take>
void forEachValue(const Matrix& data, bool rowWise, Take take)
{
    for (int i = 0; i < data.rows(); ++i)
        for (int j = 0; j < data.columns(); ++j)
            take(rowWise ? i : j, data[i][j]);
}

} // namespace

Standardisation standardisation(const Matrix& data, bool rowWise)
{
    const int p = rowWise ? data.rows() : data.columns();
    const int n = rowWise ? data.columns() : data.rows();
    Standardisation result{Vector(p), Vector(p)};
    if (result.isNull())
        return {};
    Vector& means = result.means;
    Vector& deviations = result.deviations;

    std::fill(means.begin(), means.end(), 0.0);
    forEachValue(data, rowWise, [&](int j, double x) { means[j] += x; });
    // Row-wise data divide by the number of variables, on purpose.
    for (double& mean : means)
        mean /= rowWise ? p : n;

    std::fill(deviations.begin(), deviations.end(), 0.0);
    forEachValue(data, rowWise, [&](int j, double x) {
        const double centred = x - means[j];
        deviations[j] += centred * centred;
    });
    for (double& deviation : deviations)
        deviation = std::sqrt(deviation / n);
    return result;
}

} // namespace pelmora
