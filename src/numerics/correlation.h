// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"
#include "numerics/standardisation.h"

namespace pelmora {

/// Pearson correlations of all variables, standardising the data on the way.
/// @param x     nrows x ncols raw data; z-scores (divisor n) afterwards
/// @param flag  1: variables are rows, cases are columns; otherwise variables are columns
/// @returns a new p x p matrix (p variables) that the caller frees with free_matrix(); null after a
///          reported allocation failure and when cancelled (see progress.h), the data then stay as
///          they are
/// Means, variances and cross products divide by n, the number of cases; only the mean of row-wise
/// data divides by p, the number of variables, on purpose. A variable without variance gives NaN.
/// Pearson, K. (1896), Phil. Trans. R. Soc. A 187, 253-318.
double** correlate(double** x, int nrows, int ncols, int flag);

/// The same correlations of data that stay as they are. Variables are the rows of @p data when @p
/// rowWise, else its columns.
/// @param used  receives what correlate() would standardise the data by
/// @returns p x p; null as above
Matrix correlations(const Matrix& data, bool rowWise, Standardisation& used);

} // namespace pelmora
