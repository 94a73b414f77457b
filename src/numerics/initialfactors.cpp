// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/initialfactors.h"

#include <cmath>

namespace pelmora {

void initial_loadings(const double* d, const double* const* v, int p, int n, double** l)
{
    for (int i = 0; i < p; ++i)
        for (int j = 0; j < n; ++j)
            l[i][j] = std::sqrt(std::fabs(d[j])) * v[i][j];
}

void score_coefficients(const double* d, const double* const* v, int p, int m, double** b)
{
    for (int i = 0; i < p; ++i)
        for (int j = 0; j < m; ++j)
            b[i][j] = v[i][j] / std::sqrt(std::fabs(d[j]));
}

void explained_variance(const double* d, int n, double* variance, double* cumulative)
{
    double sum = 0.0;
    for (int j = 0; j < n; ++j) {
        variance[j] = d[j] * 100.0 / n;
        sum += variance[j];
        cumulative[j] = sum;
    }
}

} // namespace pelmora
