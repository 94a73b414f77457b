// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/owners.h"

#include "numerics/memory.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace pelmora {

Vector::Vector(int size) : m_values(dvector(0, size - 1)), m_size(m_values ? std::max(size, 0) : 0)
{
}

Vector::Vector(Vector&& other) noexcept
    : m_values(std::exchange(other.m_values, nullptr))
    , m_size(std::exchange(other.m_size, 0))
{
}

Vector& Vector::operator=(Vector&& other) noexcept
{
    std::swap(m_values, other.m_values);
    std::swap(m_size, other.m_size);
    return *this;
}

Vector::~Vector()
{
    free_dvector(m_values, 0);
}

Vector Vector::clone() const
{
    if (isNull())
        return {};
    Vector copy(m_size);
    if (!copy.isNull())
        std::copy(begin(), end(), copy.begin());
    return copy;
}

Matrix::Matrix(int rows, int columns)
    : Matrix(adopt(matrix(0, rows - 1, 0, columns - 1), std::max(rows, 0), std::max(columns, 0)))
{
}

Matrix::Matrix(Matrix&& other) noexcept
    : m_rows(std::exchange(other.m_rows, nullptr))
    , m_rowCount(std::exchange(other.m_rowCount, 0))
    , m_columnCount(std::exchange(other.m_columnCount, 0))
{
}

Matrix& Matrix::operator=(Matrix&& other) noexcept
{
    std::swap(m_rows, other.m_rows);
    std::swap(m_rowCount, other.m_rowCount);
    std::swap(m_columnCount, other.m_columnCount);
    return *this;
}

Matrix::~Matrix()
{
    free_matrix(m_rows, 0, 0);
}

Matrix Matrix::adopt(double** values, int rows, int columns)
{
    Matrix owner;
    if (values) {
        owner.m_rows = values;
        owner.m_rowCount = rows;
        owner.m_columnCount = columns;
    }
    return owner;
}

Matrix Matrix::clone() const
{
    if (isNull())
        return {};
    Matrix copy(m_rowCount, m_columnCount);
    // All elements are one block.
    if (!copy.isNull())
        std::copy_n(m_rows[0], std::size_t(m_rowCount) * std::size_t(m_columnCount), copy[0]);
    return copy;
}

} // namespace pelmora
