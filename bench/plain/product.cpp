// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/numerics.h"

namespace pelmora::plain {

void multiply(double** c, const double* const* a, int flag, const double* const* b, int r, int p,
              int q)
{
    const bool transposed = flag == 1;
    const int rows = transposed ? p : r;
    const int terms = transposed ? r : p;
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < q; ++j) {
            double sum = 0.0;
            for (int k = 0; k < terms; ++k)
                sum += (transposed ? a[k][i] : a[i][k]) * b[k][j];
            c[i][j] = sum;
        }
}

} // namespace pelmora::plain
