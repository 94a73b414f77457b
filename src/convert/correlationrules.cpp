// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/correlationrules.h"

#include "convert/datarules.h"
#include "convert/refusal.h"

#include <algorithm>
#include <cmath>

namespace convert {

namespace {

constexpr double largestDifference = 1e-10;

std::size_t casesOf(const Table& table, const Layout& layout)
{
    return table.rows() - std::min(layout.firstCase(), table.rows());
}

bool repeatsHeader(const Table& table, const Layout& layout)
{
    const std::size_t rows = casesOf(table, layout);
    if (!layout.hasHeader || rows < 2 || table.columns() != rows + 1)
        return false;
    for (std::size_t i = 0; i < rows; ++i) {
        const QString name = table.text(layout.firstCase() + i, 0);
        if (name.isEmpty() || name != table.text(0, i + 1))
            return false;
    }
    return true;
}

/// The square that rows and kept columns make; a first column of names does not count.
class Square
{
public:
    Square(const Table& table, const Layout& layout, const CellRule& rule)
        : m_table(table)
        , m_layout(layout)
        , m_rule(rule)
        , m_columns(layout.kept)
    {
        if (!m_columns.empty() && m_columns.front() == 0 && namesItsRows(table, layout))
            m_columns.erase(m_columns.begin());
    }

    bool exists() const { return size() >= 2 && casesOf(m_table, m_layout) == size(); }
    std::size_t size() const { return m_columns.size(); }
    bool isSymmetricWithUnitDiagonal() const;
    bool isWithinOneWithAOneInEveryRow() const;

private:
    CellRule::Cell cell(std::size_t i, std::size_t j) const
    {
        return m_rule.read(m_table.field(m_layout.firstCase() + i, m_columns[j]));
    }

    const Table& m_table;
    const Layout& m_layout;
    const CellRule& m_rule;
    std::vector<std::size_t> m_columns;
};

/// A triangle may be blank.
bool Square::isSymmetricWithUnitDiagonal() const
{
    bool upper = false;
    bool lower = false;
    for (std::size_t i = 0; i < size(); ++i) {
        const auto diagonal = cell(i, i);
        if (diagonal.meaning == CellRule::Fault ||
            (diagonal.meaning == CellRule::Value && diagonal.number.value != 1.0))
            return false;
        for (std::size_t j = i + 1; j < size(); ++j) {
            const auto above = cell(i, j);
            const auto below = cell(j, i);
            if (above.meaning == CellRule::Fault || below.meaning == CellRule::Fault)
                return false;
            const bool hasAbove = above.meaning == CellRule::Value;
            const bool hasBelow = below.meaning == CellRule::Value;
            if (!hasAbove && !hasBelow)
                return false;
            if (hasAbove && hasBelow &&
                !(std::fabs(above.number.value - below.number.value) <= largestDifference))
                return false;
            upper = upper || !hasBelow;
            lower = lower || !hasAbove;
        }
    }
    return !(upper && lower);
}

bool Square::isWithinOneWithAOneInEveryRow() const
{
    for (std::size_t i = 0; i < size(); ++i) {
        bool hasOne = false;
        for (std::size_t j = 0; j < size(); ++j) {
            const auto field = cell(i, j);
            if (field.meaning == CellRule::Fault ||
                (field.meaning == CellRule::Value && std::fabs(field.number.value) > 1.0))
                return false;
            hasOne = hasOne || (field.meaning == CellRule::Value && field.number.value == 1.0);
        }
        if (!hasOne)
            return false;
    }
    return true;
}

} // namespace

bool namesItsRows(const Table& table, const Layout& layout)
{
    bool anyText = false;
    for (std::size_t row = layout.firstCase(); row < table.rows(); ++row) {
        const std::string_view field = table.field(row, 0);
        if (parseNumber(field, {true, true}).kind != Number::None)
            return false;
        anyText = anyText || !field.empty();
    }
    return anyText;
}

QString looksLikeCorrelations(const Table& table, const Layout& layout, const CellRule& rule)
{
    if (repeatsHeader(table, layout))
        return tr("the first column repeats the header");
    const Square square(table, layout, rule);
    if (!square.exists())
        return QString();
    if (square.isSymmetricWithUnitDiagonal())
        return tr("a symmetric table with ones in the diagonal");
    if (namesItsRows(table, layout) && square.isWithinOneWithAOneInEveryRow())
        return tr("as many named rows as columns, no value beyond 1, and a 1 in every row");
    return QString();
}

CorrelationTable::CorrelationTable(const Table& table, const Layout& layout, const CellRule& rule)
    : m_table(table)
    , m_layout(layout)
{
    findSides(layout);
    findTriangle(rule);
    checkFields(rule);
}

/// Of a square table some columns can be kept, with the rows of the same places.
void CorrelationTable::findSides(const Layout& layout)
{
    const bool named = layout.hasRowNames || namesItsRows(m_table, layout);
    const std::size_t firstColumn = named ? 1 : 0;
    for (const std::size_t column : layout.kept)
        if (column >= firstColumn)
            m_columns.push_back(column);
    const std::size_t rows = casesOf(m_table, layout);
    const bool isPart = m_columns.size() != rows && m_table.columns() - firstColumn == rows;
    if (m_columns.size() != rows && !isPart)
        throw Refusal(tr("Correlations need as many rows as columns; there are %1 rows and %2 "
                         "columns. Columns to keep are named by --columns, lines to leave out by "
                         "--skip.")
                          .arg(rows)
                          .arg(m_columns.size()));
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        m_rows.push_back(layout.firstCase() + (isPart ? m_columns[i] - firstColumn : i));
    if (layout.hasHeader && named && namesItsRows(m_table, layout))
        compareNames();
}

/// A row name that no column has is only reported; one that another column has shows that rows and
/// columns are in different orders.
void CorrelationTable::compareNames()
{
    for (std::size_t i = 0; i < m_columns.size(); ++i) {
        const QString name = m_table.text(m_rows[i], 0);
        if (name == m_table.text(0, m_columns[i]))
            continue;
        m_namesAgree = false;
        for (const std::size_t column : m_columns)
            if (name == m_table.text(0, column))
                throw Refusal(tr("%1: the row %2 stands where that of %3 belongs; rows and columns "
                                 "must have one order. If the table holds data, say --kind data.")
                                  .arg(placeText(m_table, false, m_rows[i], 0),
                                       shownField(m_table, m_rows[i], 0),
                                       shownField(m_table, 0, m_columns[i])));
    }
}

/// A triangle counts as blank when none of its fields has a value.
void CorrelationTable::findTriangle(const CellRule& rule)
{
    bool upper = size() > 1;
    bool lower = size() > 1;
    for (std::size_t i = 0; i < size(); ++i)
        for (std::size_t j = i + 1; j < size(); ++j) {
            upper = upper && rule.read(own(j, i)).meaning == CellRule::Missing;
            lower = lower && rule.read(own(i, j)).meaning == CellRule::Missing;
        }
    if (upper != lower)
        m_triangle = upper ? Upper : Lower;
}

std::string_view CorrelationTable::field(std::size_t i, std::size_t j) const
{
    if (i == j && own(i, j).empty())
        return "1";
    return isBlank(i, j) ? own(j, i) : own(i, j);
}

std::optional<QString> CorrelationTable::faultAt(std::size_t i, std::size_t j,
                                                 const CellRule& rule) const
{
    const FieldIndex at{m_rows[i], m_columns[j]};
    const auto place = [&] { return placeText(m_table, m_layout.hasHeader, at.row, at.column); };
    const auto shown = [&] { return shownField(m_table, at.row, at.column); };
    const auto cell = rule.read(field(i, j));
    if (cell.meaning == CellRule::Missing)
        return tr("%1: a missing value").arg(place());
    if (cell.meaning == CellRule::Fault)
        return faultText(m_table, m_layout, at, cell.number);
    if (i == j && cell.number.value != 1.0)
        return tr("%1: %2 stands in the diagonal instead of 1").arg(place(), shown());
    if (std::fabs(cell.number.value) > 1.0)
        return tr("%1: %2 is beyond 1").arg(place(), shown());
    const auto other = rule.read(field(j, i));
    if (i > j && other.meaning == CellRule::Value &&
        !(std::fabs(cell.number.value - other.number.value) <= largestDifference))
        return tr("%1: %2 differs from %3 in the other triangle")
            .arg(place(), shown(), shownField(m_table, m_rows[j], m_columns[i]));
    return std::nullopt;
}

void CorrelationTable::checkFields(const CellRule& rule) const
{
    ReasonList reasons;
    for (std::size_t i = 0; i < size(); ++i)
        for (std::size_t j = 0; j < size(); ++j)
            if (const auto fault = isBlank(i, j) ? std::nullopt : faultAt(i, j, rule))
                reasons.add(*fault);
    if (!reasons.isEmpty())
        throw Refusal(reasons.take(
            tr("These are no correlations; if the table holds data, say --kind data.")));
}

} // namespace convert
