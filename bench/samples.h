// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

/// Data to measure with, the same on every machine: none of the library's distributions, which may
/// differ.
namespace samples {

/// Answers to a questionnaire (cases x variables): each group of five variables has something in
/// common, and all have a little.
pelmora::Matrix answers(int cases, int variables);

/// Cases of variables behind which as many factors stand: each variable shows one of them clearly,
/// two others a little, and much of its own. With two cases per variable a rotation needs as many
/// sweeps as the loadings of ordinary questionnaires do.
pelmora::Matrix factorial(int cases, int variables, int factors, int dataSet);

pelmora::Matrix correlationsOf(pelmora::Matrix data);

/// What a rotation starts from.
struct Unrotated
{
    pelmora::Matrix loadings;     ///< variables x (factors + 1)
    pelmora::Matrix coefficients; ///< variables x factors
};

/// Of factorial(), two cases per variable.
Unrotated unrotatedFactors(int variables, int factors, int dataSet);

void copyInto(pelmora::Matrix& to, const pelmora::Matrix& from);

} // namespace samples
