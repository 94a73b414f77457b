// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// How the factors of a page came about.
enum class FactorKind { Pelmora, Varimax, Initial };

/// Heading of a page of this kind. A blank ends it.
QString factorTitle(FactorKind kind);

/// Extension of a file of loadings; it also marks the image's proposed name.
QString loadingsExtension(FactorKind kind);

/// Extension of a file of factor scores.
QString scoresExtension(FactorKind kind);
