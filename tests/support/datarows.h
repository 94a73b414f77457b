// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTest>

/// The data of a test: made with the names of its columns, then called once for every row.
template <typename... Types>
class DataRows
{
public:
    template <typename... Names>
    explicit DataRows(Names... columns)
    {
        (QTest::addColumn<Types>(columns), ...);
    }

    void operator()(const char* row, const Types&... values) const
    {
        (QTest::newRow(row) << ... << values);
    }
};
