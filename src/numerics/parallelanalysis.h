// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"
#include "numerics/randomnumbers.h"

#include <optional>

namespace pelmora {

/// The distribution of the eigenvalues of correlations between independent normal variables.
struct RandomEigenvalues
{
    int matrices = 0;
    int cases = 0;
    Vector mean;       ///< p, of the largest, the second largest ..
    Vector quantile95; ///< p, linear between the two nearest
};

/// Parallel analysis: the eigenvalues of @p matrices random correlation matrices, always the same
/// ones. To be compared with countLeadingAbove(), where nothing is obstacleToComparison().
/// @param cases  n; the time does not depend on it
/// Asks goOn() for every matrix. Nothing when that says no or after a reported allocation failure.
/// Horn, J. L. (1965), Psychometrika 30, 179-185; quantile: Glorfeld, L. W. (1995), Educ. Psychol.
/// Meas. 55, 377-393.
std::optional<RandomEigenvalues> parallelAnalysis(int variables, int cases, int matrices);

/// How many random matrices are drawn where the user names no number.
int proposedMatrices(int variables);

/// Fills @p r (p x p) with correlations of a sample of @p cases from p independent normal
/// variables. The sample is never drawn: its cross products are T'T with T upper triangular,
/// squared diagonal elements chi-square, normals beside them. Bartlett, M. S. (1933), Proc. R. Soc.
/// Edinb. 53, 260-283.
/// @param t  p working numbers
void randomCorrelations(RandomNumbers& random, int cases, Matrix& r, Vector& t);

} // namespace pelmora
