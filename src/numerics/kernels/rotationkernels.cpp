// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The loops of the rotations over contiguous columns. Sums lie in the lanes of vectors and are
// added up one row after the other. With three pairs or four, each has a lane: a block of their
// columns is transposed, and all that follows works on a row of it at once. For fewer, the lanes
// are the sums of one pair: the terms of some rows are formed side by side and then transposed,
// which takes twice as many shuffles for a pair, but no lane is idle.

#include "numerics/kernels/rotationkernels.h"

#include "numerics/kernels/lanes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace pelmora {

namespace {

/// Four sums over the rows of a column.
template <typename Lanes>
struct FourSums;

template <>
struct FourSums<FourLanes>
{
    FourLanes sums = {};

    double operator[](int i) const { return sums[i]; }

    /// Adds four rows in order; a to d hold their terms, one vector for each sum.
    PELMORA_ALWAYS_INLINE void add(const FourLanes& a, const FourLanes& b, const FourLanes& c,
                                   const FourLanes& d)
    {
        FourLanes rows[] = {a, b, c, d};
        transpose(rows);
        for (const FourLanes& row : rows)
            sums += row;
    }
};

template <>
struct FourSums<TwoLanes>
{
    TwoLanes sums[2] = {};

    double operator[](int i) const { return sums[i / 2][i % 2]; }

    /// The same for two rows.
    PELMORA_ALWAYS_INLINE void add(const TwoLanes& a, const TwoLanes& b, const TwoLanes& c,
                                   const TwoLanes& d)
    {
        TwoLanes rowsAB[] = {a, b};
        TwoLanes rowsCD[] = {c, d};
        transpose(rowsAB);
        transpose(rowsCD);
        for (int row = 0; row < 2; ++row) {
            sums[0] += rowsAB[row];
            sums[1] += rowsCD[row];
        }
    }
};

template <typename Lanes>
PELMORA_ALWAYS_INLINE void formTerms(const Lanes& x, const Lanes& y, SumsOfPairs<Lanes>& terms)
{
    const Lanes u = x * x - y * y;
    const Lanes w = x * y;
    terms = {u, w, u * w, -0.5 * (u * u) + w * (w + w)};
}

template <typename Lanes>
struct PairChain
{
    FourSums<Lanes> sums;

    PELMORA_ALWAYS_INLINE void add(const Lanes& x, const Lanes& y)
    {
        SumsOfPairs<Lanes> terms;
        formTerms(x, y, terms);
        sums.add(terms.A, terms.W, terms.C, terms.E);
    }

    PELMORA_ALWAYS_INLINE PairSums result() const { return {sums[0], sums[1], sums[2], sums[3]}; }
};

template <typename Lanes>
struct CriterionChain
{
    FourSums<Lanes> sums;

    PELMORA_ALWAYS_INLINE void add(const Lanes& x, const Lanes& y)
    {
        const Lanes xx = x * x;
        const Lanes yy = y * y;
        sums.add(xx, yy, xx * xx, yy * yy);
    }

    PELMORA_ALWAYS_INLINE Criteria result(int p) const
    {
        return {criterion(sums[0], sums[2], p), criterion(sums[1], sums[3], p)};
    }

    static double criterion(double squares, double fourths, int p)
    {
        return fourths / p - squares * squares / double(std::int64_t(p) * p);
    }
};

template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotatePair(Lanes& x, Lanes& y, ColumnRotation rotation)
{
    const Lanes oldX = x;
    x = rotation.c * oldX + rotation.s * y;
    y = -(oldX * rotation.s) + y * rotation.c;
}

template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotateInPlace(double* columnX, double* columnY, ColumnRotation rotation)
{
    Lanes x = lanesAt<Lanes>(columnX).values;
    Lanes y = lanesAt<Lanes>(columnY).values;
    rotatePair(x, y, rotation);
    lanesAt<Lanes>(columnX).values = x;
    lanesAt<Lanes>(columnY).values = y;
}

struct SumPair
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static PairSums run(const double* x, const double* y, int p)
    {
        PairChain<Lanes> chain;
        for (int i = 0; i < p; i += laneCount<Lanes>)
            chain.add(lanesAt<Lanes>(x + i).values, lanesAt<Lanes>(y + i).values);
        return chain.result();
    }
};

struct FindTangents
{
    template <typename Lanes>
    static constexpr std::size_t lanes = laneCount<Lanes>;

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void addBlock(const double* const (&x)[lanes<Lanes>],
                                               const double* const (&y)[lanes<Lanes>], int i,
                                               SumsOfPairs<Lanes>& sums)
    {
        Lanes rowsX[lanes<Lanes>];
        Lanes rowsY[lanes<Lanes>];
        for (std::size_t a = 0; a < lanes<Lanes>; ++a) {
            rowsX[a] = lanesAt<Lanes>(x[a] + i).values;
            rowsY[a] = lanesAt<Lanes>(y[a] + i).values;
        }
        transpose(rowsX);
        transpose(rowsY);
        for (std::size_t row = 0; row < lanes<Lanes>; ++row) {
            SumsOfPairs<Lanes> terms;
            formTerms(rowsX[row], rowsY[row], terms);
            sums.A += terms.A;
            sums.W += terms.W;
            sums.C += terms.C;
            sums.E += terms.E;
        }
    }

    /// A pair in each lane; lanes without one repeat the last.
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void findMany(const AlignedRows& columns,
                                               const DisjointPairs& pairs, int first, int p,
                                               PairTangents* tangents)
    {
        const double* x[lanes<Lanes>];
        const double* y[lanes<Lanes>];
        for (int a = 0; a < laneCount<Lanes>; ++a) {
            const auto& [j, k] = pairs[std::min(first + a, pairs.count() - 1)];
            x[a] = columns[j];
            y[a] = columns[k];
        }
        SumsOfPairs<Lanes> sums = {};
        for (int i = 0; i < p; i += laneCount<Lanes>)
            addBlock(x, y, i, sums);
        Lanes b;
        Lanes squareOfQ;
        findBAndSquareOfQ(sums, p, b, squareOfQ);
        for (int a = 0; a < laneCount<Lanes>; ++a)
            tangents[first + a] = {b[a], std::sqrt(squareOfQ[a])};
    }

    template <typename Lanes, int count>
    PELMORA_ALWAYS_INLINE static void findFew(const AlignedRows& columns,
                                              const DisjointPairs& pairs, int first, int p,
                                              PairTangents* tangents)
    {
        PairChain<Lanes> chains[std::size_t(count)];
        for (int i = 0; i < p; i += laneCount<Lanes>)
            for (int a = 0; a < count; ++a) {
                const auto& [j, k] = pairs[first + a];
                chains[a].add(lanesAt<Lanes>(columns[j] + i).values,
                              lanesAt<Lanes>(columns[k] + i).values);
            }
        for (int a = 0; a < count; ++a)
            tangents[first + a] = pairTangents(chains[a].result(), p);
    }

    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const AlignedRows& columns, const DisjointPairs& pairs,
                                          int p, PairTangents (&tangents)[DisjointPairs::most])
    {
        int first = 0;
        for (; pairs.count() - first > laneCount<Lanes> / 2; first += laneCount<Lanes>)
            findMany<Lanes>(columns, pairs, first, p, tangents);
        if (pairs.count() - first == 2)
            findFew<Lanes, 2>(columns, pairs, first, p, tangents);
        else if (pairs.count() - first == 1)
            findFew<Lanes, 1>(columns, pairs, first, p, tangents);
    }
};

struct FormCriteria
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static Criteria run(const double* x, const double* y, int p)
    {
        CriterionChain<Lanes> chain;
        for (int i = 0; i < p; i += laneCount<Lanes>)
            chain.add(lanesAt<Lanes>(x + i).values, lanesAt<Lanes>(y + i).values);
        return chain.result(p);
    }
};

struct FormCriteriaAndSums
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static Criteria run(const double* x, const double* y, int p,
                                              PairSums& sums)
    {
        PairChain<Lanes> chain;
        CriterionChain<Lanes> criteria;
        for (int i = 0; i < p; i += laneCount<Lanes>) {
            const Lanes someX = lanesAt<Lanes>(x + i).values;
            const Lanes someY = lanesAt<Lanes>(y + i).values;
            chain.add(someX, someY);
            criteria.add(someX, someY);
        }
        sums = chain.result();
        return criteria.result(p);
    }
};

struct RotateColumns
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(double* x, double* y, int p, ColumnRotation rotation)
    {
        constexpr int lanes = laneCount<Lanes>;
        for (int i = 0; i < p; i += 2 * lanes) {
            rotateInPlace<Lanes>(x + i, y + i, rotation);
            rotateInPlace<Lanes>(x + i + lanes, y + i + lanes, rotation);
        }
    }
};

struct RotateColumnsInto
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static Criteria run(const double* x, const double* y, int p,
                                              ColumnRotation rotation, double* newX, double* newY)
    {
        CriterionChain<Lanes> criteria;
        for (int i = 0; i < p; i += laneCount<Lanes>) {
            Lanes someX = lanesAt<Lanes>(x + i).values;
            Lanes someY = lanesAt<Lanes>(y + i).values;
            rotatePair(someX, someY, rotation);
            lanesAt<Lanes>(newX + i).values = someX;
            lanesAt<Lanes>(newY + i).values = someY;
            criteria.add(someX, someY);
        }
        return criteria.result(p);
    }
};

} // namespace

PairSums pairSums(const double* x, const double* y, int p)
{
    return runKernel<SumPair>(x, y, p);
}

void findTangents(const AlignedRows& columns, const DisjointPairs& pairs, int p,
                  PairTangents (&tangents)[DisjointPairs::most])
{
    runKernel<FindTangents>(columns, pairs, p, tangents);
}

Criteria columnCriteria(const double* x, const double* y, int p)
{
    return runKernel<FormCriteria>(x, y, p);
}

Criteria criteriaAndSums(const double* x, const double* y, int p, PairSums& sums)
{
    return runKernel<FormCriteriaAndSums>(x, y, p, sums);
}

void rotateColumns(double* x, double* y, int p, ColumnRotation rotation)
{
    runKernel<RotateColumns>(x, y, p, rotation);
}

Criteria rotateColumnsInto(const double* x, const double* y, int p, ColumnRotation rotation,
                           double* newX, double* newY)
{
    return runKernel<RotateColumnsInto>(x, y, p, rotation, newX, newY);
}

} // namespace pelmora
