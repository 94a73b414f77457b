// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/owners.h"

#include <iosfwd>

/// Writes a p x p matrix as a file that the correlation reader takes back: one line per row, every
/// value rounded to @p decimals (at most 9) and right aligned in 4 characters more, then the name
/// header. At least one blank precedes a value, and no value has an exponent.
void writeCorrelations(std::ostream& out, const pelmora::Matrix& correlations,
                       const VariableNames& names, unsigned decimals);
