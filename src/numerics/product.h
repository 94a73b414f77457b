// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Matrix product into @p c, which the caller has allocated and which is neither factor; every
/// element is summed from 0.0 in increasing k.
/// @param flag  1: C = A^T B (A is r x p, B is r x q, C is p x q);
///              otherwise: C = A B (A is r x p, B is p x q, C is r x q)
void multiply(double** c, const double* const* a, int flag, const double* const* b, int r, int p,
              int q);

} // namespace pelmora
