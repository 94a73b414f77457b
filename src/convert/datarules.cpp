// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/datarules.h"

#include "convert/refusal.h"

#include <algorithm>
#include <limits>

namespace convert {

namespace {

QString placeOf(const Table& table, const Layout& layout, FieldIndex at)
{
    return placeText(table, layout.hasHeader, at.row, at.column);
}

QString signedField(const Table& table, const Layout& layout, FieldIndex at)
{
    return tr("%1: %2").arg(placeOf(table, layout, at), shownField(table, at.row, at.column));
}

QString textColumn(const Table& table, const Layout& layout, std::size_t column)
{
    const QString name = columnText(table, layout.hasHeader, column);
    for (std::size_t row = layout.firstCase(); row < table.rows(); ++row)
        if (!table.field(row, column).empty())
            return tr("%1: no number in it (%2 in line %3)")
                .arg(name, shownField(table, row, column))
                .arg(table.place(row, column).line);
    return tr("%1: nothing in it").arg(name);
}

/// Smallest and largest of a column's values but @p code.
std::pair<double, double> othersOf(const ColumnScan& scan, std::size_t index, double code)
{
    double smallest = scan.columns[index].smallest;
    double largest = scan.columns[index].largest;
    const auto first = scan.nines.lower_bound({index, -std::numeric_limits<double>::infinity()});
    for (auto it = first; it != scan.nines.end() && it->first.first == index; ++it) {
        if (it->first.second == code)
            continue;
        smallest = std::min(smallest, it->first.second);
        largest = std::max(largest, it->first.second);
    }
    return {smallest, largest};
}

bool liesFarOutside(double value, double smallest, double largest)
{
    // Without other values both are infinite.
    if (smallest > largest)
        return false;
    const double range = largest - smallest;
    return value > largest + range || value < smallest - range;
}

QString numberText(double value)
{
    return QString::number(value, 'g', 15);
}

QString commaHint(const CellRule& rule, Separator separator)
{
    if (separator != Separator::Comma || rule.signs().comma)
        return QString();
    return QLatin1Char(' ') + tr("Decimal commas in quotes are read with --separator comma "
                                 "--decimal comma.");
}

} // namespace

QStringList ReasonList::take(const QString& help) const
{
    QStringList reasons = m_reasons;
    if (m_count > most)
        reasons << tr("%1 faults in all, the first %2 are shown.").arg(m_count).arg(most);
    if (!help.isEmpty())
        reasons << help;
    return reasons;
}

QString faultText(const Table& table, const Layout& layout, FieldIndex at, const Number& number)
{
    const QString place = placeOf(table, layout, at);
    const QString field = shownField(table, at.row, at.column);
    switch (number.kind) {
    case Number::TooLarge:
        return tr("%1: %2 is beyond the range of numbers").arg(place, field);
    case Number::TooSmall:
        return tr("%1: %2 is so small that it would be read as 0").arg(place, field);
    default:
        return tr("%1: %2 is no number").arg(place, field);
    }
}

Decimal findDecimal(const Table& table, const Layout& layout, const ColumnScan& scan,
                    const Options& options)
{
    if (options.decimal != Decimal::Unknown)
        return options.decimal;
    if (scan.points > 0 && scan.commas > 0)
        throw Refusal(
            QStringList{tr("Decimal points and decimal commas stand in one file; the sign that "
                           "--decimal names is taken, and the other one refused:"),
                        signedField(table, layout, scan.firstPoint),
                        signedField(table, layout, scan.firstComma)});
    if (scan.points + scan.commas > 0 && scan.signsMayGroup)
        throw Refusal(tr("%1 may have decimals or thousands, and so may every other number with "
                         "such a sign; name the decimal sign by --decimal point or --decimal "
                         "comma.")
                          .arg(signedField(table, layout,
                                           scan.points > 0 ? scan.firstPoint : scan.firstComma)));
    return scan.commas > 0 ? Decimal::Comma : Decimal::Point;
}

void refuseText(const Table& table, const Layout& layout, const ColumnScan& scan,
                const CellRule& rule, Separator separator)
{
    ReasonList reasons;
    for (std::size_t index = 0; index < layout.kept.size(); ++index)
        if (scan.numbers(index) == 0)
            reasons.add(textColumn(table, layout, layout.kept[index]));
    if (!reasons.isEmpty())
        throw Refusal(
            reasons.take(tr("Say by --columns which columns are to be kept (places from 1).") +
                         commaHint(rule, separator)));
}

void refuseFaults(const Table& table, const Layout& layout, const ColumnScan& scan,
                  const CellRule& rule, Separator separator)
{
    std::size_t count = 0;
    for (const ColumnFacts& facts : scan.columns)
        count += facts.faults;
    if (count == 0)
        return;
    ReasonList reasons;
    for (std::size_t row = layout.firstCase(); row < table.rows() && !reasons.isFull(); ++row)
        for (const std::size_t column : layout.kept) {
            const CellRule::Cell cell = rule.read(table.field(row, column));
            if (cell.meaning == CellRule::Fault && !reasons.isFull()) {
                reasons.add(faultText(table, layout, {row, column}, cell.number));
                --count;
            }
        }
    reasons.count(count);
    throw Refusal(reasons.take(tr("Codes of missing values are named by --missing, the columns to "
                                  "be kept by --columns, lines to leave out by --skip, the decimal "
                                  "sign by --decimal.") +
                               commaHint(rule, separator)));
}

void refuseUnnamedCodes(const Table& table, const Layout& layout, const ColumnScan& scan,
                        const Options& options)
{
    if (options.noMissingCodes)
        return;
    ReasonList reasons;
    for (const auto& [key, count] : scan.nines) {
        const auto [index, code] = key;
        const auto [smallest, largest] = othersOf(scan, index, code);
        if (count < 2 || !liesFarOutside(code, smallest, largest))
            continue;
        reasons.add(tr("%1: %2 stands there %3 times, far outside the other values (%4 to %5)")
                        .arg(columnText(table, layout.hasHeader, layout.kept[index]),
                             QString::number(code, 'f', 0))
                        .arg(count)
                        .arg(numberText(smallest), numberText(largest)));
    }
    if (!reasons.isEmpty())
        throw Refusal(reasons.take(tr("Name codes of missing values by --missing, for instance "
                                      "--missing \"NA,-99\"; if they are values, say --missing "
                                      "none.")));
}

} // namespace convert
