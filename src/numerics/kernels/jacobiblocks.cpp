// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The blocked sweep for large matrices, which saves memory traffic. The rotations of row ip against
// a block of eight rows are computed first, from the 8 x 8 diagonal block and its part of row ip.
// They are then applied strip by strip: a strip of row ip stays in registers while the eight rows
// stream past it, one load and one store each. The mirrored columns are written by blocks too, a
// cache line per row, and only below ip: the part above is not read before the sweep ends and is
// copied then. Rotations never read eigenvectors, so those of eight successive ip are buffered and
// applied to one strip after another while it is in the cache.

#include "numerics/kernels/jacobisweeps.h"

#include <algorithm>
#include <cstdint>

namespace pelmora {

namespace {

constexpr int blockSize = 8;
constexpr int stripLength = 32;
constexpr int bufferSize = 8;

/// A rotation of row ip and row iq.
struct RowRotation
{
    PlaneRotation rotation;
    std::int64_t iq;
};
static_assert(sizeof(RowRotation) == 3 * sizeof(double));

/// The rows that a rotation concerns, from some column on.
struct Strip
{
    double* ipRow;
    double* firstRow;
    std::ptrdiff_t stride;
};

/// The rows are more streams than the hardware prefetcher follows, so each prefetches its part of
/// the next strip. Prefetching beyond the last row does no harm.
template <typename Lanes, int Vectors>
PELMORA_ALWAYS_INLINE void rotateStrip(const Strip& strip, const RowRotation* rotations, int count)
{
    constexpr int vectorsPerLine = 64 / sizeof(Lanes);
    constexpr int forWriting = 1;
    Lanes x[std::size_t(Vectors)];
    for (int i = 0; i < Vectors; ++i)
        x[i] = lanesAt<Lanes>(strip.ipRow + i * laneCount<Lanes>).values;
    for (const RowRotation* next = rotations; next != rotations + count; ++next) {
        const PlaneRotation rotation = next->rotation;
        double* y = strip.firstRow + next->iq * strip.stride;
        for (int i = 0; i < Vectors; ++i) {
            if (i % vectorsPerLine == 0)
                __builtin_prefetch(y + (Vectors + i) * laneCount<Lanes>, forWriting);
            rotatePairs(x[i], y + i * laneCount<Lanes>, rotation);
        }
    }
    for (int i = 0; i < Vectors; ++i)
        lanesAt<Lanes>(strip.ipRow + i * laneCount<Lanes>).values = x[i];
}

/// Applies rotations, in their order, to the columns from @p first up to @p end (multiples of
/// eight).
struct RotateStrips
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(AlignedRows& rows, int ip, const RowRotation* rotations,
                                          int count, int first, int end)
    {
        constexpr int length = 8 * laneCount<Lanes>;
        Strip strip{rows[ip] + first, rows[0] + first, rows.stride()};
        int left = end - first;
        for (; left >= length; left -= length) {
            rotateStrip<Lanes, 8>(strip, rotations, count);
            strip.ipRow += length;
            strip.firstRow += length;
        }
        rotateRest<Lanes>(strip, left / laneCount<Lanes>, rotations, count);
    }

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void rotateRest(const Strip& strip, int vectors,
                                                 const RowRotation* rotations, int count)
    {
        if (vectors == 6)
            rotateStrip<Lanes, 6>(strip, rotations, count);
        else if (vectors == 4)
            rotateStrip<Lanes, 4>(strip, rotations, count);
        else if (vectors == 2)
            rotateStrip<Lanes, 2>(strip, rotations, count);
    }
};

/// Writes the transpose of as many rows as there are lanes.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void writeTransposed(const double* from, double* to, std::ptrdiff_t stride)
{
    Lanes square[laneCount<Lanes>];
    for (int i = 0; i < laneCount<Lanes>; ++i)
        square[i] = lanesAt<Lanes>(from + i * stride).values;
    transpose(square);
    for (int i = 0; i < laneCount<Lanes>; ++i)
        lanesAt<Lanes>(to + i * stride).values = square[i];
}

/// Copies the eight rows of a block, from column @p first up to @p end, into the columns that
/// mirror them.
struct MirrorBlock
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(AlignedRows& rows, int block, int first, int end)
    {
        for (int column = first; column < end; column += laneCount<Lanes>)
            for (int row = block; row < block + blockSize; row += laneCount<Lanes>)
                writeTransposed<Lanes>(rows[row] + column, rows[column] + row, rows.stride());
    }
};

/// The diagonal block, and its part of row ip.
struct DiagonalBlock
{
    double x[blockSize];
    double y[blockSize][blockSize];
};

void fetchDiagonalBlock(AlignedRows& rows, int ip, int block, DiagonalBlock& diagonal)
{
    std::copy_n(rows[ip] + block, blockSize, diagonal.x);
    for (int i = 0; i < blockSize; ++i)
        std::copy_n(rows[block + i] + block, blockSize, diagonal.y[i]);
}

/// Finds the rotations of ip with the rows from @p first up to @p end, all in one block, and
/// applies them to the diagonal block alone.
int findRotations(JacobiState& state, int ip, int block, int first, int end,
                  DiagonalBlock& diagonal, RowRotation* rotations)
{
    int count = 0;
    for (int iq = first; iq < end; ++iq) {
        const int q = iq - block;
        const double g = diagonal.x[q];
        if (isDropped(state, g, ip, iq)) {
            diagonal.x[q] = 0.0;
        } else if (std::fabs(g) > state.threshold) {
            const PlaneRotation rotation = startRotation(state, g, ip, iq);
            for (int j = 0; j < blockSize; ++j)
                rotatePair(diagonal.x[j], diagonal.y[q][j], rotation);
            diagonal.x[q] = diagonal.y[q][q] = 0.0;
            for (int j = 0; j < blockSize; ++j)
                diagonal.y[j][q] = diagonal.y[q][j];
            rotations[count++] = {rotation, iq};
        }
    }
    return count;
}

/// All rotations of ip with the rows of one block; returns their number.
int sweepBlock(JacobiState& state, int ip, int block, RowRotation* rotations)
{
    AlignedRows& rows = state.matrix;
    const int firstBlock = (ip + 1) / blockSize * blockSize;
    const int width = AlignedRows::padded(state.n);
    const int first = std::max(block, ip + 1);
    const int end = std::min(block + blockSize, state.n);

    DiagonalBlock diagonal;
    fetchDiagonalBlock(rows, ip, block, diagonal);
    const int count = findRotations(state, ip, block, first, end, diagonal, rotations);
    if (count > 0) {
        // Column ip, in which rotations leave zeros, is rotated like any other, and mirrored into
        // row ip. No other column sees it; the lines below and mirrorRow() put both right.
        runKernel<RotateStrips>(rows, ip, rotations, count, 0, width);
        for (int iq = first; iq < block + blockSize; ++iq)
            std::copy_n(diagonal.y[iq - block], blockSize, rows[iq] + block);
        runKernel<MirrorBlock>(rows, block, firstBlock, block);
        runKernel<MirrorBlock>(rows, block, block + blockSize, width);
    }
    std::copy_n(diagonal.x, blockSize, rows[ip] + block);
    rows[ip][ip] = 0.0;
    return count;
}

/// The rotations of several successive ip.
struct BufferedRotations
{
    RowRotation* rotations[bufferSize];
    int count[bufferSize];
    int firstIp = 0;
    int size = 0;
};

void rotateEigenvectors(JacobiState& state, BufferedRotations& buffered)
{
    const int width = AlignedRows::padded(state.n);
    for (int column = 0; column < width; column += stripLength)
        for (int i = 0; i < buffered.size; ++i)
            runKernel<RotateStrips>(state.vectors, buffered.firstIp + i, buffered.rotations[i],
                                    buffered.count[i], column,
                                    std::min(column + stripLength, width));
    buffered.firstIp += buffered.size;
    buffered.size = 0;
}

} // namespace

JacobiBlockSweeper::JacobiBlockSweeper(int n)
    : m_rotations(bufferSize, n * int(sizeof(RowRotation) / sizeof(double)))
{
}

bool JacobiBlockSweeper::sweep(JacobiState& state)
{
    constexpr double operationsPerElement = 1.5; // of both rows and eigenvectors
    BufferedRotations buffered;
    for (int i = 0; i < bufferSize; ++i)
        buffered.rotations[i] = reinterpret_cast<RowRotation*>(m_rotations[i]);

    for (int ip = 0; ip < state.n - 1; ++ip) {
        RowRotation* rotations = buffered.rotations[buffered.size];
        int count = 0;
        for (int block = (ip + 1) / blockSize * blockSize; block < state.n; block += blockSize)
            count += sweepBlock(state, ip, block, rotations + count);
        mirrorRow(state, ip, ip + 1);
        buffered.count[buffered.size++] = count;
        if (buffered.size == bufferSize)
            rotateEigenvectors(state, buffered);
        if (!state.meter.goOnAfter(operationsPerElement * count * state.n))
            return false;
    }
    rotateEigenvectors(state, buffered);
    mirrorLowerTriangle(state);
    return true;
}

} // namespace pelmora
