// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The loops of the rotations over contiguous columns. The four sums of a pair are the lanes of one
// vector (or of two): the terms of some rows are formed side by side, transposed, and added one row
// after the other. Such a chain of additions is bound by their latency, so the hot loop carries two
// of them, and forms the sums of the next pairs from the columns that it rotates.

#include "numerics/kernels/rotationkernels.h"

#include "numerics/kernels/lanes.h"

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
struct PairChain
{
    FourSums<Lanes> sums;

    PELMORA_ALWAYS_INLINE void add(const Lanes& x, const Lanes& y)
    {
        const Lanes u = x * x - y * y;
        const Lanes w = x * y;
        sums.add(u, w, u * w, -0.5 * (u * u) + w * (w + w));
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

/// Rotates a pair and leaves the results in @p x and @p y too.
template <typename Lanes>
PELMORA_ALWAYS_INLINE void rotateInPlace(double* columnX, double* columnY, ColumnRotation rotation,
                                         Lanes& x, Lanes& y)
{
    x = lanesAt<Lanes>(columnX).values;
    y = lanesAt<Lanes>(columnY).values;
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

struct SumTwoPairs
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const TwoPairs& pairs, int p, PairSums& sums,
                                          PairSums& otherSums)
    {
        PairChain<Lanes> chain;
        PairChain<Lanes> otherChain;
        for (int i = 0; i < p; i += laneCount<Lanes>) {
            chain.add(lanesAt<Lanes>(pairs.x + i).values, lanesAt<Lanes>(pairs.next + i).values);
            otherChain.add(lanesAt<Lanes>(pairs.otherX + i).values,
                           lanesAt<Lanes>(pairs.y + i).values);
        }
        sums = chain.result();
        otherSums = otherChain.result();
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
        Lanes newX;
        Lanes newY;
        for (int i = 0; i < p; i += laneCount<Lanes>)
            rotateInPlace(x + i, y + i, rotation, newX, newY);
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

struct RotateTwoPairs
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const TwoPairs& pairs, int p, ColumnRotation rotation,
                                          ColumnRotation otherRotation, PairSums& sums,
                                          PairSums& otherSums)
    {
        const auto [x, y, otherX, otherY, next] = pairs;
        PairChain<Lanes> chain;
        PairChain<Lanes> otherChain;
        for (int i = 0; i < p; i += laneCount<Lanes>) {
            Lanes newX;
            Lanes newY;
            rotateInPlace(x + i, y + i, rotation, newX, newY);
            chain.add(newX, lanesAt<Lanes>(next + i).values);
            Lanes newOtherX;
            Lanes newOtherY;
            rotateInPlace(otherX + i, otherY + i, otherRotation, newOtherX, newOtherY);
            otherChain.add(newOtherX, newY);
        }
        sums = chain.result();
        otherSums = otherChain.result();
    }
};

} // namespace

PairSums pairSums(const double* x, const double* y, int p)
{
    return runKernel<SumPair>(x, y, p);
}

void sumTwoPairs(const TwoPairs& pairs, int p, PairSums& sums, PairSums& otherSums)
{
    runKernel<SumTwoPairs>(pairs, p, sums, otherSums);
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

void rotateTwoPairs(const TwoPairs& pairs, int p, ColumnRotation rotation,
                    ColumnRotation otherRotation, PairSums& sums, PairSums& otherSums)
{
    runKernel<RotateTwoPairs>(pairs, p, rotation, otherRotation, sums, otherSums);
}

} // namespace pelmora
