// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <cstddef>

namespace pelmora {

/// Working rows of a kernel, filled with zeros. Each begins on a cache line and may be read and
/// written up to the next multiple of eight; their distance is an odd number of cache lines, so
/// that a walk down a column spreads over the whole cache. isNull() tells a failed allocation
/// (already reported).
class AlignedRows
{
public:
    AlignedRows() = default;
    AlignedRows(int rows, int length);

    bool isNull() const { return m_storage.isNull(); }
    std::ptrdiff_t stride() const { return m_stride; }
    double* operator[](std::ptrdiff_t row) { return m_first + row * m_stride; }
    const double* operator[](std::ptrdiff_t row) const { return m_first + row * m_stride; }

    /// The length that can be read and written: the next multiple of eight.
    static int padded(int length) { return (length + 7) / 8 * 8; }

private:
    Matrix m_storage;
    double* m_first = nullptr;
    std::ptrdiff_t m_stride = 0;
};

} // namespace pelmora
