// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"
#include "plainrotation.h"

namespace pelmora {

/// The outcome of one rotation, by rotate() and by plain sweeps alone.
struct RotationTrial
{
    PlainRotation plain{};
    double seconds = 0.0;   ///< of rotate() alone
    bool madeNan = false;   ///< of finite loadings
    bool untouched = false; ///< loadings and companion are the same to the bit both ways
    /// How much worse rotate() ended than the better of the last two states of plain sweeps, by
    /// relativeCriterion(). Negative: better than both.
    double shortfall = 0.0;
    /// The largest slope of relativeCriterion() over the angle of a pair.
    double steepestPair = 0.0;

    /// By more than rounding.
    bool isWorse() const { return !plain.ended && !(shortfall <= 1e-12); }
};

/// Rotates the first @p m factors of @p allLoadings both ways.
RotationTrial tryRotation(const Matrix& allLoadings, int m, int method);

} // namespace pelmora
