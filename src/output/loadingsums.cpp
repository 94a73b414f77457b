// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/loadingsums.h"

LoadingSums loadingSums(const pelmora::Matrix& loadings, int factors)
{
    const int variables = loadings.rows();
    LoadingSums sums;
    std::vector<double> sumsOfSquares(static_cast<std::size_t>(factors));
    for (int i = 0; i < variables; ++i) {
        double communality = 0.0;
        for (int j = 0; j < factors; ++j) {
            const double square = loadings[i][j] * loadings[i][j];
            communality += square;
            sumsOfSquares[static_cast<std::size_t>(j)] += square;
        }
        sums.communalities.push_back(communality);
    }
    double total = 0.0;
    for (const double sum : sumsOfSquares) {
        total += sum;
        sums.explainedVariance.push_back(100.0 * sum / variables);
    }
    sums.totalVariance = 100.0 * total / variables;
    return sums;
}
