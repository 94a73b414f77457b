// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

namespace pelmora {

/// Where a rotation leads without any help.
struct PlainRotation
{
    bool ended; ///< two totals differed by at most 1e-12, or were not numbers
    int sweeps;
    /// relativeCriterion() of the last two states.
    long double last;
    long double lastButOne;
};

/// Rotates in place as rotate() is described: two method-aware sweeps, then plain ones.
/// @param bound  the largest number of sweeps
PlainRotation rotatePlainly(Matrix& l, Matrix& b, int m, int method, int bound);

/// totalCriterion() by the mean square of the communalities. No rotation changes that, but rounding
/// does in very many sweeps, and this takes it out again.
long double relativeCriterion(const Matrix& l, int m);

} // namespace pelmora
