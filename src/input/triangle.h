// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// Completes the lines of a triangle to those of a full square matrix. Entries are copied as text.
/// Where an upper line has an entry too many, or a lower line one too few, the lines stay a
/// triangle; what a lower line holds beyond its diagonal stays at its end.
namespace triangle {

QStringList withUpperDiagonal(const QStringList& lines);
QStringList withLowerDiagonal(const QStringList& lines);

/// Both take a triangle with its diagonal.
QStringList mirroredUpper(const QStringList& lines);
QStringList mirroredLower(const QStringList& lines);

} // namespace triangle
