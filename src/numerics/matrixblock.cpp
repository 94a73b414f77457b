// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/matrixblock.h"

#include "numerics/errorreport.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>

namespace pelmora {

double** matrix_from_block(double* block, int nrow, int ncol)
{
    // As in matrix(): one spare pointer in front, and a first row even where there are none.
    const auto rows = static_cast<std::size_t>(std::max(nrow, 1));
    auto** pointers = static_cast<double**>(std::malloc((rows + 1) * sizeof(double*)));
    if (!pointers) {
        reportError("allocation failure 1 in matrix()");
        return nullptr;
    }
    double** m = pointers + 1;
    m[0] = block + 1;
    for (std::size_t i = 1; i < rows; ++i)
        m[i] = m[i - 1] + ncol;
    return m;
}

} // namespace pelmora
