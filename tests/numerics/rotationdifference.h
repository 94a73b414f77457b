// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numericstest.h"
#include "support/difference.h"

/// Of the loadings, else of the companions.
inline QString difference(const numericstest::Rotation& a, const numericstest::Rotation& b)
{
    const QString ofLoadings = difference(a.l, b.l);
    return ofLoadings.isEmpty() ? difference(a.b, b.b) : ofLoadings;
}
