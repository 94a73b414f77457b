// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

/// The computations of src/numerics as a textbook writes them: straight loops over rows and columns
/// in their natural order, nothing arranged for speed. Shapes, units and faults are those of the
/// functions of the same name there.
namespace pelmora::plain {

double** correlate(double** x, int nrows, int ncols, int flag);

int jacobi(double** a, int n, double* d, double** v);

void multiply(double** c, const double* const* a, int flag, const double* const* b, int r, int p,
              int q);

double column_criterion(const double* const* l, int j, int p);
void pair_angles(const double* const* l, int j, int k, int p, double& angle1, double& angle2);
double rotation_sweep(double** l, double** b, int m, int p, int method);
void rotate(double** l, double** b, int m, int p, int method);

/// The bound on the plain sweeps of rotate().
long mostSweeps(int m, int p);

} // namespace pelmora::plain
