// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The sweep for large matrices. Rotation by rotation, each ip would fetch the whole matrix once;
// here sixteen ip, a panel, share a fetch. Only the lower triangle is worked on. Of the rotations
// of one ip, an element (q, r) outside the panel, r < q, takes part in two:
//
//     (ip, r) pairs it with (q, ip): row q is carried along through the rotations found before;
//     (ip, q) pairs it with (ip, r): row q is rotated with row ip.
//
// What finds (ip, q) is element (q, ip) when it has been carried along as far as q. So a block of
// rows can take all ip of a panel, one after the other, before the next block takes the first:
// every element still takes part in its rotations in their order, and the bits are the same. A row
// of the panel is kept whole: its part beyond the diagonal stands for the column of ip.
//
// Two things wait until all rotations of the panel are known, since none is found from them: the
// columns left of the panel and the eigenvectors, of which rows are rotated and no more, and the
// panel's own columns, which the later ip of the panel change after the earlier ones.

#include "numerics/kernels/jacobisweeps.h"
#include "numerics/kernels/panelrotations.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace pelmora {

namespace {

constexpr int panelSize = PanelRotations::size;
constexpr int tileWidth = ColumnStrips::width;
static_assert(panelSize == tileWidth);

/// Enough rows for their dependency chains to fill the wait for each other.
constexpr int maximalBlock = 2 * panelSize;

/// Rows and columns of a block, both triangles; and rows of it in column ip.
struct DiagonalBlock
{
    double x[maximalBlock];
    double y[maximalBlock][maximalBlock];
};

/// The rows from @p first on.
struct Block
{
    int first;
    int size; ///< panelSize or maximalBlock
};

void fetchDiagonal(ColumnStrips& matrix, Block block, DiagonalBlock& diagonal)
{
    for (int i = 0; i < block.size; ++i)
        for (int j = 0; j <= i; ++j)
            diagonal.y[i][j] = diagonal.y[j][i] = *matrix.at(block.first + i, block.first + j);
}

void putDiagonalBack(const DiagonalBlock& diagonal, Block block, ColumnStrips& matrix)
{
    for (int i = 0; i < block.size; ++i)
        for (int j = 0; j < block.size; j += tileWidth)
            std::copy_n(diagonal.y[i] + j, tileWidth, matrix.at(block.first + i, block.first + j));
}

/// Squares of a tile, rows as lanes.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void fetchTransposed(const double* from, Lanes (&square)[laneCount<Lanes>])
{
    for (int i = 0; i < laneCount<Lanes>; ++i)
        square[i] = lanesAt<Lanes>(from + i * tileWidth).values;
    transpose(square);
}

template <typename Lanes>
PELMORA_ALWAYS_INLINE void putTransposed(Lanes (&square)[laneCount<Lanes>], double* to)
{
    transpose(square);
    for (int i = 0; i < laneCount<Lanes>; ++i)
        lanesAt<Lanes>(to + i * tileWidth).values = square[i];
}

/// Rotates pairs where @p present; elsewhere they keep every bit.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotateWhere(bool present, Lanes& g, Lanes& h, PlaneRotation r)
{
    typedef std::int64_t Mask __attribute__((vector_size(sizeof(Lanes))));
    const Mask mask = Mask{} - std::int64_t(present);
    Lanes newG = g;
    Lanes newH = h;
    rotatePair(newG, newH, r);
    g = mask ? newG : g;
    h = mask ? newH : h;
}

/// Carries rows along through as many rotations as there are lanes.
/// @param x     the rows' elements in column ip
/// @param tile  their elements in the columns of the rotations
/// @param r     the rotations, a column's each
struct CarryAlong
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void all(double* x, double* tile, int rows, const PlaneRotation* r)
    {
        constexpr int lanes = laneCount<Lanes>;
        for (int row = 0; row < rows; row += 2 * lanes) {
            double* other = tile + lanes * tileWidth;
            Lanes g = lanesAt<Lanes>(x + row).values;
            Lanes otherG = lanesAt<Lanes>(x + row + lanes).values;
            Lanes h[laneCount<Lanes>];
            Lanes otherH[laneCount<Lanes>];
            fetchTransposed(tile, h);
            fetchTransposed(other, otherH);
            for (int i = 0; i < lanes; ++i) {
                const PlaneRotation rotation = r[i];
                rotatePair(g, h[i], rotation);
                rotatePair(otherG, otherH[i], rotation);
            }
            lanesAt<Lanes>(x + row).values = g;
            lanesAt<Lanes>(x + row + lanes).values = otherG;
            putTransposed(h, tile);
            putTransposed(otherH, other);
            tile = other + lanes * tileWidth;
        }
    }

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void some(double* x, double* tile, int rows,
                                           const PlaneRotation* r,
                                           const bool (&present)[laneCount<Lanes>])
    {
        constexpr int lanes = laneCount<Lanes>;
        for (int row = 0; row < rows; row += lanes, tile += lanes * tileWidth) {
            Lanes g = lanesAt<Lanes>(x + row).values;
            Lanes h[laneCount<Lanes>];
            fetchTransposed(tile, h);
            for (int i = 0; i < lanes; ++i)
                rotateWhere(present[i], g, h[i], r[i]);
            lanesAt<Lanes>(x + row).values = g;
            putTransposed(h, tile);
        }
    }

    /// The columns of a tile, which begins with column @p first.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(double* x, double* tile, int rows,
                                          const PanelRotations& panel, int i, int first)
    {
        constexpr int lanes = laneCount<Lanes>;
        for (int column = first; column < first + tileWidth; column += lanes, tile += lanes) {
            bool present[laneCount<Lanes>];
            int count = 0;
            for (int k = 0; k < lanes; ++k)
                count += present[k] = panel.has(i, column + k);
            if (count == lanes)
                all<Lanes>(x, tile, rows, panel.at(i, column));
            else if (count > 0)
                some<Lanes>(x, tile, rows, panel.at(i, column), present);
        }
    }
};

/// Finds the rotations of all ip of a panel.
struct SweepPanel
{
    /// Those of ip with the rows of a block from row @p from on; applies them to the diagonal block
    /// alone.
    /// @param x            the elements in column ip, carried along up to the block
    /// @param firstMirror  rows before it keep their columns
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void findRotations(JacobiState& state, PanelRotations& panel,
                                                    int i, Block block, int from, int firstMirror,
                                                    double* x, DiagonalBlock& diagonal)
    {
        const int ip = panel.first() + i;
        const int rows = std::min(block.size, state.n - block.first);
        for (int q = from; q < rows; ++q) {
            const int iq = block.first + q;
            const double g = x[q];
            if (isDropped(state, g, ip, iq)) {
                x[q] = 0.0;
            } else if (std::fabs(g) > state.threshold) {
                const PlaneRotation rotation = startRotation(state, g, ip, iq);
                double* y = diagonal.y[q];
                rotateRows<Lanes>(x, y, block.size, rotation);
                x[q] = 0.0;
                for (int j = firstMirror; j < block.size; ++j)
                    diagonal.y[j][q] = y[j];
                panel.add(i, iq, rotation);
            }
        }
    }

    /// The panel's own rows, in its own columns.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void sweepOwnBlock(JacobiState& state, ColumnStrips& matrix,
                                                    PanelRotations& panel)
    {
        const Block own{panel.first(), panelSize};
        DiagonalBlock diagonal;
        fetchDiagonal(matrix, own, diagonal);
        for (int i = 0; i < panel.count(); ++i)
            findRotations<Lanes>(state, panel, i, own, i + 1, i + 1, diagonal.y[i], diagonal);
        putDiagonalBack(diagonal, own, matrix);
    }

    /// The elements of a block in column ip. The rotations of the ip before have not reached them
    /// yet.
    static void fetchColumn(ColumnStrips& matrix, const PanelRotations& panel, int i, Block block,
                            double* x)
    {
        const int ip = panel.first() + i;
        for (int q = 0; q < block.size; ++q)
            x[q] = *matrix.at(block.first + q, ip);
        if (i == 0)
            return;
        double last = *matrix.at(ip - 1, ip);
        for (int q = 0; q < block.size; ++q)
            if (panel.has(i - 1, block.first + q))
                rotatePair(last, x[q], *panel.at(i - 1, block.first + q));
    }

    /// Rotates the rows of a block with the row of the ip before, and carries them along for ip.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void passTiles(ColumnStrips& matrix, const PanelRotations& panel,
                                                int i, Block block, double* x)
    {
        const int end = block.first + block.size;
        for (int column = panel.first(); column < block.first;) {
            const int next = std::min(column + columnsAtOnce<Lanes>, block.first);
            if (i > 0)
                rotateTiles<Lanes>(matrix, panel, i - 1, block.first, end, column, next);
            for (; column < next && i < panel.count(); column += tileWidth)
                CarryAlong::run<Lanes>(x, matrix.at(block.first, column), block.size, panel, i,
                                       column);
            column = next;
        }
    }

    /// The rows of a block below the panel, in the columns from the panel's on.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void sweepBlock(JacobiState& state, ColumnStrips& matrix,
                                                 PanelRotations& panel, Block block)
    {
        DiagonalBlock diagonal;
        fetchDiagonal(matrix, block, diagonal);
        for (int i = 0; i < panel.count(); ++i) {
            fetchColumn(matrix, panel, i, block, diagonal.x);
            passTiles<Lanes>(matrix, panel, i, block, diagonal.x);
            findRotations<Lanes>(state, panel, i, block, 0, 0, diagonal.x, diagonal);
            for (int j = 0; j < block.size; j += tileWidth)
                std::copy_n(diagonal.x + j, tileWidth,
                            matrix.at(panel.first() + i, block.first + j));
        }
        passTiles<Lanes>(matrix, panel, panel.count(), block, diagonal.x);
        putDiagonalBack(diagonal, block, matrix);
    }

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(JacobiState& state, ColumnStrips& matrix,
                                          PanelRotations& panel)
    {
        sweepOwnBlock<Lanes>(state, matrix, panel);
        for (int row = panel.first() + panelSize; row < state.n; row += maximalBlock)
            sweepBlock<Lanes>(state, matrix, panel,
                              {row, state.n - row > panelSize ? maximalBlock : panelSize});
    }
};

/// Puts the panel's columns back below the diagonal, each when the ip before have changed it, and
/// rotates them with the ip that follow it.
struct FinishColumns
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(ColumnStrips& matrix, const PanelRotations& panel, int n)
    {
        const int first = panel.first();
        const int end = std::min(first + panelSize, n);
        // The rows themselves still hold columns beyond the diagonal.
        double own[panelSize][panelSize] = {};
        const auto row = [&](int q) { return q < end ? own[q - first] : matrix.at(q, first); };
        for (int column = first; column < end; ++column) {
            for (int q = column + 1; q < n; ++q)
                row(q)[column - first] = *matrix.at(column, q);
            const int i = column + 1 - first;
            // The lanes beyond the column are overwritten later.
            const int length = (i + laneCount<Lanes> - 1) / laneCount<Lanes> * laneCount<Lanes>;
            for (int q = column + 2; q < n && i < panel.count(); ++q)
                if (panel.has(i, q))
                    rotateRows<Lanes>(own[i], row(q), length, *panel.at(i, q));
        }
        for (int i = 0; i < end - first; ++i)
            std::copy_n(own[i], i, matrix.at(first + i, first));
    }
};

} // namespace

JacobiBlockSweeper::JacobiBlockSweeper(int n)
    : m_matrix(n)
    , m_vectors(n)
    , m_rotations(PanelRotations::rows(), PanelRotations::length(n))
{
}

bool JacobiBlockSweeper::sweep(JacobiState& state)
{
    constexpr double operationsPerElement = 1.5; // of both matrix and eigenvectors
    const int n = state.n;
    for (int first = 0; first < n; first += panelSize) {
        const int rotations = state.rotations;
        PanelRotations panel(m_rotations, n, first);
        runKernel<SweepPanel>(state, m_matrix, panel);
        runKernel<FinishColumns>(m_matrix, panel, n);
        rotateColumns(m_matrix, panel, n, first);
        rotateColumns(m_vectors, panel, n, n);
        if (!state.meter.goOnAfter(operationsPerElement * (state.rotations - rotations) * n))
            return false;
    }
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < i; ++j)
            *m_matrix.at(j, i) = *m_matrix.at(i, j);
    return true;
}

} // namespace pelmora
