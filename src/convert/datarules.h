// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/columnscan.h"

#include <QStringList>

namespace convert {

/// The rules for the values of the columns kept. Each throws Refusal.

/// One decimal sign for the whole file, and beyond doubt.
Decimal findDecimal(const Table& table, const Layout& layout, const ColumnScan& scan,
                    const Options& options);

/// Columns without any number.
void refuseText(const Table& table, const Layout& layout, const ColumnScan& scan,
                const CellRule& rule, Separator separator);

/// Fields that are neither numbers nor missing.
void refuseFaults(const Table& table, const Layout& layout, const ColumnScan& scan,
                  const CellRule& rule, Separator separator);

/// Values of nines that look like codes of missing values but were not named as such.
void refuseUnnamedCodes(const Table& table, const Layout& layout, const ColumnScan& scan,
                        const Options& options);

/// "line 7, column 3 (Height): "abc" is no number".
QString faultText(const Table& table, const Layout& layout, FieldIndex at, const Number& number);

/// The first 20 of the reasons, then how many there are.
class ReasonList
{
public:
    static constexpr std::size_t most = 20;

    void add(const QString& reason)
    {
        if (m_count++ < most)
            m_reasons << reason;
    }
    void count(std::size_t more) { m_count += more; }
    bool isFull() const { return m_count >= most; }
    bool isEmpty() const { return m_count == 0; }
    QStringList take(const QString& help) const;

private:
    QStringList m_reasons;
    std::size_t m_count = 0;
};

} // namespace convert
