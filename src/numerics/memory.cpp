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

/// Null also where the byte count does not fit into the machine's word.
template <typename T>
T* allocateBlock(std::size_t count)
{
    return count <= PTRDIFF_MAX / sizeof(T) ? static_cast<T*>(std::malloc(count * sizeof(T)))
                                            : nullptr;
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
    // The first row pointer leads to the element block, so it exists even without rows.
    double** pointers = allocateBlock<double*>(std::max<std::size_t>(rows, 1) + 1);
    if (!pointers) {
        reportError("allocation failure 1 in matrix()");
        return nullptr;
    }
    double* elements = allocateElements(rows, columns);
    if (!elements) {
        reportError("allocation failure 2 in matrix()");
        std::free(pointers);
        return nullptr;
    }
    double** m = pointers + 1 - nrl;
    m[nrl] = elements + 1 - ncl;
    for (std::size_t i = 1; i < rows; ++i)
        pointers[i + 1] = pointers[i] + columns;
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
