// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/owners.h"

#include <QObject>

#include <cstdint>
#include <iosfwd>
#include <string>

/// The input of one analysis session: a numeric matrix as read from a file, with variable names.
class AsciiData : public QObject
{
    Q_OBJECT

public:
    explicit AsciiData(QObject* parent = nullptr);
    ~AsciiData() override;

    /// Replaces the matrix by a new one of rows x cols, contents uninitialised. Where the memory
    /// does not suffice, the data are left with 0 rows and 0 columns and false is returned.
    bool allocate(unsigned rows, unsigned cols);

    /// Replaces the matrix by @p values and takes over its size.
    void setMatrix(pelmora::Matrix values);

    /// Frees the matrix; rows and columns become 0.
    void freeMatrix();

    /// Frees the matrix and empties the names. Rows and columns are left as they were, on purpose.
    void clear();

    /// Calls @p test on every cell in row-major order and returns false at the first cell for which
    /// it returns false.
    bool forEachCell(bool (*test)(double*));

    /// Writes one line "vname", tab, 1-based number, tab, name per name.
    void writeNames(std::ostream& out) const;

    const pelmora::Matrix& matrix() const { return m_matrix; }
    pelmora::Matrix& matrix() { return m_matrix; }
    std::uint32_t rows() const { return m_rows; }
    std::uint32_t cols() const { return m_cols; }

    const VariableNames& names() const { return m_names; }
    void setNames(VariableNames names);

private:
    pelmora::Matrix m_matrix;
    std::uint32_t m_rows = 0;
    std::uint32_t m_cols = 0;
    VariableNames m_names;
    std::string m_extra; ///< nothing yet
};
