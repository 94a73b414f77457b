// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/columnstrips.h"
#include "numerics/kernels/jacobisweeps.h"
#include "numerics/kernels/lanes.h"

#include <cstddef>
#include <cstdint>

namespace pelmora {

/// The rotations of up to sixteen successive ip, the panel, with all iq.
class PanelRotations
{
public:
    static constexpr int size = ColumnStrips::width;

    /// @p storage: rows() rows of length(n); what is in them is forgotten.
    PanelRotations(AlignedRows& storage, int n, int first);

    static int rows() { return size + 1; }
    static int length(int n) { return 2 * (n + size); }

    int first() const { return m_first; }

    /// The number of ip that have an iq.
    int count() const { return m_count; }

    void add(int i, int iq, PlaneRotation rotation)
    {
        m_rotations[i][iq] = rotation;
        m_present[iq] = std::uint16_t(m_present[iq] | 1u << i);
    }

    /// Whether ip = first() + i rotates with @p iq. False for iq <= ip, and up to a panel's size
    /// beyond the last one.
    bool has(int i, int iq) const { return m_present[iq] >> i & 1; }

    /// Whether it rotates with any of @p count rows from @p iq on.
    bool hasAny(int i, int iq, int count) const
    {
        unsigned present = 0;
        for (int k = 0; k < count; ++k)
            present |= m_present[iq + k];
        return present >> i & 1;
    }

    /// The rotation of ip = first() + i with @p iq; those with iq + 1 and so on follow it.
    const PlaneRotation* at(int i, int iq) const { return m_rotations[i] + iq; }

private:
    int m_first;
    int m_count;
    PlaneRotation* m_rotations[size]; ///< of each i, by iq
    std::uint16_t* m_present;         ///< of each iq: bit i for ip = first() + i
};

/// As many columns as leave registers for the rest; one strip or two.
template <typename Lanes>
inline constexpr int columnsAtOnce = 8 * laneCount<Lanes>;

/// Applies the rotations of ip = first() + i with the rows from @p begin up to @p end to some
/// strips of columns.
/// @param ipRow  row ip in the first of these columns
/// @param row    row @p begin there, which the others follow
/// @param next   from a strip to the next one
template <typename Lanes, int Strips>
PELMORA_ALWAYS_INLINE void rotateStrips(double* ipRow, double* row, std::ptrdiff_t next,
                                        const PanelRotations& panel, int i, int begin, int end)
{
    constexpr int vectors = ColumnStrips::width / laneCount<Lanes>;
    Lanes x[std::size_t(Strips)][std::size_t(vectors)];
    for (int k = 0; k < Strips; ++k)
        for (int v = 0; v < vectors; ++v)
            x[k][v] = lanesAt<Lanes>(ipRow + k * next + v * laneCount<Lanes>).values;
    for (int iq = begin; iq < end; ++iq, row += ColumnStrips::width) {
        if (!panel.has(i, iq))
            continue;
        const PlaneRotation rotation = *panel.at(i, iq);
        for (int k = 0; k < Strips; ++k)
            for (int v = 0; v < vectors; ++v)
                rotatePairs(x[k][v], row + k * next + v * laneCount<Lanes>, rotation);
    }
    for (int k = 0; k < Strips; ++k)
        for (int v = 0; v < vectors; ++v)
            lanesAt<Lanes>(ipRow + k * next + v * laneCount<Lanes>).values = x[k][v];
}

/// The same in the columns of @p matrix from @p column up to @p endColumn, which is no further than
/// columnsAtOnce.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotateTiles(ColumnStrips& matrix, const PanelRotations& panel, int i,
                                       int begin, int end, int column, int endColumn)
{
    double* ipRow = matrix.at(panel.first() + i, column);
    double* row = matrix.at(begin, column);
    const std::ptrdiff_t next = matrix.nextStrip();
    if (columnsAtOnce < Lanes >> ColumnStrips::width && endColumn - column > ColumnStrips::width)
        rotateStrips<Lanes, 2>(ipRow, row, next, panel, i, begin, end);
    else
        rotateStrips<Lanes, 1>(ipRow, row, next, panel, i, begin, end);
}

/// Few enough rows for the first cache, and enough to pay for loading row ip.
inline constexpr int rowsAtOnce = 128;

/// Applies all rotations with the rows from @p begin up to @p end, rowsAtOnce of them or fewer, to
/// the first @p columns of a matrix.
void rotateColumns(ColumnStrips& matrix, const PanelRotations& panel, int begin, int end,
                   int columns);

} // namespace pelmora
