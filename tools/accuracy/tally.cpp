// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "tally.h"

#include "numerics/rotation.h"

#include <algorithm>
#include <iomanip>
#include <ostream>

namespace pelmora {

namespace {

/// What a difference of criteria must exceed to be more than rounding.
constexpr double rounding = 1e-12;
/// A slope that is no longer that of a pair in place; usual are 1e-9 and less.
constexpr double steep = 1e-6;

} // namespace

void Tally::addRotation(const RotationTrial& trial, std::int64_t number, int m, int method,
                        std::ostream& faults)
{
    const bool endless = !trial.plain.ended;
    const bool touched = !endless && !trial.untouched;
    const bool worse = trial.isWorse();
    if (trial.madeNan || touched || worse)
        faults << "data set " << number << ", " << m << " factors, method " << method
               << (trial.madeNan ? ": NaN" : "") << (touched ? ": other bits" : "")
               << (worse ? ": worse" : "") << ", shortfall " << trial.shortfall << ", "
               << trial.plain.sweeps << " sweeps" << std::endl;
    ++m_rotations;
    m_endless[method] += endless;
    m_improved += endless && trial.shortfall < -rounding;
    m_early += !endless && trial.steepestPair > steep;
    m_nan += trial.madeNan;
    m_touched += touched;
    m_worse += worse;
    if (!endless)
        m_longest = std::max(m_longest, trial.plain.sweeps);
    m_worstShortfall = std::max(m_worstShortfall, trial.shortfall);
    m_slowest = std::max(m_slowest, trial.seconds);
}

void Tally::add(const Tally& other)
{
    m_dataSets += other.m_dataSets;
    m_rotations += other.m_rotations;
    for (const int method : {PelmoraRotation, VarimaxRotation})
        m_endless[method] += other.m_endless[method];
    m_improved += other.m_improved;
    m_early += other.m_early;
    m_nan += other.m_nan;
    m_touched += other.m_touched;
    m_worse += other.m_worse;
    m_longest = std::max(m_longest, other.m_longest);
    m_worstShortfall = std::max(m_worstShortfall, other.m_worstShortfall);
    m_slowest = std::max(m_slowest, other.m_slowest);
}

void Tally::writeHeader(std::ostream& out)
{
    out << "| kind | data sets | rotations | endless: Varimax | Pelmora | of these improved "
           "| longest that ended | out of place | slowest |\n"
           "|---|--:|--:|--:|--:|--:|--:|--:|--:|\n";
}

void Tally::writeLine(std::ostream& out, const char* name) const
{
    out << "| " << name << " | " << m_dataSets << " | " << m_rotations << " | "
        << m_endless[VarimaxRotation] << " | " << m_endless[PelmoraRotation] << " | " << m_improved
        << " | " << m_longest << " sweeps | " << m_early << " | " << std::fixed
        << std::setprecision(2) << m_slowest << " s |\n";
}

void Tally::writeFaults(std::ostream& out) const
{
    out << "- finite loadings turned into NaN: " << m_nan
        << "\n- ended by themselves, yet other bits: " << m_touched
        << "\n- endless, yet ended worse than the better of two states: " << m_worse
        << " (largest difference " << std::scientific << std::setprecision(1) << m_worstShortfall
        << ")\n";
}

} // namespace pelmora
