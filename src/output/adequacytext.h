// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/adequacy.h"
#include "numerics/numberoffactors.h"
#include "numerics/parallelanalysis.h"

#include <QString>

/// The lines on the adequacy of correlations and on the number of factors, in the user's language.
/// Numbers are rounded to @p decimals. A number that cannot be computed is replaced by the reason.
namespace adequacytext {

QString kmo(const pelmora::Computed<double>& kmo, unsigned decimals);
QString bartlett(const pelmora::Computed<pelmora::Bartlett>& test, unsigned decimals);
QString determinant(const pelmora::Computed<double>& lnDeterminant, unsigned decimals);
QString eigenvalueRatio(const pelmora::Computed<double>& ratio, unsigned decimals);

QString eigenvaluesOfAtLeastOne(int count);
/// @param random  null: not computed yet
QString parallelAnalysis(const pelmora::Obstacle& obstacle,
                         const pelmora::RandomEigenvalues* random,
                         const pelmora::Vector& eigenvalues);
QString empiricalKaiser(const pelmora::Computed<pelmora::EmpiricalKaiser>& criterion);
QString minimumAveragePartial(const pelmora::Computed<pelmora::MinimumAveragePartial>& map);

/// Why there is no anti-image; empty without an obstacle.
QString antiImage(const pelmora::Obstacle& obstacle);

/// Why a number cannot be computed: "the diagonal is not 1"; empty without an obstacle.
QString reason(const pelmora::Obstacle& obstacle);

/// From "marvelous" to "unacceptable". Kaiser, H. F. (1974), Psychometrika 39, 31-36.
QString kaisersWord(double measure);

/// What the table tells of a variable's measure: "unacceptable", "all correlations are 0" where it
/// is not a number, or nothing.
QString note(double msa);

/// Three significant digits in plain decimals, trailing zeros kept.
QString threeDigits(double x);

} // namespace adequacytext
