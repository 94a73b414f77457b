// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidata.h"

#include <climits>
#include <utility>

AsciiData::AsciiData(QObject* parent) : QObject(parent) {}

AsciiData::~AsciiData() = default;

bool AsciiData::allocate(unsigned rows, unsigned cols)
{
    freeMatrix();
    if (rows > INT_MAX || cols > INT_MAX)
        return false;
    setMatrix(pelmora::Matrix(static_cast<int>(rows), static_cast<int>(cols)));
    return !m_matrix.isNull();
}

void AsciiData::setMatrix(pelmora::Matrix values)
{
    m_matrix = std::move(values);
    m_rows = static_cast<std::uint32_t>(m_matrix.rows());
    m_cols = static_cast<std::uint32_t>(m_matrix.columns());
}

void AsciiData::freeMatrix()
{
    setMatrix({});
}

void AsciiData::clear()
{
    m_matrix = {};
    m_extra.clear();
    m_names = {};
}

bool AsciiData::forEachCell(bool (*test)(double*))
{
    // The matrix's own size: after clear() there are no cells.
    for (int i = 0; i < m_matrix.rows(); ++i)
        for (int j = 0; j < m_matrix.columns(); ++j)
            if (!test(&m_matrix[i][j]))
                return false;
    return true;
}

void AsciiData::writeNames(std::ostream& out) const
{
    writeNameHeader(out, m_names);
}

void AsciiData::setNames(VariableNames names)
{
    m_names = std::move(names);
}
