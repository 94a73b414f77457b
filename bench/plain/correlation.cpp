// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/numerics.h"

#include "numerics/memory.h"
#include "numerics/owners.h"

#include <cmath>

namespace pelmora::plain {

double** correlate(double** x, int nrows, int ncols, int flag)
{
    const bool rowWise = flag == 1;
    const int p = rowWise ? nrows : ncols;
    const int n = rowWise ? ncols : nrows;
    const auto value = [&](int variable, int i) -> double& {
        return rowWise ? x[variable][i] : x[i][variable];
    };

    Vector mean(p);
    Vector var(p);
    if (mean.isNull() || var.isNull())
        return nullptr;
    double** r = matrix(0, p - 1, 0, p - 1);
    if (!r)
        return nullptr;

    for (int j = 0; j < p; ++j) {
        double sum = 0.0;
        for (int i = 0; i < n; ++i)
            sum += value(j, i);
        // Row-wise data divide by the number of variables, on purpose.
        mean[j] = sum / (rowWise ? p : n);
    }
    for (int j = 0; j < p; ++j) {
        double sum = 0.0;
        for (int i = 0; i < n; ++i)
            sum += (value(j, i) - mean[j]) * (value(j, i) - mean[j]);
        var[j] = sum / n;
    }
    for (int j = 0; j < p; ++j)
        for (int k = 0; k < p; ++k) {
            double sum = 0.0;
            for (int i = 0; i < n; ++i)
                sum += (value(j, i) - mean[j]) * (value(k, i) - mean[k]);
            r[j][k] = j == k ? 1.0 : sum / (std::sqrt(var[j]) * n * std::sqrt(var[k]));
        }
    for (int j = 0; j < p; ++j) {
        const double scale = 1.0 / std::sqrt(var[j]);
        for (int i = 0; i < n; ++i)
            value(j, i) = (value(j, i) - mean[j]) * scale;
    }
    return r;
}

} // namespace pelmora::plain
