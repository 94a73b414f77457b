// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

namespace pelmora {

/// What correlate() standardises each variable by: z = (x - mean) * scale, bit for bit.
struct Standardisation
{
    Vector means;
    Vector deviations; ///< divisor n
    Vector scales;     ///< 1 / deviation
    bool isNull() const { return means.isNull() || deviations.isNull() || scales.isNull(); }
};

/// Raw data and what standardises them: z-scores without a second copy of the data.
struct RawScores
{
    const Matrix* data = nullptr;          ///< null: there are none
    const Standardisation* used = nullptr; ///< by correlations() of the same data
    bool rowWise = false;                  ///< whether the rows of the data are the variables

    bool isNull() const { return data == nullptr || used == nullptr; }
    int cases() const { return rowWise ? data->columns() : data->rows(); }
};

/// Writes the z-scores of @p count cases from @p first on into the first rows of @p zScores, one
/// case per row. The bits are correlate()'s.
void standardise(const RawScores& raw, int first, int count, Matrix& zScores);

} // namespace pelmora
