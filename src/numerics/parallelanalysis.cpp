// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/parallelanalysis.h"

#include "numerics/progress.h"
#include "numerics/tridiagonal.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace pelmora {

namespace {

/// Interpolates linearly between the two nearest of ascending values.
double quantile(const double* ascending, int count, double share)
{
    const double place = (count - 1) * share;
    const int below = int(place);
    const int above = std::min(below + 1, count - 1);
    return ascending[below] + (place - below) * (ascending[above] - ascending[below]);
}

/// @param sampled  p x matrices
std::optional<RandomEigenvalues> summarised(Matrix& sampled, int cases)
{
    const int p = sampled.rows();
    const int matrices = sampled.columns();
    RandomEigenvalues result{matrices, cases, Vector(p), Vector(p)};
    if (result.mean.isNull() || result.quantile95.isNull())
        return {};
    for (int j = 0; j < p; ++j) {
        double* values = sampled[j];
        result.mean[j] = std::accumulate(values, values + matrices, 0.0) / matrices;
        std::sort(values, values + matrices);
        result.quantile95[j] = quantile(values, matrices, 0.95);
    }
    return result;
}

} // namespace

int proposedMatrices(int variables)
{
    constexpr int many = 100;
    return variables < many ? 1000 : 100;
}

void randomCorrelations(RandomNumbers& random, int cases, Matrix& r, Vector& t)
{
    const int p = r.rows();
    for (int j = 0; j < p; ++j)
        std::fill_n(r[j], p, 0.0);
    for (int i = 0; i < std::min(cases - 1, p); ++i) {
        t[i] = std::sqrt(random.chiSquare(cases - 1 - i));
        for (int j = i + 1; j < p; ++j)
            t[j] = random.normal();
        for (int j = i; j < p; ++j) {
            double* __restrict row = r[j];
            for (int k = j; k < p; ++k)
                row[k] += t[j] * t[k];
        }
    }
    for (int j = 0; j < p; ++j)
        for (int k = j + 1; k < p; ++k)
            r[j][k] = r[k][j] = r[j][k] / std::sqrt(r[j][j] * r[k][k]);
    for (int j = 0; j < p; ++j)
        r[j][j] = 1.0;
}

std::optional<RandomEigenvalues> parallelAnalysis(int variables, int cases, int matrices)
{
    RandomNumbers random;
    Matrix r(variables, variables);
    Vector row(variables);
    TridiagonalEigenvalues eigenvalues(variables);
    Matrix sampled(variables, matrices);
    if (r.isNull() || row.isNull() || eigenvalues.isNull() || sampled.isNull())
        return {};
    for (int b = 0; b < matrices; ++b) {
        if (!goOn({Progress::Work::RandomMatrices, double(b) / matrices}))
            return {};
        randomCorrelations(random, cases, r, row);
        const Vector& drawn = eigenvalues.compute(r);
        for (int j = 0; j < variables; ++j)
            sampled[j][b] = drawn[j];
    }
    return summarised(sampled, cases);
}

} // namespace pelmora
