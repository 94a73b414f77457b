// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/owners.h"

#include <string>
#include <vector>

namespace pelmora {

/// Eigenvalues and the orthogonal matrix of eigenvectors, column k belongs to values[k].
struct Eigenpairs
{
    Vector values;
    Matrix vectors;
};

/// jacobi(). It starts the eigenvectors from the diagonal of @p a, so the rows are divided by that
/// diagonal here; nothing changes where it is 1.
Eigenpairs byJacobi(const Matrix& a);

/// LAPACK's dsyev: tridiagonal form, then implicit QL or QR.
Eigenpairs byDsyev(const Matrix& a);

/// LAPACK's dsyevd: tridiagonal form, then divide and conquer.
Eigenpairs byDsyevd(const Matrix& a);

/// "3.11.0" or the like, of the library that is linked.
std::string lapackVersion();

/// |A V - V D| / (n |A| eps) in the 1-norm, computed with more than double precision.
double scaledResidual(const Matrix& a, const Eigenpairs& pairs);

/// |V' V - I| / (n eps) in the 1-norm, computed with more than double precision.
double scaledDeparture(const Matrix& v);

} // namespace pelmora
