// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/kernels/productpanels.h"

#include "numerics/kernels/lanes.h"

#include <algorithm>
#include <cstddef>

namespace pelmora::productpanels {

namespace {

/// Adds the products of some variables, as many as there are lanes, with some of another panel to
/// their sums. This tile of sums stays in registers while it runs through the cases.
template <typename Lanes, int Vectors>
PELMORA_ALWAYS_INLINE void addTile(const double* some, const double* others, int count,
                                   double* sums, std::ptrdiff_t stride)
{
    constexpr int height = laneCount<Lanes>;
    Lanes tile[std::size_t{height}][std::size_t{Vectors}];
    for (int r = 0; r < height; ++r)
        for (int v = 0; v < Vectors; ++v)
            tile[r][v] = lanesAt<Lanes>(sums + r * stride + v * laneCount<Lanes>).values;
    for (int i = 0; i < count; ++i) {
        Lanes values[std::size_t{Vectors}];
        for (int v = 0; v < Vectors; ++v)
            values[v] = lanesAt<Lanes>(others + i * width + v * laneCount<Lanes>).values;
        for (int r = 0; r < height; ++r)
            for (int v = 0; v < Vectors; ++v)
                tile[r][v] += some[i * width + r] * values[v];
    }
    for (int r = 0; r < height; ++r)
        for (int v = 0; v < Vectors; ++v)
            lanesAt<Lanes>(sums + r * stride + v * laneCount<Lanes>).values = tile[r][v];
}

/// The same with @p others variables, at most @p Vectors full of them.
template <typename Lanes, int Vectors = width / laneCount<Lanes>>
PELMORA_ALWAYS_INLINE void addTileOf(int others, const double* some, const double* first, int count,
                                     double* sums, std::ptrdiff_t stride)
{
    if constexpr (Vectors > 1)
        if (others <= (Vectors - 1) * laneCount<Lanes>)
            return addTileOf<Lanes, Vectors - 1>(others, some, first, count, sums, stride);
    addTile<Lanes, Vectors>(some, first, count, sums, stride);
}

/// Leaves out what lies below the diagonal, or beyond the last variable, by whole vectors.
struct AddBlock
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const AlignedRows& panels, int variables, int count,
                                          AlignedRows& sums)
    {
        for (int row = 0; row < variables; row += laneCount<Lanes>)
            for (int k = row / width; k < countFor(variables); ++k) {
                const int first = std::max(row, k * width);
                const int end = std::min((k + 1) * width, variables);
                addTileOf<Lanes>(end - first, panels[row / width] + row % width,
                                 panels[k] + first % width, count, sums[row] + first,
                                 sums.stride());
            }
    }
};

} // namespace

void addProducts(const AlignedRows& panels, int variables, int count, AlignedRows& sums)
{
    runKernel<AddBlock>(panels, variables, count, sums);
}

} // namespace pelmora::productpanels
