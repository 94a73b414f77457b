// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/conversion.h"
#include "convert/refusal.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace convert {

namespace {

QString nameOfColumn(const Conversion& conversion, std::size_t index)
{
    if (index < conversion.names().size())
        return conversion.names().text(index);
    return columnText(conversion.table(), false, conversion.layout().kept[index]);
}

void tellRecognised(QStringList& lines, const Conversion& conversion)
{
    const QString encoding = nameOf(conversion.text().encoding());
    lines << (conversion.text().isGuessed()
                  ? tr("Encoding: %1 (taken because the bytes are not valid UTF-8)").arg(encoding)
                  : tr("Encoding: %1").arg(encoding));
    lines << tr("Separator: %1").arg(nameOf(conversion.separator()));
    const ColumnScan& scan = conversion.scan();
    const bool hasSign = scan.points + scan.commas > 0;
    lines << (!hasSign                                 ? tr("Decimal sign: none occurs")
              : conversion.decimal() == Decimal::Comma ? tr("Decimal sign: comma")
                                                       : tr("Decimal sign: point"));
    lines << (conversion.layout().hasHeader
                  ? tr("Header: line %1").arg(conversion.table().place(0, 0).line)
                  : tr("Header: none"));
    if (conversion.options().transpose)
        lines << tr("Rows and columns exchanged");
    lines << (conversion.kind() == Kind::Correlations ? tr("Kind: correlations")
                                                      : tr("Kind: data"));
}

QString placesText(const std::vector<std::size_t>& columns)
{
    QStringList places;
    for (std::size_t i = 0; i < columns.size();) {
        std::size_t last = i;
        while (last + 1 < columns.size() && columns[last + 1] == columns[last] + 1)
            ++last;
        places << (last == i ? QString::number(columns[i] + 1)
                             : tr("%1-%2").arg(columns[i] + 1).arg(columns[last] + 1));
        i = last + 1;
    }
    return places.join(QLatin1String(", "));
}

void tellLeftOut(QStringList& lines, const Conversion& conversion)
{
    const Layout& layout = conversion.layout();
    const auto& kept =
        conversion.correlations() ? conversion.correlations()->columns() : layout.kept;
    std::vector<std::size_t> leftOut;
    auto next = kept.begin();
    for (std::size_t column = layout.hasRowNames ? 1 : 0; column < conversion.table().columns();
         ++column) {
        if (next != kept.end() && *next == column)
            ++next;
        else
            leftOut.push_back(column);
    }
    if (layout.hasRowNames)
        lines << tr("Left out: %1, names or numbers of the rows")
                     .arg(columnText(conversion.table(), false, 0));
    if (!leftOut.empty())
        lines << tr("Left out: columns by place, %1").arg(placesText(leftOut));
    const Reading& reading = conversion.reading();
    if (reading.droppedLines > 0)
        lines << tr("Dropped: empty lines at the end, %1").arg(reading.droppedLines);
    if (reading.droppedColumns > 0)
        lines << tr("Dropped: empty columns at the right, %1").arg(reading.droppedColumns);
}

void tellNames(QStringList& lines, const Conversion& conversion)
{
    for (const auto& change : conversion.names().changes())
        lines << tr("Name in %1: \"%2\" became \"%3\"")
                     .arg(columnText(conversion.table(), false, change.place - 1), change.from,
                          change.to);
}

void tellCases(QStringList& lines, const Conversion& conversion)
{
    const ColumnScan& scan = conversion.scan();
    lines << tr("Cases: %1 read, %2 left out because of missing values, %3 kept")
                 .arg(scan.rows)
                 .arg(scan.incompleteRows)
                 .arg(scan.rows - scan.incompleteRows);
    for (std::size_t index = 0; index < scan.columns.size(); ++index)
        if (scan.columns[index].missing > 0)
            lines << tr("Missing in %1: %2")
                         .arg(nameOfColumn(conversion, index))
                         .arg(scan.columns[index].missing);

    std::vector<std::pair<std::size_t, std::size_t>> costs;
    for (std::size_t index = 0; index < scan.columns.size(); ++index)
        if (scan.columns[index].onlyMissing > 0)
            costs.emplace_back(scan.columns[index].onlyMissing, index);
    std::stable_sort(costs.begin(), costs.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    for (std::size_t i = 0; i < std::min<std::size_t>(costs.size(), 3); ++i)
        lines << tr("without %1 %2 more cases would be kept")
                     .arg(nameOfColumn(conversion, costs[i].second))
                     .arg(costs[i].first);
}

void tellWarnings(QStringList& lines, const Conversion& conversion)
{
    constexpr std::size_t mostNamed = 20;
    const std::vector<std::size_t> constant = conversion.constantColumns();
    for (std::size_t i = 0; i < std::min(constant.size(), mostNamed); ++i)
        lines << tr("Warning: %1 has one value only").arg(nameOfColumn(conversion, constant[i]));
    if (constant.size() > mostNamed)
        lines << tr("Warning: %1 columns in all have one value only").arg(constant.size());
    if (!conversion.correlations() && conversion.rows() < conversion.columns())
        lines << tr("Warning: fewer cases (%1) than variables (%2)")
                     .arg(conversion.rows())
                     .arg(conversion.columns());
    if (conversion.correlations() && !conversion.correlations()->namesAgree())
        lines << tr("Warning: the names of the rows are not those of the columns");
}

} // namespace

QStringList reportOf(const Conversion& conversion)
{
    QStringList lines;
    tellRecognised(lines, conversion);
    tellLeftOut(lines, conversion);
    tellNames(lines, conversion);
    if (!conversion.correlations())
        tellCases(lines, conversion);
    else if (conversion.correlations()->triangle() != CorrelationTable::Full)
        lines << tr("The blank triangle was filled from the other one");
    tellWarnings(lines, conversion);
    lines << tr("Result: %1 rows and %2 columns").arg(conversion.rows()).arg(conversion.columns());
    return lines;
}

} // namespace convert
