// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/options.h"
#include "convert/table.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace convert {

/// What the rows and columns of a table are for.
struct Layout
{
    bool hasHeader = false;
    bool hasRowNames = false;      ///< the first column is left out
    std::vector<std::size_t> kept; ///< columns, in the file's order

    std::size_t firstCase() const { return hasHeader ? 1 : 0; }
};

/// Whether the first row is a header: it is one without any number in it. Throws Refusal where that
/// cannot be told.
bool findHeader(const Table& table, const Options& options);

/// Whether the rows from @p firstRow on have names or numbers in the first column, which itself
/// has none.
bool findRowNames(const Table& table, std::size_t firstRow);

/// The columns that the options keep, row names aside. Throws Refusal where there are none.
std::vector<std::size_t> keptColumns(const Table& table, const Options& options, bool hasRowNames);

Layout findLayout(const Table& table, const Options& options);

/// "column 3 (Height)", or without a header "column 3".
QString columnText(const Table& table, bool hasHeader, std::size_t column);
/// "line 7, column 3 (Height)".
QString placeText(const Table& table, bool hasHeader, std::size_t row, std::size_t column);
/// The field in quotes, shortened where it is very long.
QString shownField(const Table& table, std::size_t row, std::size_t column);

} // namespace convert
