// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/asciidata.h"
#include "settings/settings.h"

#include <QString>

#include <iosfwd>

/// The correlation matrix of a session, computed or read from a file, with the names of its
/// variables.
class CorrelationData : public AsciiData
{
    Q_OBJECT

public:
    using AsciiData::AsciiData;

    /// Compares both triangles to within 1e-10. At the first pair that differs by more (row-major
    /// order, a NaN does not differ) returns false and keeps a description of the cell.
    bool testSymmetry();

    /// "Not symmetric at row %1 and col %2" of the last failed test, 1-based; else empty.
    const QString& asymmetry() const { return m_asymmetry; }

private:
    QString m_asymmetry;
};

/// Writes the correlations as a file that the correlation reader takes back: one line per row,
/// every value rounded to @p decimals p (at most 9) and right aligned in p + 4 characters, then the
/// name header. At least one blank precedes a value, and no value has an exponent.
void writeCorrelations(std::ostream& out, const CorrelationData& correlations,
                       unsigned decimals = settings::precision());
