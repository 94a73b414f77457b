// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

namespace pelmora {

/// Columns of the unit matrix: a companion that ends as the rotation's matrix itself.
Matrix unitColumns(int rows, int columns);

/// The sum over the first m columns of the variance of the squared loadings.
long double totalCriterion(const Matrix& l, int m);

/// How a rotated pair of columns lies to its own stationary angles.
struct PairPosition
{
    /// The slope of V(j) + V(k) over the angle, and its amplitude over all angles.
    long double slope;
    long double amplitude;
    /// Whether the nearest stationary angle is the maximum, not the minimum.
    bool nearMaximum;
    /// Radians to the nearest stationary angle.
    double angle() const;
};
PairPosition pairPosition(const Matrix& l, int j, int k);

} // namespace pelmora
