// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/kernels/alignedrows.h"
#include "numerics/kernels/disjointpairs.h"
#include "numerics/kernels/rotationkernels.h"
#include "numerics/progress.h"

#include <optional>

namespace pelmora {

/// The sweeps of a rotation over copies of its matrices whose columns are contiguous.
class RotationSweeps
{
public:
    /// Arguments as for rotate(). isNull() tells a failed allocation (already reported); the
    /// rotated columns of both matrices are then NaN.
    RotationSweeps(double** l, double** b, int m, int p, int method);

    bool isNull() const { return m_l.isNull() || m_b.isNull() || m_work.isNull(); }

    // A cancelled sweep ends at once, its total NaN, which ends the course of the rotation too.

    double methodAwareSweep();
    double plainSweep();

    /// As methodAwareSweep(), but a pair that neither angle improves stays as it stands.
    void improvingSweep();

    /// The criterion of all rotated columns.
    double total() const;
    bool isBetter(double criterion, double other) const;

    /// Writes the rotated columns back into the matrices.
    void putBack();

private:
    struct PairRotation
    {
        ColumnPair pair;
        ColumnRotation by;
    };

    std::optional<ColumnRotation> rotationBy(double angle, int j, int k) const;
    std::optional<ColumnRotation> methodAwareRotation(int j, int k);
    std::optional<ColumnRotation> improvingRotation(int j, int k);
    double criterionOf(int j) const;
    double trialOf(ColumnRotation rotation, int j, int k);
    void rotate(int j, int k, ColumnRotation by);
    bool goOnAfterPairs(int pairs);
    void findNearestRotations(const DisjointPairs& pairs, const PairTangents* tangents);
    void carryOutFound(AlignedRows& columns) const;
    void refine(const DisjointPairs& pairs);
    bool refineAll();

    double** m_givenL;
    double** m_givenB;
    const int m_factors;
    const int m_variables;
    const int m_method;
    AlignedRows m_l;
    AlignedRows m_b;
    ProgressMeter m_meter;
    AlignedRows m_work; // two columns for a trial
    PairRotation m_found[DisjointPairs::most];
    int m_foundCount = 0;
};

} // namespace pelmora
