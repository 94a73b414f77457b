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
// Finding a rotation is a long chain of divisions and roots, and the next one of the same ip has to
// wait for it. A band of blocks therefore takes turns: when one block is at some ip, the block
// below it is at the ip before, and their chains run side by side.
//
// Two things wait until all rotations of the panel are known, since none is found from them: the
// columns left of the panel and the eigenvectors, of which rows are rotated and no more, and the
// panel's own columns, which the later ip of the panel change after the earlier ones.

#include "numerics/kernels/jacobisweeps.h"
#include "numerics/kernels/panelrotations.h"

#include <algorithm>
#include <cstddef>

namespace pelmora {

namespace {

constexpr int panelSize = PanelRotations::size;
constexpr int tileWidth = ColumnStrips::width;
constexpr int blockSize = 16;
static_assert(panelSize == tileWidth && blockSize == tileWidth);

/// Enough chains to fill the wait for each other.
constexpr int blocksAtOnce = 4;

/// Some rows, with what has to be at hand to find their rotations.
struct Block
{
    int first;
    int rows;                       ///< fewer than a block's size at the end of the matrix
    double x[blockSize];            ///< their elements in column ip
    double y[blockSize][blockSize]; ///< their elements in their own columns, both triangles
};

/// Blocks that follow each other and take turns.
struct Band
{
    int count;
    Block blocks[blocksAtOnce];

    /// Whether block @p k is at an ip of the panel when the first block is at i = @p turn.
    bool isTurn(int k, int turn, const PanelRotations& panel) const
    {
        return k < count && turn >= k && turn - k < panel.count();
    }
};

void fetchBlock(ColumnStrips& matrix, int n, int first, Block& block)
{
    block.first = first;
    block.rows = std::min(blockSize, n - first);
    for (int i = 0; i < blockSize; ++i)
        for (int j = 0; j <= i; ++j)
            block.y[i][j] = block.y[j][i] = *matrix.at(first + i, first + j);
}

void putBlockBack(const Block& block, ColumnStrips& matrix)
{
    std::copy_n(block.y[0], blockSize * blockSize, matrix.at(block.first, block.first));
}

/// Carries the rows of a block along through the rotations of one ip with the columns of a tile.
struct CarryAlong
{
    /// So many vectors of rows side by side fill the wait for each other, and the registers.
    static constexpr int vectors = 4;

    /// Squares of the tile, rows as lanes.
    template <typename Lanes>
    using Squares = Lanes[std::size_t(vectors)][laneCount<Lanes>];

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void fetch(const double* tile, Squares<Lanes>& h)
    {
        for (auto& square : h) {
            for (Lanes& row : square) {
                row = lanesAt<Lanes>(tile).values;
                tile += tileWidth;
            }
            transpose(square);
        }
    }

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void putBack(Squares<Lanes>& h, double* tile)
    {
        for (auto& square : h) {
            transpose(square);
            for (const Lanes& row : square) {
                lanesAt<Lanes>(tile).values = row;
                tile += tileWidth;
            }
        }
    }

    /// @param x      the rows' elements in column ip
    /// @param i      tells ip
    /// @param first  the first column of the tile
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(double* x, double* tile, const PanelRotations& panel,
                                          int i, int first)
    {
        constexpr int lanes = laneCount<Lanes>;
        constexpr int rows = vectors * lanes;
        for (int row = 0; row < blockSize; row += rows, x += rows, tile += rows * tileWidth) {
            Lanes g[std::size_t(vectors)];
            for (int k = 0; k < vectors; ++k)
                g[k] = lanesAt<Lanes>(x + k * lanes).values;
            for (int column = 0; column < tileWidth; column += lanes) {
                if (!panel.hasAny(i, first + column, lanes))
                    continue;
                Squares<Lanes> h;
                fetch<Lanes>(tile + column, h);
                for (int j = 0; j < lanes; ++j) {
                    const int iq = first + column + j;
                    if (!panel.has(i, iq))
                        continue;
                    const PlaneRotation rotation = *panel.at(i, iq);
                    for (int k = 0; k < vectors; ++k)
                        rotatePair(g[k], h[k][j], rotation);
                }
                putBack<Lanes>(h, tile + column);
            }
            for (int k = 0; k < vectors; ++k)
                lanesAt<Lanes>(x + k * lanes).values = g[k];
        }
    }
};

/// Finds the rotations of all ip of a panel. Returns false when the user has cancelled.
struct SweepPanel
{
    /// That of ip with iq, if there is one to be made.
    /// @param x  the element in row iq and column ip, carried along up to it
    PELMORA_ALWAYS_INLINE static bool findRotation(JacobiState& state, PanelRotations& panel, int i,
                                                   int iq, double& x)
    {
        const int ip = panel.first() + i;
        const double g = x;
        if (isDropped(state, g, ip, iq)) {
            x = 0.0;
            return false;
        }
        if (!(std::fabs(g) > state.threshold))
            return false;
        panel.add(i, iq, startRotation(state, g, ip, iq));
        return true;
    }

    /// Rotates row @p q of a block.
    /// @param x            the elements in column ip
    /// @param firstMirror  rows before it keep their columns
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void rotateRow(Block& block, int q, PlaneRotation rotation,
                                                double* x, int firstMirror)
    {
        double* y = block.y[q];
        rotateRows<Lanes>(x, y, blockSize, rotation);
        x[q] = 0.0;
        for (int j = firstMirror; j < blockSize; ++j)
            block.y[j][q] = y[j];
    }

    /// The panel's own rows, in its own columns.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void sweepOwnBlock(JacobiState& state, ColumnStrips& matrix,
                                                    PanelRotations& panel)
    {
        Block own;
        fetchBlock(matrix, state.n, panel.first(), own);
        for (int i = 0; i < panel.count(); ++i)
            for (int q = i + 1; q < own.rows; ++q)
                if (findRotation(state, panel, i, own.first + q, own.y[i][q]))
                    rotateRow<Lanes>(own, q, *panel.at(i, own.first + q), own.y[i], i + 1);
        putBlockBack(own, matrix);
    }

    /// Rotates the rows of a block with the row of the ip before, and carries them along for ip.
    /// One of the two is wanting at either end of the panel, both beyond.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void pass(ColumnStrips& matrix, const PanelRotations& panel, int i,
                                           Block& block)
    {
        if (i < 0 || i > panel.count())
            return;
        for (int column = panel.first(); column < block.first; column += columnsAtOnce<Lanes>) {
            const int end = std::min(column + columnsAtOnce<Lanes>, block.first);
            if (i > 0)
                rotateTiles<Lanes>(matrix, panel, i - 1, block.first, block.first + blockSize,
                                   column, end);
            if (i == panel.count())
                continue;
            if (column == panel.first()) // All ip before have reached column ip by now.
                for (int q = 0; q < blockSize; ++q)
                    block.x[q] = *matrix.at(block.first + q, panel.first() + i);
            for (int tile = column; tile < end; tile += tileWidth)
                CarryAlong::run<Lanes>(block.x, matrix.at(block.first, tile), panel, i, tile);
        }
    }

    /// The rotations of the blocks whose turn it is, each with its own ip.
    /// @param turn  the first block's i
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void findSideBySide(JacobiState& state, PanelRotations& panel,
                                                     Band& band, int turn)
    {
        for (int q = 0; q < blockSize; ++q) {
            bool found[blocksAtOnce];
            for (int k = 0; k < blocksAtOnce; ++k) {
                Block& block = band.blocks[k];
                found[k] = band.isTurn(k, turn, panel) && q < block.rows &&
                           findRotation(state, panel, turn - k, block.first + q, block.x[q]);
            }
            for (int k = 0; k < blocksAtOnce; ++k) {
                Block& block = band.blocks[k];
                if (found[k])
                    rotateRow<Lanes>(block, q, *panel.at(turn - k, block.first + q), block.x, 0);
            }
        }
    }

    /// The blocks of a band, in the columns from the panel's on.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void sweepBand(JacobiState& state, ColumnStrips& matrix,
                                                PanelRotations& panel, Band& band)
    {
        for (int turn = 0; turn < panel.count() + band.count; ++turn) {
            for (int k = 0; k < band.count; ++k)
                pass<Lanes>(matrix, panel, turn - k, band.blocks[k]);
            findSideBySide<Lanes>(state, panel, band, turn);
            for (int k = 0; k < blocksAtOnce; ++k)
                if (band.isTurn(k, turn, panel))
                    std::copy_n(band.blocks[k].x, blockSize,
                                matrix.at(panel.first() + turn - k, band.blocks[k].first));
        }
    }

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static bool run(JacobiState& state, ColumnStrips& matrix,
                                          PanelRotations& panel)
    {
        constexpr double operationsPerElement = 0.5;
        sweepOwnBlock<Lanes>(state, matrix, panel);
        for (int row = panel.first() + panelSize; row < state.n;) {
            const int rotations = state.rotations;
            Band band{};
            for (; band.count < blocksAtOnce && row < state.n; row += blockSize)
                fetchBlock(matrix, state.n, row, band.blocks[band.count++]);
            sweepBand<Lanes>(state, matrix, panel, band);
            for (int k = 0; k < band.count; ++k)
                putBlockBack(band.blocks[k], matrix);
            if (!state.meter.goOnAfter(operationsPerElement * (state.rotations - rotations) *
                                       state.n))
                return false;
        }
        return true;
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
            if (i >= panel.count())
                continue;
            // What that does to the columns that follow is overwritten by them.
            rotateStrips<Lanes, 1>(own[i], own[i] + tileWidth, 0, panel, i, column + 2, end);
            rotateStrips<Lanes, 1>(own[i], matrix.at(end, first), 0, panel, i, end, n);
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

/// Applies the rotations of a panel, @p found in all, to what has waited for them.
bool JacobiBlockSweeper::rotateRest(JacobiState& state, const PanelRotations& panel, int found)
{
    const int n = state.n;
    const double operations = double(found) * n / (n - panel.first());
    for (int begin = panel.first() + 1; begin < n; begin += rowsAtOnce) {
        const int end = std::min(begin + rowsAtOnce, n);
        rotateColumns(m_matrix, panel, begin, end, panel.first());
        rotateColumns(m_vectors, panel, begin, end, n);
        if (!state.meter.goOnAfter(operations * (end - begin)))
            return false;
    }
    return true;
}

bool JacobiBlockSweeper::sweep(JacobiState& state)
{
    const int n = state.n;
    for (int first = 0; first < n; first += panelSize) {
        const int rotations = state.rotations;
        PanelRotations panel(m_rotations, n, first);
        if (!runKernel<SweepPanel>(state, m_matrix, panel))
            return false;
        runKernel<FinishColumns>(m_matrix, panel, n);
        if (!rotateRest(state, panel, state.rotations - rotations))
            return false;
    }
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < i; ++j)
            *m_matrix.at(j, i) = *m_matrix.at(i, j);
    return true;
}

} // namespace pelmora
