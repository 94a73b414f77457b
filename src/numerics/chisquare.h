// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// The natural logarithm of the probability that a chi-square variable exceeds @p x: of any size,
/// where the probability itself would long be 0.
/// @param degrees  degrees of freedom, at least 1
double lnUpperChiSquare(double x, double degrees);

} // namespace pelmora
