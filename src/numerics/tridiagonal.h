// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

namespace pelmora {

/// Eigenvalues alone, several times as fast as jacobi() and as exact as the largest of them allows:
/// by Householder's tridiagonal form and the implicit QL method. For correlations and the like; the
/// session's own decomposition is jacobi()'s.
/// Martin, R. S., Reinsch, C. & Wilkinson, J. H. (1968), Numer. Math. 11, 181-195; Martin &
/// Wilkinson (1968), Numer. Math. 12, 377-383.
class TridiagonalEigenvalues
{
public:
    /// For matrices of order @p n, at least 1.
    explicit TridiagonalEigenvalues(int n);

    /// A failed allocation (already reported).
    bool isNull() const;

    /// The n eigenvalues of the symmetric @p a (both triangles), which is destroyed, in descending
    /// order. They are valid until the next call.
    const Vector& compute(Matrix& a);

private:
    void reduce(Matrix& a);
    void reflect(Matrix& a, int i, double norm);
    void iterate();
    int firstSplit(int from, double tolerance) const;
    void step(int from, int to);

    Vector m_diagonal;
    Vector m_beside; ///< element i is between i and i + 1; the last is 0
    Vector m_normal;
    Vector m_product;
};

} // namespace pelmora
