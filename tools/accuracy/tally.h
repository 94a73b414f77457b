// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "rotationtrial.h"

#include <cstdint>
#include <iosfwd>

namespace pelmora {

/// What is counted over many rotations.
class Tally
{
public:
    void addDataSet() { ++m_dataSets; }
    /// Writes a line to @p faults when there is something wrong with the rotation.
    void addRotation(const RotationTrial& trial, std::int64_t number, int m, int method,
                     std::ostream& faults);
    void add(const Tally& other);

    bool hasFaults() const { return m_nan + m_touched + m_worse > 0; }

    static void writeHeader(std::ostream& out);
    void writeLine(std::ostream& out, const char* name) const;
    /// What went wrong; only zeros are good.
    void writeFaults(std::ostream& out) const;

private:
    std::int64_t m_dataSets = 0;
    std::int64_t m_rotations = 0;
    std::int64_t m_endless[2] = {}; ///< by RotationMethod
    std::int64_t m_improved = 0;    ///< endless ones that end better than both of their states
    std::int64_t m_early = 0;       ///< ended by themselves before all pairs were in place
    std::int64_t m_nan = 0;
    std::int64_t m_touched = 0;
    std::int64_t m_worse = 0;
    int m_longest = 0; ///< sweeps of those that ended by themselves
    double m_worstShortfall = 0.0;
    double m_slowest = 0.0; ///< seconds
};

} // namespace pelmora
