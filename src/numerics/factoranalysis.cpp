// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/factoranalysis.h"

#include "numerics/correlation.h"
#include "numerics/initialfactors.h"
#include "numerics/jacobi.h"
#include "numerics/product.h"
#include "numerics/progress.h"
#include "numerics/rotation.h"

#include <algorithm>
#include <utility>

namespace pelmora {

namespace {

Matrix firstColumns(const Matrix& source, int columns)
{
    Matrix result(source.rows(), columns);
    for (int i = 0; i < result.rows(); ++i)
        std::copy_n(source[i], columns, result[i]);
    return result;
}

/// z-scores times coefficients, some cases at a time. Null when cancelled.
Matrix factorScores(const RawScores& raw, const Matrix& coefficients)
{
    constexpr int casesPerStep = 256;
    constexpr int plainProduct = 0;
    constexpr double operationsPerProduct = 0.3;
    const int variables = coefficients.rows();
    const int factors = coefficients.columns();
    Matrix scores(raw.cases(), factors);
    Matrix zScores(std::min(casesPerStep, raw.cases()), variables);
    if (scores.isNull() || zScores.isNull())
        return {};
    ProgressMeter meter({.work = Progress::Work::Scores});
    for (int first = 0; first < raw.cases(); first += casesPerStep) {
        const int count = std::min(casesPerStep, raw.cases() - first);
        standardise(raw, first, count, zScores);
        multiply(scores.rowPointers() + first, zScores.rowPointers(), plainProduct,
                 coefficients.rowPointers(), count, variables, factors);
        meter.progress().done = double(first + count) / raw.cases();
        if (!meter.goOnAfter(operationsPerProduct * count * variables * factors))
            return {};
    }
    return scores;
}

} // namespace

Correlations formCorrelations(const Matrix& data, bool rowWise)
{
    Correlations result;
    result.matrix = correlations(data, rowWise, result.used);
    return result;
}

Decomposition decompose(const Matrix& correlations)
{
    const int n = correlations.rows();
    Decomposition result;
    Matrix destroyed = correlations.clone();
    result.eigenvalues = Vector(n);
    result.eigenvectors = Matrix(n, n);
    if (destroyed.isNull() || result.eigenvalues.isNull() || result.eigenvectors.isNull())
        return {};

    result.rotations = jacobi(destroyed.rowPointers(), n, result.eigenvalues.data(),
                              result.eigenvectors.rowPointers());
    if (isCancelled())
        return {};
    sort_eigenpairs(result.eigenvalues.data(), result.eigenvectors.rowPointers(), n);
    Matrix loadings = std::move(destroyed); // reuses the storage
    initial_loadings(result.eigenvalues.data(), result.eigenvectors.rowPointers(), n, n,
                     loadings.rowPointers());
    result.initialLoadings = std::move(loadings);
    return result;
}

Matrix varianceTable(const Vector& eigenvalues)
{
    const int n = eigenvalues.size();
    Matrix table(3, n);
    if (table.isNull())
        return table;
    std::copy_n(eigenvalues.data(), n, table[0]);
    explained_variance(eigenvalues.data(), n, table[1], table[2]);
    return table;
}

Matrix loadingsToRotate(const Matrix& initialLoadings, int m)
{
    const bool hasNext = m < initialLoadings.columns();
    Matrix result(initialLoadings.rows(), m + 1);
    for (int i = 0; i < result.rows(); ++i) {
        std::copy_n(initialLoadings[i], m, result[i]);
        result[i][m] = hasNext ? initialLoadings[i][m] : 0.0;
    }
    return result;
}

Factors extractFactors(const Decomposition& decomposition, int m, int method, const RawScores& raw)
{
    const int p = decomposition.initialLoadings.rows();
    Matrix loadings = loadingsToRotate(decomposition.initialLoadings, m);
    Matrix coefficients(p, m);
    if (loadings.isNull() || coefficients.isNull())
        return {};

    score_coefficients(decomposition.eigenvalues.data(), decomposition.eigenvectors.rowPointers(),
                       p, m, coefficients.rowPointers());
    if (method != NoRotation)
        rotate(loadings.rowPointers(), coefficients.rowPointers(), m, p, method);
    if (isCancelled())
        return {};

    Factors result;
    result.loadings = firstColumns(loadings, m);
    if (!raw.isNull())
        result.scores = factorScores(raw, coefficients);
    result.coefficients = std::move(coefficients);
    return isCancelled() ? Factors{} : std::move(result);
}

} // namespace pelmora
