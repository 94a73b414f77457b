// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/factoranalysis.h"
#include "numerics/obstacle.h"

/// Measures of how suitable correlations are for a factor analysis. R is a p x p correlation
/// matrix, D its decomposition and Q its inverse, computed from the eigenpairs.
namespace pelmora {

struct Adequacy
{
    /// The Kaiser-Meyer-Olkin measure: sum r_jk^2 / (sum r_jk^2 + sum a_jk^2), j != k, where a_jk
    /// are the partial correlations -q_jk / sqrt(q_jj q_kk).
    /// Kaiser, H. F. (1970), Psychometrika 35, 401-415; Kaiser, H. F. & Rice, J. (1974), Educ.
    /// Psychol. Meas. 34, 111-117.
    Computed<double> kmo;
    /// The same over each row, p values; NaN for a variable whose correlations are all 0.
    Vector msa;
    /// 1 - 1 / q_jj, p values. Guttman, L. (1953), Psychometrika 18, 277-296.
    Vector squaredMultipleCorrelations;
    /// p x p, q_jk / sqrt(q_jj q_kk), the MSA on its diagonal.
    Matrix antiImage;
    Computed<double> lnDeterminant;
    /// The largest eigenvalue divided by the smallest.
    Computed<double> eigenvalueRatio;
};

/// Where R has no inverse, msa, squaredMultipleCorrelations and antiImage are null; so they are
/// after a reported allocation failure.
Adequacy adequacy(const Matrix& r, const Decomposition& d);

/// The test of sphericity.
struct Bartlett
{
    double chiSquare = 0.0;
    double degrees = 0.0; ///< degrees of freedom, p (p - 1) / 2
    double lnP = 0.0;     ///< natural logarithm of p, which itself may be too small for a number
    double p = 1.0;
};

/// -(n - 1 - (2 p + 5) / 6) sum ln l_j over the eigenvalues l_j, for n > p.
/// Bartlett, M. S. (1950), Brit. J. Psychol. Stat. Sect. 3, 77-85; (1951), Biometrika 38, 337-344.
/// @param cases  n, or 0: unknown
Computed<Bartlett> bartlettTest(const Matrix& r, const Decomposition& d, int cases);

} // namespace pelmora
