// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/layout.h"

#include "convert/number.h"
#include "convert/refusal.h"

#include <algorithm>
#include <string_view>

namespace convert {

namespace {

/// With either decimal sign: the file's is not known yet, and a row with such a field may be data.
Number anyNumber(std::string_view field)
{
    return parseNumber(field, {true, true});
}

bool isNumber(std::string_view field)
{
    return anyNumber(field).kind != Number::None;
}

/// Whether count fields are first, first + 1, ...
template <typename FieldAt>
bool counts(std::size_t count, FieldAt fieldAt)
{
    if (count == 0)
        return false;
    const Number first = anyNumber(fieldAt(0));
    if (first.kind != Number::Value || (first.value != 0.0 && first.value != 1.0))
        return false;
    for (std::size_t i = 1; i < count; ++i) {
        const Number number = anyNumber(fieldAt(i));
        if (number.kind != Number::Value || number.value != first.value + static_cast<double>(i))
            return false;
    }
    return true;
}

QString shortened(QString text)
{
    constexpr qsizetype longest = 60;
    text = text.simplified();
    return text.size() <= longest ? text : text.first(longest) + QStringLiteral("…");
}

} // namespace

bool findHeader(const Table& table, const Options& options)
{
    if (options.header != Header::Unknown)
        return options.header == Header::Yes;
    const std::size_t columns = table.columns();
    std::size_t numbers = 0;
    std::size_t firstNumber = columns;
    for (std::size_t column = 0; column < columns; ++column)
        if (isNumber(table.field(0, column))) {
            firstNumber = std::min(firstNumber, column);
            ++numbers;
        }
    if (numbers == 0)
        return true;
    if (numbers < columns)
        throw Refusal(
            tr("%1: %2 is a number, but not all of the first row are: say whether it is "
               "a header by --header yes or --header no.")
                .arg(placeText(table, false, 0, firstNumber), shownField(table, 0, firstNumber)));
    if (columns >= 3 && counts(columns, [&](std::size_t c) { return table.field(0, c); }))
        throw Refusal(tr("%1: the first row counts, from %2 on: say whether it is a header by "
                         "--header yes or --header no.")
                          .arg(placeText(table, false, 0, 0), shownField(table, 0, 0)));
    return false;
}

bool findRowNames(const Table& table, std::size_t firstRow)
{
    const auto fieldAt = [&](std::size_t i) { return table.field(firstRow + i, 0); };
    const std::size_t count = table.rows() - std::min(firstRow, table.rows());
    if (table.columns() < 2 || counts(count, fieldAt))
        return table.columns() >= 2;
    for (std::size_t i = 0; i < count; ++i)
        if (isNumber(fieldAt(i)))
            return false;
    return true;
}

std::vector<std::size_t> keptColumns(const Table& table, const Options& options, bool hasRowNames)
{
    if (!options.columns.isEmpty() && options.columns.largest() > table.columns())
        throw Refusal(tr("--columns names place %1, but there are only %2 columns.")
                          .arg(options.columns.largest())
                          .arg(table.columns()));
    std::vector<std::size_t> kept;
    for (std::size_t column = hasRowNames ? 1 : 0; column < table.columns(); ++column)
        if (options.columns.isEmpty() || options.columns.contains(column + 1))
            kept.push_back(column);
    if (kept.empty())
        throw Refusal(
            tr("column 1 holds the names of the rows, and --columns keeps no other column."));
    return kept;
}

Layout findLayout(const Table& table, const Options& options)
{
    Layout layout;
    layout.hasHeader = findHeader(table, options);
    layout.hasRowNames =
        layout.hasHeader && table.field(0, 0).empty() && findRowNames(table, layout.firstCase());
    layout.kept = keptColumns(table, options, layout.hasRowNames);
    return layout;
}

QString columnText(const Table& table, bool hasHeader, std::size_t column)
{
    const QString name = hasHeader ? shortened(table.text(0, column)) : QString();
    // A column of an exchanged table is a line of the file.
    const QString place = table.isExchanged() ? tr("line %1").arg(table.place(0, column).line)
                                              : tr("column %1").arg(column + 1);
    return name.isEmpty() ? place : tr("%1 (%2)").arg(place, name);
}

QString placeText(const Table& table, bool hasHeader, std::size_t row, std::size_t column)
{
    const Place place = table.place(row, column);
    const QString name = hasHeader ? shortened(table.text(0, column)) : QString();
    return name.isEmpty()
               ? tr("line %1, column %2").arg(place.line).arg(place.column)
               : tr("line %1, column %2 (%3)").arg(place.line).arg(place.column).arg(name);
}

QString shownField(const Table& table, std::size_t row, std::size_t column)
{
    return QLatin1Char('"') + shortened(table.text(row, column)) + QLatin1Char('"');
}

} // namespace convert
