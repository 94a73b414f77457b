// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/alignedrows.h"

namespace pelmora {

/// Centred values of a block of cases, packed for sums of products: each panel is a row that holds
/// eight variables, case after case. Lanes beyond the last variable stay 0.
namespace productpanels {

inline constexpr int width = 8;
inline constexpr int casesPerBlock = 128;

/// Panels of so many variables.
inline int countFor(int variables)
{
    return AlignedRows::padded(variables) / width;
}

inline AlignedRows make(int variables)
{
    return {countFor(variables), casesPerBlock * width};
}

/// Adds the products of all pairs of variables, case after case, to their sums on and above the
/// diagonal; some below it are added to as well.
/// @param count  cases in the panels
/// @param sums   countFor(variables) * width rows of as many sums as there are variables
void addProducts(const AlignedRows& panels, int variables, int count, AlignedRows& sums);

} // namespace productpanels

} // namespace pelmora
