// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"
#include "random.h"

#include <vector>

/// Input matrices of both programs. All are exactly symmetric.
namespace pelmora {

/// @p cases rows of answers to @p variables items that a few common factors and chance determine.
/// @param points  the answers are 1..points; 0 leaves them as real numbers
Matrix factorData(Random& random, int cases, int variables, int factors, int points);

/// Pearson correlations of the columns of @p data, which is used up.
Matrix correlationsOf(Matrix data);

/// A dense symmetric matrix with about the given eigenvalues, whose mean is 1.
Matrix withEigenvalues(Random& random, const std::vector<double>& eigenvalues);

/// Turns the planes of a matrix whose mean eigenvalue is 1 until its diagonal is 1 exactly.
/// Davies, P. I., Higham, N. J. (2000), BIT 40, 640-651.
void makeDiagonalOne(Matrix& a);

/// 1 on the diagonal, @p r elsewhere within blocks of @p blockSize variables, 0 between blocks.
Matrix equicorrelated(int n, double r, int blockSize);

/// Random correlations up to @p largest in size, which need not be positive semi-definite.
Matrix randomCorrelations(Random& random, int n, double largest);

/// Rounds every element, as journals print them.
void roundTo(Matrix& a, int decimals);

/// The covariances of variables with these standard deviations: a[i][j] = s[i] * s[j] * r[i][j].
void scale(Matrix& r, const std::vector<double>& deviations);

} // namespace pelmora
