// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "batch/sumsfile.h"

#include "input/rowstream.h"

#include <QString>

#include <cstddef>

namespace batch {

/// Reads @p stream once and gathers its sums. A fault is reported under the name of @p file.
/// @returns false when the file is refused
bool gatherSums(pelmora::RowStream& stream, const QString& file, Sums& sums);

/// Reads @p stream; reports and returns the same.
bool readStream(pelmora::RowStream& stream, const QString& file, std::size_t rowsPerBlock,
                const pelmora::RowStream::TakeRows& takeRows);

/// Tells that a table has no numbers, as loading it would.
void tellEmptyTable(const QString& file);

} // namespace batch
