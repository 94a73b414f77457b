// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/adequacyresults.h"

namespace batch {

class JsonWriter;

/// Writes @p results as one object. What cannot be computed is null, and "reasons" says why.
void writeAdequacy(JsonWriter& json, const pelmora::AdequacyResults& results);

} // namespace batch
