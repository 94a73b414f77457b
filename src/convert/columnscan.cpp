// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/columnscan.h"

#include <algorithm>
#include <cmath>

namespace convert {

namespace {

void noteSign(ColumnScan& scan, const Number& number, FieldIndex at)
{
    if (number.sign == 0)
        return;
    scan.signsMayGroup = scan.signsMayGroup && number.mayGroup;
    std::size_t& count = number.sign == '.' ? scan.points : scan.commas;
    if (count++ == 0)
        (number.sign == '.' ? scan.firstPoint : scan.firstComma) = at;
}

bool mayBeNines(std::string_view field)
{
    return field.find('9') != std::string_view::npos;
}

void noteValue(ColumnScan& scan, std::size_t index, std::string_view field, double value)
{
    if (std::fabs(value) >= 9.0 && mayBeNines(field) && isNines(field, value)) {
        ++scan.nines[{index, value}];
        return;
    }
    ColumnFacts& facts = scan.columns[index];
    facts.smallest = std::min(facts.smallest, value);
    facts.largest = std::max(facts.largest, value);
}

void scanRow(ColumnScan& scan, const Table& table, const Layout& layout, const CellRule& rule,
             std::size_t row)
{
    std::size_t missing = 0;
    std::size_t lastMissing = 0;
    for (std::size_t index = 0; index < layout.kept.size(); ++index) {
        const std::size_t column = layout.kept[index];
        const std::string_view field = table.field(row, column);
        const CellRule::Cell cell = rule.read(field);
        if (cell.meaning == CellRule::Value) {
            noteSign(scan, cell.number, {row, column});
            noteValue(scan, index, field, cell.number.value);
        } else if (cell.meaning == CellRule::Missing) {
            ++scan.columns[index].missing;
            ++missing;
            lastMissing = index;
        } else {
            ++scan.columns[index].faults;
        }
    }
    if (missing == 0)
        return;
    scan.incomplete[row - layout.firstCase()] = true;
    ++scan.incompleteRows;
    if (missing == 1)
        ++scan.columns[lastMissing].onlyMissing;
}

} // namespace

ColumnScan scanColumns(const Table& table, const Layout& layout, const CellRule& rule)
{
    ColumnScan scan;
    scan.rows = table.rows() - std::min(layout.firstCase(), table.rows());
    scan.columns.resize(layout.kept.size());
    scan.incomplete.resize(scan.rows, false);
    for (std::size_t row = layout.firstCase(); row < table.rows(); ++row)
        scanRow(scan, table, layout, rule, row);
    return scan;
}

} // namespace convert
