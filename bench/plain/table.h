// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

class QTableWidget;

/// Tables as a textbook fills them: one item with its text per cell, and widths by a look at them.
namespace pelmora::plain {

/// Fills @p table with @p values (rows x columns) by the stored precision and fits its columns.
void fillTable(QTableWidget& table, const double* const* values, int rows, int columns);

} // namespace pelmora::plain
