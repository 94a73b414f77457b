// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

namespace pelmora {

/// Which of a pair's two stationary angles the method-aware sweeps take.
enum RotationMethod : int {
    PelmoraRotation = 0, ///< minimise the criterion
    VarimaxRotation = 1, ///< maximise the criterion
    NoRotation = 2       ///< never handed to rotate(); sweeps take the angle nearest to zero
};

/// Variance of the squared loadings of factor j over p variables (raw Varimax, no row
/// normalisation): V(j) = sum(l^4) / p - sum(l^2)^2 / p^2. NaN after a reported allocation failure.
/// Kaiser, H. F. (1958), Psychometrika 23, 187-200.
double column_criterion(const double* const* l, int j, int p);

/// The two angles at which V(j) + V(k) is stationary when columns j and k are rotated in their
/// plane. They are 45 degrees apart: one is the pair's maximum, the other its minimum.
/// @param angle1  the angle nearest to zero
/// @param angle2  the other one; both are NaN for a pair without a preferred angle (D == 0), and
///                after a reported allocation failure
void pair_angles(const double* const* l, int j, int k, int p, double& angle1, double& angle2);

/// Rotates every pair of the first m columns once, each to the angle that @p method asks for.
/// @param l  p x (at least m + 1) loadings; columns 0..m-1 are rotated
/// @param b  p x (at least m); receives the same rotations
/// A pair without a usable angle stays as it stands. Cancelled (see progress.h), the matrices stay
/// as they were and the result is NaN. After a reported allocation failure the
/// rotated columns and the result are NaN.
/// @returns the criterion of columns 0..m-2 and m after the sweep: m - 1 is left out and the
///          unrotated column m counted, on purpose, since the end of long rotations depends on it
double rotation_sweep(double** l, double** b, int m, int p, int method);

/// Rotates the first m factors orthogonally, in place, by Varimax (method 1) or by the Pelmora
/// rotation (method 0), which minimises the criterion that Varimax maximises.
/// Two method-aware sweeps choose the basin; plain sweeps then refine until two totals differ by at
/// most 1e-12. Where they never would, sweeps that only ever improve the criterion end it (see
/// rotationdriver.h). m <= 1 changes nothing. Arguments and failures as for rotation_sweep().
void rotate(double** l, double** b, int m, int p, int method);

} // namespace pelmora
