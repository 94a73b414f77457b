// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/owners.h"

#include <iosfwd>
#include <string>

/// The text files that the "PCA" page writes: tab-separated columns under one line of titles,
/// numbers in fixed notation rounded by the precision, names in double quotes. R reads them by
/// read.table(file, header = TRUE, fileEncoding = "latin1").

/// @p name in double quotes; double quotes inside, which would end it, become single ones.
std::string quotedName(std::string name);

/// One line per factor: its number, eigenvalue, share of the variance and cumulative share in
/// percent.
/// @param table  what pelmora::varianceTable() returns
void writeEigenvalues(std::ostream& out, const pelmora::Matrix& table, unsigned decimals);

/// One line per variable: its name and one value per factor. Serves eigenvectors and loadings.
void writeFactorMatrix(std::ostream& out, const pelmora::Matrix& values, const VariableNames& names,
                       unsigned decimals);
