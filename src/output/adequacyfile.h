// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/adequacyresults.h"

#include <iosfwd>

/// Writes one line per number under one line of titles, separated by tabs: what it is, the number
/// of its variable or factor and the variable's name where it has one, the value, and a note. A
/// value that cannot be computed is empty, and the note says why.
void writeAdequacy(std::ostream& out, const pelmora::AdequacyResults& results,
                   const VariableNames& names, unsigned decimals);
