// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/memory.h"

#include "numerics/errorreport.h"
#include "numerics/largepages.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace pelmora {

namespace {

std::size_t lengthOf(int low, int high)
{
    return static_cast<std::size_t>(std::max<std::int64_t>(std::int64_t(high) - low + 1, 0));
}

/// Null also where the number of bytes overflows.
template <typename T>
T* allocateBlock(std::size_t count)
{
    return count <= PTRDIFF_MAX / sizeof(T) ? static_cast<T*>(std::malloc(count * sizeof(T)))
                                            : nullptr;
}

/// Row pointers, with a spare one in front. There is a first one even without rows, since it holds
/// the address of the element block.
double** allocateRowPointers(std::size_t rows)
{
    double** pointers = allocateBlock<double*>(std::max<std::size_t>(rows, 1) + 1);
    if (!pointers) {
        reportError("allocation failure 1 in matrix()");
        return nullptr;
    }
    return pointers + 1;
}

void setRows(double** m, std::size_t rows, double* first, std::size_t columns)
{
    m[0] = first;
    for (std::size_t i = 1; i < rows; ++i)
        m[i] = m[i - 1] + columns;
}

double* allocateElements(std::size_t rows, std::size_t columns)
{
    if (columns > 0 && rows > (PTRDIFF_MAX - 1) / columns)
        return nullptr;
    double* block = allocateBlock<double>(rows * columns + 1);
    if (block)
        adviseLargePages(block, (rows * columns + 1) * sizeof(double));
    return block;
}

} // namespace

double* dvector(int nl, int nh)
{
    double* block = allocateBlock<double>(lengthOf(nl, nh) + 1);
    if (!block) {
        reportError("allocation failure in dvector()");
        return nullptr;
    }
    return block + 1 - nl;
}

void free_dvector(double* v, int nl)
{
    if (v)
        std::free(v + nl - 1);
}

double** matrix(int nrl, int nrh, int ncl, int nch)
{
    const std::size_t rows = lengthOf(nrl, nrh);
    const std::size_t columns = lengthOf(ncl, nch);
    double** m = allocateRowPointers(rows);
    double* elements = allocateElements(rows, columns);
    if (!elements)
        reportError("allocation failure 2 in matrix()");
    // Both are tried, so that each failure is reported.
    if (!m || !elements) {
        std::free(elements);
        std::free(m ? m - 1 : nullptr);
        return nullptr;
    }
    setRows(m, rows, elements + 1 - ncl, columns);
    return m - nrl;
}

double** matrix_from_block(double* block, int nrow, int ncol)
{
    const std::size_t rows = lengthOf(1, nrow);
    double** m = allocateRowPointers(rows);
    if (m)
        setRows(m, rows, block + 1, lengthOf(1, ncol));
    return m;
}

void free_matrix(double** m, int nrl, int ncl)
{
    if (!m)
        return;
    std::free(m[nrl] + ncl - 1);
    std::free(m + nrl - 1);
}

} // namespace pelmora
