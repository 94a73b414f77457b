// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/columnscan.h"
#include "convert/correlationrules.h"
#include "convert/fields.h"
#include "convert/layout.h"
#include "convert/names.h"
#include "convert/options.h"

#include <QStringList>

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <optional>

namespace convert {

/// One file under one set of options: what was recognised, and either the reasons why the file is
/// refused or what will be written.
class Conversion
{
public:
    /// @param text  must live as long as the conversion
    Conversion(const SourceText& text, const Options& options);

    bool isAccepted() const { return m_reasons.isEmpty(); }
    /// Why not, a line each.
    const QStringList& reasons() const { return m_reasons; }

    /// The file's table; without rows while no separator is known.
    const Table& table() const { return m_reading.table; }
    const Layout& layout() const { return m_layout; }
    /// What is recognised; Unknown where the rules did not get so far.
    Kind kind() const { return m_kind; }
    Separator separator() const { return m_reading.separator; }
    Decimal decimal() const { return m_decimal; }
    std::optional<bool> hasHeader() const { return m_hasHeader; }
    const SourceText& text() const { return m_text; }
    const Options& options() const { return m_options; }
    /// What a field means under what is known of the decimal sign.
    CellRule cellRule() const;

    /// Numbers per line and lines of numbers that are written.
    std::size_t rows() const;
    std::size_t columns() const;
    /// The names that are written; none without a header.
    const VariableNameList& names() const { return m_names; }
    const ColumnScan& scan() const { return m_scan; }
    const CorrelationTable* correlations() const { return m_correlations.get(); }
    const Reading& reading() const { return m_reading; }
    /// Whether the case has no missing value.
    bool isKept(std::size_t index) const { return !m_scan.incomplete[index]; }
    /// Columns (indices of the layout's) with the same value in all cases kept.
    std::vector<std::size_t> constantColumns() const;

    /// Writes the accepted file: numbers, then names.
    void write(std::ostream& out) const;

private:
    void run();
    void settleKind(const CellRule& rule);
    void checkData(const CellRule& rule);
    void findNames();
    bool isConstant(std::size_t column, const CellRule& rule) const;
    void writeData(std::ostream& out) const;
    void writeCorrelations(std::ostream& out) const;

    const SourceText& m_text;
    Options m_options;
    QStringList m_reasons;
    Reading m_reading;
    Layout m_layout;
    std::optional<bool> m_hasHeader;
    ColumnScan m_scan;
    Decimal m_decimal = Decimal::Unknown;
    Kind m_kind = Kind::Unknown;
    std::unique_ptr<CorrelationTable> m_correlations;
    VariableNameList m_names;
};

/// The report on an accepted file, a line each.
QStringList reportOf(const Conversion& conversion);

} // namespace convert
