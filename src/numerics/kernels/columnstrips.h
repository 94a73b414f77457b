// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/alignedrows.h"

#include <cstddef>

namespace pelmora {

/// A square working matrix in strips of sixteen columns, filled with zeros. A strip is contiguous,
/// row after row, and begins on a cache line, so that work on some columns touches no more lines
/// and pages than these columns need. Rows and columns may be read and written up to the next
/// multiple of sixteen. isNull() tells a failed allocation (already reported).
class ColumnStrips
{
public:
    static constexpr int width = 16;

    explicit ColumnStrips(int n) : m_strips(blocks(n), blocks(n) * width * width) {}

    bool isNull() const { return m_strips.isNull(); }

    double* at(int row, int column)
    {
        return m_strips[column / width] + std::ptrdiff_t(row) * width + column % width;
    }

    /// From an element to the one sixteen columns further.
    std::ptrdiff_t nextStrip() const { return m_strips.stride(); }

private:
    static int blocks(int n) { return (n + width - 1) / width; }

    AlignedRows m_strips;
};

} // namespace pelmora
