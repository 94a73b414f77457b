// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/asciidata.h"

#include <QString>

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
