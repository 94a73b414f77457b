// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/rotation.h"

#include <QString>

/// How the factors of a page came about: by which pelmora::RotationMethod.
enum class FactorKind : int {
    Pelmora = pelmora::PelmoraRotation,
    Varimax = pelmora::VarimaxRotation,
    Initial = pelmora::NoRotation
};

/// Heading of a page of this kind. A blank ends it.
QString factorTitle(FactorKind kind);

/// Extension of a file of loadings; it also marks the image's proposed name.
QString loadingsExtension(FactorKind kind);

/// Extension of a file of factor scores.
QString scoresExtension(FactorKind kind);
