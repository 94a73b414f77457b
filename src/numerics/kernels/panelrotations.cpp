// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Rotations that only change rows leave the columns independent of each other. Some rows of a strip
// or two take all rotations of a panel while they are in the first cache.

#include "numerics/kernels/panelrotations.h"

#include <algorithm>

namespace pelmora {

namespace {

struct RotateColumns
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(ColumnStrips& matrix, const PanelRotations& panel,
                                          int begin, int end, int columns)
    {
        constexpr int step = columnsAtOnce<Lanes>;
        for (int column = 0; column < columns; column += step)
            for (int i = 0; i < panel.count(); ++i)
                rotateTiles<Lanes>(matrix, panel, i, begin, end, column,
                                   std::min(column + step, columns));
    }
};

} // namespace

PanelRotations::PanelRotations(AlignedRows& storage, int n, int first)
    : m_first(first)
    , m_count(std::min(size, n - 1 - first))
    , m_present(reinterpret_cast<std::uint16_t*>(storage[size]))
{
    static_assert(sizeof(PlaneRotation) == 2 * sizeof(double));
    for (int i = 0; i < size; ++i)
        m_rotations[i] = reinterpret_cast<PlaneRotation*>(storage[i]);
    std::fill_n(m_present, n + size, std::uint16_t(0));
}

void rotateColumns(ColumnStrips& matrix, const PanelRotations& panel, int begin, int end,
                   int columns)
{
    runKernel<RotateColumns>(matrix, panel, begin, end, columns);
}

} // namespace pelmora
