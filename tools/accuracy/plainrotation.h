// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

namespace pelmora {

/// Where the sweeps of a rotation lead by themselves, without an end to endless ones.
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

/// The mean over the variables of the squared communality. The criterion is never larger, and no
/// rotation changes it.
long double meanSquareCommunality(const Matrix& l, int m);

/// totalCriterion() by meanSquareCommunality(): takes out what rounding does to both in very many
/// sweeps.
long double relativeCriterion(const Matrix& l, int m);

} // namespace pelmora
