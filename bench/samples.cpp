// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "samples.h"

#include "numerics/correlation.h"
#include "numerics/factoranalysis.h"
#include "numerics/initialfactors.h"

#include <algorithm>
#include <cstddef>
#include <random>

using namespace pelmora;

namespace samples {

namespace {

/// From -0.5 to 0.5.
double uniform(std::mt19937_64& generator)
{
    return static_cast<double>(generator() >> 11) * 0x1p-53 - 0.5;
}

/// variables x factors
Matrix loadingsBehind(std::mt19937_64& generator, int variables, int factors)
{
    Matrix loadings(variables, factors);
    for (int j = 0; j < variables; ++j) {
        std::fill_n(loadings[j], factors, 0.0);
        loadings[j][j % factors] = 0.55 + 0.3 * uniform(generator);
        for (int other = 0; other < 2; ++other)
            loadings[j][int(generator() % unsigned(factors))] += 0.6 * uniform(generator);
    }
    return loadings;
}

} // namespace

Matrix answers(int cases, int variables)
{
    std::mt19937_64 generator{std::mt19937_64::result_type(cases) * 1000 + unsigned(variables)};
    Matrix x(cases, variables);
    for (int i = 0; i < cases; ++i) {
        const double general = uniform(generator);
        double common = 0.0;
        for (int j = 0; j < variables; ++j) {
            if (j % 5 == 0)
                common = uniform(generator);
            x[i][j] = 3.0 + 2.0 * common + general + uniform(generator);
        }
    }
    return x;
}

Matrix factorial(int cases, int variables, int factors, int dataSet)
{
    std::mt19937_64 generator{std::mt19937_64::result_type(dataSet) + 1};
    const Matrix loadings = loadingsBehind(generator, variables, factors);
    Vector scores(factors);
    Matrix x(cases, variables);
    for (int i = 0; i < cases; ++i) {
        for (double& score : scores)
            score = uniform(generator);
        for (int j = 0; j < variables; ++j) {
            x[i][j] = uniform(generator);
            for (int k = 0; k < factors; ++k)
                x[i][j] += loadings[j][k] * scores[k];
        }
    }
    return x;
}

Matrix correlationsOf(Matrix data)
{
    return Matrix::adopt(correlate(data.rowPointers(), data.rows(), data.columns(), 0),
                         data.columns(), data.columns());
}

Unrotated unrotatedFactors(int variables, int factors, int dataSet)
{
    const auto d = decompose(correlationsOf(factorial(2 * variables, variables, factors, dataSet)));
    Unrotated start{Matrix(variables, factors + 1), Matrix(variables, factors)};
    initial_loadings(d.eigenvalues.data(), d.eigenvectors.rowPointers(), variables, factors + 1,
                     start.loadings.rowPointers());
    score_coefficients(d.eigenvalues.data(), d.eigenvectors.rowPointers(), variables, factors,
                       start.coefficients.rowPointers());
    return start;
}

void copyInto(Matrix& to, const Matrix& from)
{
    std::copy_n(from[0], std::size_t(from.rows()) * std::size_t(from.columns()), to[0]);
}

} // namespace samples
