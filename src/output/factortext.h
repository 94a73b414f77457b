// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/owners.h"

#include <iosfwd>

/// Writes the loadings of each variable with its communality and its name, and the explained
/// variances in percent below a rule. Numbers are rounded to @p decimals.
void writeLoadings(std::ostream& out, const pelmora::Matrix& loadings, const VariableNames& names,
                   unsigned decimals);

/// Writes one line per case: each score as a table with @p decimals shows it, right aligned in
/// fields that are one character wider than the longest of them.
void writeScores(std::ostream& out, const pelmora::Matrix& scores, unsigned decimals);
