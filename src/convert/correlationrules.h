// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/cell.h"
#include "convert/columnscan.h"
#include "convert/layout.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace convert {

/// Why a table may hold correlations; empty where it looks like data.
QString looksLikeCorrelations(const Table& table, const Layout& layout, const CellRule& rule);

/// Whether the first column holds texts only, some of them not empty: the names of the rows,
/// whatever its header says.
bool namesItsRows(const Table& table, const Layout& layout);

/// A table of correlations as it will be written.
class CorrelationTable
{
public:
    /// Throws Refusal where the table is not square, the diagonal not 1, a value beyond 1, or where
    /// the triangles differ.
    CorrelationTable(const Table& table, const Layout& layout, const CellRule& rule);

    /// Columns of the table, one per variable.
    const std::vector<std::size_t>& columns() const { return m_columns; }
    std::size_t size() const { return m_columns.size(); }
    /// The number's text; blank fields take that of the other triangle, or are 1.
    std::string_view field(std::size_t i, std::size_t j) const;

    enum Triangle { Full, Upper, Lower };
    Triangle triangle() const { return m_triangle; }
    /// Whether the names of the rows are those of the columns, or there are none.
    bool namesAgree() const { return m_namesAgree; }

private:
    void findSides(const Layout& layout);
    void compareNames();
    void findTriangle(const CellRule& rule);
    void checkFields(const CellRule& rule) const;
    std::optional<QString> faultAt(std::size_t i, std::size_t j, const CellRule& rule) const;
    std::string_view own(std::size_t i, std::size_t j) const
    {
        return m_table.field(m_rows[i], m_columns[j]);
    }
    /// Whether the field lies in a blank triangle.
    bool isBlank(std::size_t i, std::size_t j) const
    {
        return (m_triangle == Upper && i > j) || (m_triangle == Lower && i < j);
    }

    const Table& m_table;
    const Layout& m_layout;
    std::vector<std::size_t> m_rows;
    std::vector<std::size_t> m_columns;
    Triangle m_triangle = Full;
    bool m_namesAgree = true;
};

} // namespace convert
