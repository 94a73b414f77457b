// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/obstacle.h"

#include <algorithm>
#include <cmath>

namespace pelmora {

namespace {

constexpr double diagonalTolerance = 1e-6;
constexpr double zeroCorrelation = 1e-10;
constexpr double singularShare = 1e-10;
constexpr int variablesNeeded = 2;
constexpr int casesNeeded = 3;

bool isFinite(const double* values, int count)
{
    return std::all_of(values, values + count, [](double value) { return std::isfinite(value); });
}

bool holdsNumbersOnly(const Matrix& r)
{
    for (int j = 0; j < r.rows(); ++j)
        if (!isFinite(r[j], r.columns()))
            return false;
    return true;
}

bool hasUnitDiagonal(const Matrix& r)
{
    for (int j = 0; j < r.rows(); ++j)
        if (std::fabs(r[j][j] - 1.0) > diagonalTolerance)
            return false;
    return true;
}

} // namespace

Obstacle obstacleToAnything(const Matrix& r, const Vector& eigenvalues)
{
    if (!holdsNumbersOnly(r))
        return {Reason::NotNumbers};
    if (!hasUnitDiagonal(r))
        return {Reason::DiagonalNotOne};
    // Correlations far beyond 1 may overflow in the decomposition.
    if (!isFinite(eigenvalues.data(), eigenvalues.size()))
        return {Reason::NotNumbers};
    if (r.rows() < variablesNeeded)
        return {Reason::TooFewVariables, variablesNeeded};
    return {};
}

Obstacle obstacleToInverse(const Matrix& r, const Vector& eigenvalues)
{
    if (const Obstacle obstacle = obstacleToAnything(r, eigenvalues))
        return obstacle;
    const double smallest = eigenvalues[eigenvalues.size() - 1];
    const double limit = singularShare * eigenvalues[0];
    if (smallest < -limit)
        return {Reason::NotPositiveDefinite, smallest};
    if (smallest <= limit)
        return {Reason::Singular, smallest};
    return {};
}

Obstacle obstacleToComparison(const Matrix& r, const Vector& eigenvalues, int cases)
{
    if (const Obstacle obstacle = obstacleToAnything(r, eigenvalues))
        return obstacle;
    return obstacleOfCases(cases, casesNeeded);
}

Obstacle obstacleOfCases(int cases, int needed)
{
    if (cases <= 0)
        return {Reason::CasesUnknown};
    if (cases < needed)
        return {Reason::TooFewCases, double(needed)};
    return {};
}

bool isZeroCorrelation(double r)
{
    return std::fabs(r) < zeroCorrelation;
}

} // namespace pelmora
