// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <cstdint>

namespace pelmora {

/// Totals that differ by no more than this count as equal.
inline constexpr double rotationTolerance = 1e-12;

/// Plain sweeps go to the nearest stationary point, which can be of the wrong kind; two sweeps may
/// then undo each other for ever, and where the criterion is flat the factors may drift for ever.
/// take() wants the total of every refining sweep and tells when it is time to give up. It must
/// never do so when a refinement would end by itself; none of these was seen to swing for more than
/// a dozen sweeps.
class EndlessRefinement
{
public:
    explicit EndlessRefinement(std::int64_t sweepLimit) : m_sweepLimit(sweepLimit) {}

    bool take(double total)
    {
        const double scale = std::fmax(1.0, std::fabs(total));
        const bool swings = std::fabs(total - m_last) > 1e-9 * scale &&
                            std::fabs(total - m_beforeLast) <= 1e-13 * scale;
        m_swings = swings ? m_swings + 1 : 0;
        m_beforeLast = m_last;
        m_last = total;
        return m_swings >= 1000 || ++m_sweeps >= m_sweepLimit;
    }

private:
    const std::int64_t m_sweepLimit;
    std::int64_t m_sweeps = 0;
    int m_swings = 0;
    double m_last = NAN;
    double m_beforeLast = NAN;
};

/// The bound on refining sweeps of m factors over p variables: a million, or fewer where that would
/// take much longer than a quarter of a minute, but never less than a hundred thousand. With a
/// hundred factors, refinements of forty thousand sweeps have ended by themselves.
inline std::int64_t refinementLimit(int m, int p)
{
    const double sweepCost = 0.5 * m * (m - 1.0) * (p + 100.0);
    return static_cast<std::int64_t>(std::fmax(1e5, std::fmin(2e10 / sweepCost, 1e6)));
}

/// Ends an endless refinement at the right kind of point: from the better of two successive states,
/// sweeps that rotate a pair only where that improves its criterion.
template <typename Sweeps>
void improveToTheEnd(Sweeps& sweeps, std::int64_t sweepLimit)
{
    const double before = sweeps.total();
    sweeps.plainSweep();
    if (sweeps.isBetter(before, sweeps.total()))
        sweeps.plainSweep();
    double previous = sweeps.total();
    for (std::int64_t i = 0; i < sweepLimit; ++i) {
        sweeps.improvingSweep();
        const double total = sweeps.total();
        if (!(std::fabs(total - previous) > rotationTolerance * std::fmax(1.0, std::fabs(total))))
            return;
        previous = total;
    }
}

/// The course of a rotation, whatever carries out its sweeps: two method-aware sweeps choose the
/// basin, plain ones refine until two totals agree. NaN ends it too.
/// Sweeps has methodAwareSweep() and plainSweep(), which return the total that rotation_sweep()
/// returns; improvingSweep(); total(), the criterion of all rotated columns; and isBetter() for two
/// of these.
template <typename Sweeps>
void driveRotation(Sweeps& sweeps, int m, int p)
{
    const double first = sweeps.methodAwareSweep();
    double previous = sweeps.methodAwareSweep();
    if (std::fabs(first - previous) <= rotationTolerance)
        return;
    const std::int64_t limit = refinementLimit(m, p);
    EndlessRefinement endless(limit);
    for (;;) {
        const double total = sweeps.plainSweep();
        if (!(std::fabs(previous - total) > rotationTolerance))
            return;
        if (endless.take(total))
            return improveToTheEnd(sweeps, limit / 20);
        previous = total;
    }
}

} // namespace pelmora
