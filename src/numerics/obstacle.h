// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

namespace pelmora {

/// Why a number cannot be computed from a correlation matrix, in the order in which reasons are
/// named where several hold.
enum class Reason {
    None,
    NotNumbers,
    DiagonalNotOne, ///< by more than 1e-6
    TooFewVariables,
    NoCorrelations, ///< all are 0, by less than 1e-10
    NotPositiveDefinite,
    Singular,
    CasesUnknown,
    TooFewCases
};

/// Why a number cannot be computed, if it cannot.
struct Obstacle
{
    Reason reason = Reason::None;
    double number = 0.0; ///< the smallest eigenvalue, or how many variables or cases are needed

    explicit operator bool() const { return reason != Reason::None; }
};

/// A value, or the obstacle to it: the value is then that of a default-constructed Value.
template <typename Value>
struct Computed
{
    Obstacle obstacle;
    Value value{};
};

/// NotNumbers, DiagonalNotOne or TooFewVariables: only eigenvalues can be computed of @p r.
Obstacle obstacleToAnything(const Matrix& r, const Vector& eigenvalues);

/// The same, and NotPositiveDefinite or Singular. Singular is an eigenvalue within 1e-10 of the
/// largest: correlations are sums over cases, so that eigenvalues that are 0 but for rounding grow
/// with the number of cases, to 2e-12 of the largest with 500,000.
Obstacle obstacleToInverse(const Matrix& r, const Vector& eigenvalues);

/// NotNumbers, DiagonalNotOne or TooFewVariables, or CasesUnknown, or TooFewCases below 3:
/// eigenvalues cannot be compared with those of samples without correlations.
Obstacle obstacleToComparison(const Matrix& r, const Vector& eigenvalues, int cases);

/// CasesUnknown where @p cases is 0, TooFewCases below @p needed.
Obstacle obstacleOfCases(int cases, int needed);

/// Smaller correlations count as 0.
bool isZeroCorrelation(double r);

} // namespace pelmora
