// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace batch {

struct Analysis;
struct AnalyseOptions;

/// Writes the text files that @p options ask for, like the pages' exports. A file that cannot be
/// written is reported, and the others are still written.
/// @returns how many could not be written
int writeTextFiles(const Analysis& analysis, const AnalyseOptions& options);

} // namespace batch
