// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/cell.h"
#include "convert/layout.h"
#include "convert/table.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace convert {

/// What one column holds, header aside.
struct ColumnFacts
{
    std::uint32_t missing = 0;
    std::uint32_t faults = 0;      ///< neither number nor missing
    std::uint32_t onlyMissing = 0; ///< rows in which no other column has a missing value
    /// Of all values but those of nines.
    double smallest = std::numeric_limits<double>::infinity();
    double largest = -std::numeric_limits<double>::infinity();
};

/// A field by its row and column in the table.
struct FieldIndex
{
    std::size_t row;
    std::size_t column;
};

/// The results of one pass over all fields of the columns kept.
struct ColumnScan
{
    std::vector<ColumnFacts> columns; ///< in the order of the columns kept
    std::vector<bool> incomplete;     ///< rows below the header that have a missing value
    std::size_t rows = 0;
    std::size_t incompleteRows = 0;
    std::size_t points = 0; ///< numbers with a decimal point
    std::size_t commas = 0;
    FieldIndex firstPoint{};
    FieldIndex firstComma{};
    bool signsMayGroup = true; ///< every decimal sign could part thousands
    /// How often a value of nines occurs in a column (an index of @ref columns).
    std::map<std::pair<std::size_t, double>, std::size_t> nines;

    std::size_t numbers(std::size_t index) const
    {
        return rows - columns[index].missing - columns[index].faults;
    }
};

ColumnScan scanColumns(const Table& table, const Layout& layout, const CellRule& rule);

} // namespace convert
