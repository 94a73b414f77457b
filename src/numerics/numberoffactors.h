// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/factoranalysis.h"
#include "numerics/obstacle.h"

/// Rules for the number of factors. R are p x p correlations and D their decomposition.
namespace pelmora {

/// How many eigenvalues are at least 1.
/// Guttman, L. (1954), Psychometrika 19, 149-161; Kaiser, H. F. (1960), Educ. Psychol. Meas. 20,
/// 141-151.
int countEigenvaluesOfAtLeastOne(const Vector& eigenvalues);

/// The number of factors that is proposed: those, but at least 2 where there are two variables.
int proposedFactors(const Vector& eigenvalues);

/// How many leading @p eigenvalues are above their @p references, up to the first that is not.
int countLeadingAbove(const Vector& eigenvalues, const Vector& references);

/// The average squared partial correlations that m components leave, m = 0 .. p - 2.
struct MinimumAveragePartial
{
    Vector squares;
    Vector fourthPowers;
    /// The first m within 1e-12 of the smallest.
    int bySquares = 0;
    int byFourthPowers = 0;
};

/// The averages end early where a component leaves less than 1e-8 of a variable: nothing but
/// rounding. Null vectors after a reported allocation failure.
/// Velicer, W. F. (1976), Psychometrika 41, 321-327; fourth powers: Velicer, Eaton & Fava (2000),
/// in Goffin & Helmes (eds.), Problems and Solutions in Human Assessment, 41-71.
Computed<MinimumAveragePartial> minimumAveragePartial(const Matrix& r, const Decomposition& d);

struct EmpiricalKaiser
{
    Vector references; ///< p
    int factors = 0;
};

/// Reference j is max(1, (1 + sqrt(p / n))^2 (p - l_1 - .. - l_(j-1)) / (p - j + 1)), with the
/// eigenvalues l in the sum, not with the references before it.
/// Braeken, J. & van Assen, M. A. L. M. (2017), Psychol. Methods 22, 450-466.
/// @param cases  n, at least 3, or 0: unknown
Computed<EmpiricalKaiser> empiricalKaiserCriterion(const Matrix& r, const Decomposition& d,
                                                   int cases);

} // namespace pelmora
