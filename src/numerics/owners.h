// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Owns one dvector(0, size - 1). Move-only; contents start uninitialised.
/// isNull() tells a failed allocation (already reported) or a default-constructed owner.
class Vector
{
public:
    Vector() = default;
    explicit Vector(int size);
    Vector(Vector&& other) noexcept;
    Vector& operator=(Vector&& other) noexcept;
    ~Vector();

    Vector clone() const;

    bool isNull() const { return m_values == nullptr; }
    int size() const { return m_size; }
    double* data() { return m_values; }
    const double* data() const { return m_values; }
    double& operator[](int i) { return m_values[i]; }
    double operator[](int i) const { return m_values[i]; }
    double* begin() { return m_values; }
    double* end() { return m_values + m_size; }
    const double* begin() const { return m_values; }
    const double* end() const { return m_values + m_size; }

private:
    double* m_values = nullptr;
    int m_size = 0;
};

/// Owns one matrix(0, rows - 1, 0, columns - 1). Move-only; contents start uninitialised.
/// isNull() tells a failed allocation (already reported) or a default-constructed owner; both have
/// 0 rows and 0 columns.
class Matrix
{
public:
    Matrix() = default;
    Matrix(int rows, int columns);
    Matrix(Matrix&& other) noexcept;
    Matrix& operator=(Matrix&& other) noexcept;
    ~Matrix();

    /// Takes over rows made by matrix(0, rows - 1, 0, columns - 1).
    static Matrix adopt(double** values, int rows, int columns);

    Matrix clone() const;

    bool isNull() const { return m_rows == nullptr; }
    int rows() const { return m_rowCount; }
    int columns() const { return m_columnCount; }

    /// The row pointers that the numerical routines take.
    double** rowPointers() { return m_rows; }
    const double* const* rowPointers() const { return m_rows; }

    double* operator[](int row) { return m_rows[row]; }
    const double* operator[](int row) const { return m_rows[row]; }

private:
    double** m_rows = nullptr;
    int m_rowCount = 0;
    int m_columnCount = 0;
};

} // namespace pelmora
