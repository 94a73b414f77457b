// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/moments.h"

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <optional>
#include <string>

class QIODevice;

namespace batch {

/// What a file, or a part of one, contributes to the correlations of a table.
struct Sums
{
    pelmora::Moments moments;
    std::uint64_t dataLines = 0; ///< lines without entries included, which are no cases
    std::map<std::size_t, std::string> names; ///< given ones, by zero-based variable

    /// Merges the sums of the lines that follow, whose names win. Both have as many variables, or
    /// one has none.
    void merge(const Sums& next);
};

/// Writes a file of sums: "PELMSUM1", uint32 p, uint64 cases, uint64 data lines, p doubles shift, p
/// doubles rest, p (p + 1) / 2 doubles of the upper triangle row by row; all of it little-endian;
/// then the name lines as text.
void writeSums(std::ostream& out, const Sums& sums);

/// Nothing where @p device holds no such file, or not all of it.
std::optional<Sums> readSums(QIODevice& device);

} // namespace batch
