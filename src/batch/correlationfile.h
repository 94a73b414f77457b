// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "batch/sumsfile.h"

#include <QString>

namespace batch {

/// Writes a correlation file from which the same bits are read back: the full square in the
/// shortest decimals that give them, the names, and CorrelationComments.
/// Where there are no correlations (fewer than two cases, a constant variable, squares beyond the
/// range of doubles) nothing is written, and @p table is named in the message.
/// @returns an ExitCode
int writeExactCorrelations(const Sums& sums, const QString& table, const QString& path);

} // namespace batch
