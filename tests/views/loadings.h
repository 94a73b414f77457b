// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/namedmatrix.h"

#include <algorithm>
#include <initializer_list>

inline pelmora::Matrix matrixOf(std::initializer_list<std::initializer_list<double>> rows)
{
    pelmora::Matrix matrix(static_cast<int>(rows.size()), static_cast<int>(rows.begin()->size()));
    int i = 0;
    for (const auto& row : rows)
        std::copy(row.begin(), row.end(), matrix[i++]);
    return matrix;
}

inline NamedMatrix loadingsOf(std::initializer_list<std::initializer_list<double>> rows,
                              const QVector<QString>& names)
{
    return {matrixOf(rows), VariableNames::fromTexts(names)};
}
