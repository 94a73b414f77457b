// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// What a routine that may take long is doing, and how far it is.
struct Progress
{
    enum class Work {
        Reading,
        Correlations,
        Eigenvalues,
        Rotation,
        MinimalPairs,
        Drawing,
        RandomMatrices
    };

    Work work;
    double done = -1.0; ///< share of the work, 0 to 1; negative where the end is not known
    int sweep = 0;      ///< 1-based, of eigenvalues and rotations
    int factors = 0;    ///< of a rotation
};

/// Shows @p progress and tells whether to go on.
using ProgressReport = bool (*)(const Progress& progress);

/// Replaces the report that long routines ask and returns the one before it. The first report,
/// which null brings back, lets everything go on.
ProgressReport setProgressReport(ProgressReport report);

/// Asks the report in force; false: the user has cancelled, and the routine gives up.
bool goOn(const Progress& progress);

} // namespace pelmora
