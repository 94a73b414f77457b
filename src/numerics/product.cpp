// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Register tiles: the sums of eight rows and two or four columns of the result stay in registers
// and share every load of a row of B. Each sum runs through k in order; rows and columns that fill
// no tile are computed one by one.

#include "numerics/product.h"

#include "numerics/kernels/lanes.h"

#include <cstddef>

namespace pelmora {

namespace {

constexpr int tileHeight = 8;

struct Operands
{
    double** c;
    const double* const* a;
    const double* const* b;
    int terms;
};

template <bool Transposed>
PELMORA_ALWAYS_INLINE double factor(const Operands& m, int i, int k)
{
    return Transposed ? m.a[k][i] : m.a[i][k];
}

/// As many columns as there are lanes, from j on.
template <typename Lanes, bool Transposed, int Rows>
PELMORA_ALWAYS_INLINE void someColumns(const Operands& m, int i, int j)
{
    Lanes sum[std::size_t(Rows)] = {};
    for (int k = 0; k < m.terms; ++k) {
        const Lanes b = lanesAt<Lanes>(m.b[k] + j).values;
        for (int row = 0; row < Rows; ++row)
            sum[row] += factor<Transposed>(m, i + row, k) * b;
    }
    for (int row = 0; row < Rows; ++row)
        lanesAt<Lanes>(m.c[i + row] + j).values = sum[row];
}

template <bool Transposed, int Rows>
PELMORA_ALWAYS_INLINE void oneColumn(const Operands& m, int i, int j)
{
    double sum[std::size_t(Rows)] = {};
    for (int k = 0; k < m.terms; ++k) {
        const double b = m.b[k][j];
        for (int row = 0; row < Rows; ++row)
            sum[row] += factor<Transposed>(m, i + row, k) * b;
    }
    for (int row = 0; row < Rows; ++row)
        m.c[i + row][j] = sum[row];
}

template <typename Lanes, bool Transposed, int Rows>
PELMORA_ALWAYS_INLINE void someRows(const Operands& m, int i, int columns)
{
    int j = 0;
    for (; j + laneCount<Lanes> <= columns; j += laneCount<Lanes>)
        someColumns<Lanes, Transposed, Rows>(m, i, j);
    for (; j < columns; ++j)
        oneColumn<Transposed, Rows>(m, i, j);
}

template <bool Transposed>
struct Multiply
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const Operands& m, int rows, int columns)
    {
        int i = 0;
        for (; i + tileHeight <= rows; i += tileHeight)
            someRows<Lanes, Transposed, tileHeight>(m, i, columns);
        for (; i < rows; ++i)
            someRows<Lanes, Transposed, 1>(m, i, columns);
    }
};

} // namespace

void multiply(double** c, const double* const* a, int flag, const double* const* b, int r, int p,
              int q)
{
    if (flag == 1)
        runKernel<Multiply<true>>(Operands{c, a, b, r}, p, q);
    else
        runKernel<Multiply<false>>(Operands{c, a, b, p}, r, q);
}

} // namespace pelmora
