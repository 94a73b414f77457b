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
        Scores,
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
/// which null brings back, lets everything go on. What was cancelled before is forgotten.
ProgressReport setProgressReport(ProgressReport report);

/// Asks the report in force. False: the user has cancelled, and the routine gives up. From then on
/// the answer stays the same, without asking, so that the steps that follow give up too.
bool goOn(const Progress& progress);

/// Whether work was cancelled since the report in force was set.
bool isCancelled();

/// Asks goOn() each time that about a millisecond's work has come together: often enough for twenty
/// answers a second, and too seldom to be noticed in small problems.
class ProgressMeter
{
public:
    explicit ProgressMeter(const Progress& progress) : m_progress(progress) {}

    /// Counts some work, in operations of about a nanosecond. False: cancelled.
    bool goOnAfter(double operations)
    {
        m_pending += operations;
        return m_pending < millisecond || ask();
    }

    /// Reported when goOn() is asked next.
    Progress& progress() { return m_progress; }

private:
    bool ask();

    static constexpr double millisecond = 1e6;
    Progress m_progress;
    double m_pending = 0.0;
};

} // namespace pelmora
