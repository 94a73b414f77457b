// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/kernels/alignedrows.h"

#include <algorithm>
#include <cstdint>

namespace pelmora {

namespace {

constexpr int lineLength = 64 / sizeof(double);

int oddLines(int length)
{
    const int stride = AlignedRows::padded(length);
    return stride / lineLength % 2 ? stride : stride + lineLength;
}

double* nextLine(double* position)
{
    const auto address = reinterpret_cast<std::uintptr_t>(position);
    return position + (64 - address % 64) % 64 / sizeof(double);
}

} // namespace

AlignedRows::AlignedRows(int rows, int length)
    : m_storage(rows + 1, oddLines(length)) // the spare row is for the alignment
    , m_stride(m_storage.columns())
{
    if (isNull())
        return;
    m_first = nextLine(m_storage[0]);
    std::fill_n(m_first, rows * m_stride, 0.0);
}

} // namespace pelmora
