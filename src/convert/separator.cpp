// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/separator.h"

#include "convert/cell.h"
#include "convert/layout.h"
#include "convert/refusal.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <utility>
#include <vector>

namespace convert {

namespace {

/// What a first line "sep=;" says, and where the lines after it begin.
struct SeparatorLine
{
    Separator separator = Separator::Unknown;
    std::size_t begin;
    std::size_t line = 1;
};

SeparatorLine separatorLine(const SourceText& text)
{
    SeparatorLine line{Separator::Unknown, text.begin()};
    const std::string_view bytes(text.bytes() + text.begin(), text.end() - text.begin());
    if (bytes.substr(0, 4) != "sep=" || bytes.size() < 5)
        return line;
    const char separator = bytes[4];
    const std::string_view rest = bytes.substr(5, 2);
    const bool ends = rest.empty() || rest[0] == '\n' || rest[0] == '\r';
    if (!ends || (separator != '\t' && separator != ';' && separator != ','))
        return line;
    const std::size_t lineEnd = rest.empty() ? 0 : rest == "\r\n" ? 2 : 1;
    return {static_cast<Separator>(separator), text.begin() + 5 + lineEnd, 2};
}

class SeparatorSearch
{
public:
    SeparatorSearch(const SourceText& text, const Options& options)
        : m_text(text)
        , m_options(options)
        , m_line(separatorLine(text))
    {
    }

    Reading run();

private:
    Separator settled() const
    {
        return m_options.separator != Separator::Unknown ? m_options.separator : m_line.separator;
    }
    std::vector<Separator> candidates() const;
    Reading read(Separator separator) const;
    Reading chosen(std::vector<Reading> readings);
    Reading single(std::vector<Reading>& readings) const;
    bool falls(const Reading& reading) const;
    void refuseSingle(const Reading& reading) const;
    void refuseDecimalCommas(const Reading& reading) const;
    void refuseSeveral(const std::vector<Reading>& readings, bool noneIsLeft) const;
    [[noreturn]] void refuseNone(const std::vector<Reading>& readings) const;
    QString firstRows(const Reading& reading) const;

    const SourceText& m_text;
    const Options& m_options;
    SeparatorLine m_line;
};

std::vector<Separator> SeparatorSearch::candidates() const
{
    if (settled() != Separator::Unknown)
        return {settled()};
    std::vector<Separator> candidates = {Separator::Tab, Separator::Semicolon};
    if (m_options.decimal != Decimal::Comma)
        candidates.push_back(Separator::Comma);
    return candidates;
}

Reading SeparatorSearch::read(Separator separator) const
{
    Reading reading = takeApart(m_text, m_line.begin, m_line.line, separator, m_options.skip,
                                m_options.header != Header::No);
    reading.droppedColumns = reading.table.dropEmptyColumns();
    reading.isSettled = settled() != Separator::Unknown;
    if (m_options.transpose)
        reading.table.exchange();
    return reading;
}

Reading SeparatorSearch::run()
{
    std::vector<Reading> readings;
    for (const Separator separator : candidates())
        readings.push_back(read(separator));

    const bool several = settled() == Separator::Unknown;
    for (const bool missingCorner : {false, true}) {
        std::vector<Reading> fitting;
        for (Reading& reading : readings)
            if (reading.isRectangle() && reading.table.missesCorner() == missingCorner &&
                (!several || reading.fields > 1))
                fitting.push_back(std::move(reading));
        if (!fitting.empty())
            return chosen(std::move(fitting));
    }
    return single(readings);
}

Reading SeparatorSearch::chosen(std::vector<Reading> readings)
{
    if (readings.size() > 1) {
        std::vector<Reading> left;
        std::vector<Reading> fallen;
        for (Reading& reading : readings)
            (falls(reading) ? fallen : left).push_back(std::move(reading));
        if (left.size() != 1)
            refuseSeveral(left.empty() ? fallen : left, left.empty());
        readings = std::move(left);
    }
    const Reading& reading = readings.front();
    if (!reading.isSettled && reading.fields - reading.droppedColumns == 1)
        refuseSingle(reading);
    refuseDecimalCommas(reading);
    return std::move(readings.front());
}

void SeparatorSearch::refuseSingle(const Reading& reading) const
{
    if (m_options.decimal == Decimal::Unknown)
        throw Refusal(tr("line %1: a single column; such a file is read when --decimal or "
                         "--separator is named.")
                          .arg(reading.table.place(0, 0).line));
}

/// Where no separator occurs, a single column.
Reading SeparatorSearch::single(std::vector<Reading>& readings) const
{
    if (!std::all_of(readings.begin(), readings.end(), std::mem_fn(&Reading::isSingleColumn)))
        refuseNone(readings);
    refuseSingle(readings.front());
    return std::move(readings.front());
}

/// Whether a column that is kept would hold what is no number, or no number at all. The first row
/// is not judged: it may be a header.
bool SeparatorSearch::falls(const Reading& reading) const
{
    const Table& table = reading.table;
    const CellRule rule(possibleSigns(reading.separator, m_options), m_options);
    const bool rowNames = m_options.header != Header::No && table.field(0, 0).empty() &&
                          table.rows() > 1 && findRowNames(table, 1);
    // Places beyond the columns are reported once the separator is known.
    std::vector<std::size_t> kept;
    for (std::size_t column = rowNames ? 1 : 0; column < table.columns(); ++column)
        if (m_options.columns.isEmpty() || m_options.columns.contains(column + 1))
            kept.push_back(column);
    std::vector<bool> hasNumber(table.columns(), false);
    for (std::size_t row = 1; row < table.rows(); ++row)
        for (const std::size_t column : kept) {
            const auto meaning = rule.read(table.field(row, column)).meaning;
            if (meaning == CellRule::Fault)
                return true;
            if (meaning == CellRule::Value)
                hasNumber[column] = true;
        }
    return !std::all_of(kept.begin(), kept.end(),
                        [&](std::size_t column) { return hasNumber[column]; });
}

bool isDigitsOnly(std::string_view field)
{
    return !field.empty() && field.find_first_not_of("0123456789") == std::string_view::npos;
}

/// "1,5" in every line may be two columns or one; a sign at its front tells nothing.
void SeparatorSearch::refuseDecimalCommas(const Reading& reading) const
{
    if (reading.separator != Separator::Comma || settled() != Separator::Unknown ||
        m_options.decimal == Decimal::Point || m_options.header == Header::Yes)
        return;
    const Table& table = reading.table;
    const bool exchanged = table.isExchanged();
    const auto fileField = [&](std::size_t row, std::size_t column) {
        return exchanged ? table.field(column, row) : table.field(row, column);
    };
    const std::size_t rows = exchanged ? table.columns() : table.rows();
    if ((exchanged ? table.rows() : table.columns()) != 2)
        return;
    for (std::size_t row = 0; row < rows; ++row) {
        std::string_view first = fileField(row, 0);
        if (!first.empty() && (first.front() == '-' || first.front() == '+'))
            first.remove_prefix(1);
        if (!isDigitsOnly(first) || !isDigitsOnly(fileField(row, 1)))
            return;
    }
    throw Refusal(tr("line %1: two columns of whole numbers or one column of decimal commas; "
                     "say --separator comma or --decimal comma.")
                      .arg(table.place(0, 0).line));
}

QString SeparatorSearch::firstRows(const Reading& reading) const
{
    constexpr std::size_t mostRows = 3;
    constexpr std::size_t mostFields = 8;
    const Table& table = reading.table;
    QStringList rows;
    for (std::size_t row = 0; row < std::min(table.rows(), mostRows); ++row) {
        QStringList fields;
        for (std::size_t column = 0; column < std::min(table.columns(), mostFields); ++column)
            fields << shownField(table, row, column);
        if (table.columns() > mostFields)
            fields << QStringLiteral("…");
        rows << fields.join(QLatin1String(" | "));
    }
    return rows.join(QLatin1String(" / "));
}

void SeparatorSearch::refuseSeveral(const std::vector<Reading>& readings, bool noneIsLeft) const
{
    QStringList reasons(
        tr(noneIsLeft ? "line %1: several separators give a table, but each one with columns that "
                        "are not numbers; name the separator by --separator:"
                      : "line %1: several separators give a table of numbers; name the separator "
                        "by --separator:")
            .arg(readings.front().table.place(0, 0).line));
    for (const Reading& reading : readings)
        reasons << tr("%1 (%2 fields in each line): %3")
                       .arg(nameOf(reading.separator))
                       .arg(reading.fields)
                       .arg(firstRows(reading));
    throw Refusal(reasons);
}

/// Reports the fault of the separator that gave the most fields.
void SeparatorSearch::refuseNone(const std::vector<Reading>& readings) const
{
    const auto rank = [](const Reading& reading) {
        return std::max(reading.fields, reading.faultFields);
    };
    const auto best =
        std::max_element(readings.begin(), readings.end(),
                         [&](const Reading& a, const Reading& b) { return rank(a) < rank(b); });
    if (best->fault == Reading::Fault::None && best->table.rows() == 0)
        throw Refusal(tr("The file has no lines with text."));
    const auto faulty =
        best->fault != Reading::Fault::None
            ? best
            : std::find_if(readings.begin(), readings.end(), [](const Reading& reading) {
                  return reading.fault != Reading::Fault::None;
              });
    QStringList reasons(faultText(m_text, *faulty));
    if (std::any_of(readings.begin(), readings.end(), std::mem_fn(&Reading::isSingleColumn)))
        reasons << tr("If the file is a single column, name --decimal or --separator.");
    throw Refusal(reasons);
}

} // namespace

Reading findSeparator(const SourceText& text, const Options& options)
{
    if (options.decimal == Decimal::Comma && options.separator == Separator::Unknown &&
        separatorLine(text).separator == Separator::Comma)
        throw Refusal(tr("line 1: the comma parts the fields; where it is the decimal sign as "
                         "well, say --separator comma --decimal comma."));
    return SeparatorSearch(text, options).run();
}

} // namespace convert
