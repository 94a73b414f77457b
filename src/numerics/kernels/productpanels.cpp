// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/kernels/productpanels.h"

#include "numerics/kernels/lanes.h"

#include <cstddef>

namespace pelmora::productpanels {

namespace {

/// Adds the products of some variables with the eight of another panel to their sums. A tile of
/// sums, two or four variables against eight, stays in registers while it runs through the cases.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void addTile(const double* some, const double* eight, int count, double* sums,
                                   std::ptrdiff_t stride)
{
    constexpr int height = laneCount<Lanes>;
    constexpr int vectors = width / laneCount<Lanes>;
    Lanes tile[std::size_t{height}][std::size_t{vectors}];
    for (int r = 0; r < height; ++r)
        for (int v = 0; v < vectors; ++v)
            tile[r][v] = lanesAt<Lanes>(sums + r * stride + v * laneCount<Lanes>).values;
    for (int i = 0; i < count; ++i) {
        Lanes values[std::size_t{vectors}];
        for (int v = 0; v < vectors; ++v)
            values[v] = lanesAt<Lanes>(eight + i * width + v * laneCount<Lanes>).values;
        for (int r = 0; r < height; ++r)
            for (int v = 0; v < vectors; ++v)
                tile[r][v] += some[i * width + r] * values[v];
    }
    for (int r = 0; r < height; ++r)
        for (int v = 0; v < vectors; ++v)
            lanesAt<Lanes>(sums + r * stride + v * laneCount<Lanes>).values = tile[r][v];
}

struct AddBlock
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const AlignedRows& panels, int panelCount, int count,
                                          AlignedRows& sums)
    {
        for (int j = 0; j < panelCount; ++j)
            for (int k = j; k < panelCount; ++k)
                for (int r = 0; r < width; r += laneCount<Lanes>)
                    addTile<Lanes>(panels[j] + r, panels[k], count, sums[j * width + r] + k * width,
                                   sums.stride());
    }
};

} // namespace

void addProducts(const AlignedRows& panels, int panelCount, int count, AlignedRows& sums)
{
    runKernel<AddBlock>(panels, panelCount, count, sums);
}

} // namespace pelmora::productpanels
