// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/conversion.h"

#include "convert/datarules.h"
#include "convert/refusal.h"
#include "convert/separator.h"

#include <new>
#include <ostream>
#include <string>

namespace convert {

namespace {

/// Collects lines and hands them over in large pieces.
class LineWriter
{
public:
    explicit LineWriter(std::ostream& out) : m_out(out) { m_text.reserve(piece + piece / 4); }

    /// Numbers separated by tabs.
    template <typename FieldAt>
    void writeLine(std::size_t count, FieldAt fieldAt)
    {
        for (std::size_t i = 0; i < count; ++i) {
            appendPlainDecimal(m_text, fieldAt(i));
            m_text += i + 1 < count ? '\t' : '\n';
        }
        if (m_text.size() >= piece)
            flush();
    }
    void flush()
    {
        m_out.write(m_text.data(), static_cast<std::streamsize>(m_text.size()));
        m_text.clear();
    }

private:
    static constexpr std::size_t piece = std::size_t(1) << 18;

    std::ostream& m_out;
    std::string m_text;
};

} // namespace

Conversion::Conversion(const SourceText& text, const Options& options)
    : m_text(text)
    , m_options(options)
{
    try {
        run();
    } catch (const Refusal& refusal) {
        m_reasons = refusal.reasons();
    } catch (const std::bad_alloc&) {
        m_reasons = QStringList(tr("The memory does not suffice for this file."));
    }
}

CellRule Conversion::cellRule() const
{
    Options options = m_options;
    if (options.decimal == Decimal::Unknown)
        options.decimal = m_decimal;
    return CellRule(possibleSigns(separator(), options), options);
}

void Conversion::run()
{
    if (m_text.isEmpty())
        throw Refusal(tr("The file is empty."));
    m_reading = findSeparator(m_text, m_options);
    const Table& table = m_reading.table;
    m_hasHeader = findHeader(table, m_options);
    m_layout = findLayout(table, m_options);
    if (table.rows() <= m_layout.firstCase())
        throw Refusal(
            tr("%1: no line of numbers stands below the header; if the first row is none, "
               "say --header no.")
                .arg(placeText(table, false, 0, 0)));
    const CellRule rule = cellRule();
    m_scan = scanColumns(table, m_layout, rule);
    m_decimal = findDecimal(table, m_layout, m_scan, m_options);
    settleKind(rule);
    if (m_kind == Kind::Correlations)
        m_correlations = std::make_unique<CorrelationTable>(table, m_layout, rule);
    else
        checkData(rule);
    findNames();
}

void Conversion::settleKind(const CellRule& rule)
{
    m_kind = m_options.kind;
    if (m_kind != Kind::Unknown)
        return;
    const QString look = looksLikeCorrelations(m_reading.table, m_layout, rule);
    if (!look.isEmpty())
        throw Refusal(tr("%1: this may be a table of correlations (%2); say --kind correlations or "
                         "--kind data.")
                          .arg(placeText(m_reading.table, false, 0, 0), look));
    m_kind = Kind::Data;
}

void Conversion::checkData(const CellRule& rule)
{
    const Table& table = m_reading.table;
    refuseText(table, m_layout, m_scan, rule, separator());
    refuseFaults(table, m_layout, m_scan, rule, separator());
    refuseUnnamedCodes(table, m_layout, m_scan, m_options);
    if (m_scan.incompleteRows == m_scan.rows)
        throw Refusal(
            tr("Every one of the %1 cases has a missing value, so none is left; leave out "
               "variables by --columns.")
                .arg(m_scan.rows));
}

void Conversion::findNames()
{
    if (!m_layout.hasHeader)
        return;
    for (const std::size_t column : m_correlations ? m_correlations->columns() : m_layout.kept)
        m_names.add(m_reading.table.text(0, column), column + 1);
    m_names.finish();
}

std::size_t Conversion::rows() const
{
    return m_correlations ? m_correlations->size() : m_scan.rows - m_scan.incompleteRows;
}

std::size_t Conversion::columns() const
{
    return m_correlations ? m_correlations->size() : m_layout.kept.size();
}

bool Conversion::isConstant(std::size_t column, const CellRule& rule) const
{
    std::optional<double> first;
    for (std::size_t index = 0; index < m_scan.rows; ++index) {
        if (!isKept(index))
            continue;
        const auto cell = rule.read(table().field(m_layout.firstCase() + index, column));
        if (!first)
            first = cell.number.value;
        else if (cell.number.value != *first)
            return false;
    }
    return true;
}

std::vector<std::size_t> Conversion::constantColumns() const
{
    std::vector<std::size_t> constant;
    if (m_correlations)
        return constant;
    const CellRule rule = cellRule();
    for (std::size_t index = 0; index < m_layout.kept.size(); ++index)
        if (isConstant(m_layout.kept[index], rule))
            constant.push_back(index);
    return constant;
}

void Conversion::write(std::ostream& out) const
{
    if (m_correlations)
        writeCorrelations(out);
    else
        writeData(out);
    for (std::size_t i = 0; i < m_names.size(); ++i)
        out << "vname\t" + std::to_string(i + 1) + '\t' + m_names.bytes(i) + '\n';
}

void Conversion::writeData(std::ostream& out) const
{
    LineWriter writer(out);
    for (std::size_t index = 0; index < m_scan.rows; ++index)
        if (isKept(index))
            writer.writeLine(m_layout.kept.size(), [&](std::size_t i) {
                return table().field(m_layout.firstCase() + index, m_layout.kept[i]);
            });
    writer.flush();
}

void Conversion::writeCorrelations(std::ostream& out) const
{
    LineWriter writer(out);
    for (std::size_t i = 0; i < m_correlations->size(); ++i)
        writer.writeLine(m_correlations->size(),
                         [&](std::size_t j) { return m_correlations->field(i, j); });
    writer.flush();
}

} // namespace convert
