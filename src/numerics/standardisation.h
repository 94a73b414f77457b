// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

namespace pelmora {

/// What correlate() standardises each variable by: z = (x - mean) * (1 / deviation), bit for bit.
struct Standardisation
{
    Vector means;
    Vector deviations;
    bool isNull() const { return means.isNull() || deviations.isNull(); }
};

/// The means and standard deviations of the variables of @p data, which are its rows when @p
/// rowWise, else its columns, with correlate()'s divisors. Null after a reported allocation
/// failure.
Standardisation standardisation(const Matrix& data, bool rowWise);

} // namespace pelmora
