// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"
#include "random.h"

#include <cstdint>
#include <span>

namespace pelmora {

/// A family of matrices that people may hand to the program.
struct DataKind
{
    const char* name;
    int share; ///< of all data sets, in percent
    Matrix (*make)(Random&);
};

/// All kinds; their shares add up to 100.
std::span<const DataKind> dataKinds();

/// The kind of the data set with this number.
int kindOf(std::int64_t number);

/// The symmetric matrix of the data set with this number, without NaN; always the same one.
Matrix dataSet(std::int64_t number);

} // namespace pelmora
