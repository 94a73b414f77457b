// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <limits>

namespace pelmora {

/// What a result becomes after a failed allocation.
inline void fillWithNan(double* const* matrix, int rows, int columns)
{
    for (int i = 0; i < rows; ++i)
        std::fill_n(matrix[i], columns, std::numeric_limits<double>::quiet_NaN());
}

} // namespace pelmora
