// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/owners.h"

#include <iosfwd>

/// Writes @p values as a raw data file that reads back to exactly the same numbers and names: one
/// line per matrix row, values separated by tabs in their shortest plain decimal form, then the
/// name header.
void writeRawData(std::ostream& out, const pelmora::Matrix& values, const VariableNames& names);

/// The same with rows and columns exchanged.
void writeTransposed(std::ostream& out, const pelmora::Matrix& values, const VariableNames& names);
