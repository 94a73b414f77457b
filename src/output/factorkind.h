// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

/// How the factors of a page came about.
enum class FactorKind { Pelmora, Varimax, Initial };

/// Heading of a page of this kind, untranslated: it identifies the kind. A blank ends it.
QString factorTitle(FactorKind kind);

/// The kind with the untranslated heading @p title; none for any other text.
std::optional<FactorKind> kindOfTitle(const QString& title);

/// The heading in the user's language.
QString translatedTitle(FactorKind kind);

/// Extension of a file of loadings; it also marks the image's proposed name.
QString loadingsExtension(FactorKind kind);

/// Extension of a file of factor scores.
QString scoresExtension(FactorKind kind);
