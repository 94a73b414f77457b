// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/owners.h"

/// A loading matrix as pages keep it: one row and one name per variable, one column per factor.
struct NamedMatrix
{
    pelmora::Matrix values;
    VariableNames names;

    NamedMatrix clone() const { return {values.clone(), names}; }
};
