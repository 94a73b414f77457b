// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The loops of the rotations over contiguous columns. The four sums of a pair are the lanes of one
// vector: the terms of four rows are formed side by side, turned from rows into lanes, and added
// one row after the other. Such a chain of additions waits more than it works, so the hot loop
// carries two of them, and forms the sums of the next pairs from the columns that it turns.

#include "numerics/rotationkernels.h"

#include "numerics/lanes.h"

#include <cstdint>

namespace pelmora {

namespace {

/// Adds four rows in order; a to d hold their terms, one vector for each sum.
PELMORA_ALWAYS_INLINE void addInOrder(Lanes& sums, const Lanes& a, const Lanes& b, const Lanes& c,
                                      const Lanes& d)
{
    const Lanes evenAB = __builtin_shufflevector(a, b, 0, 4, 2, 6);
    const Lanes oddAB = __builtin_shufflevector(a, b, 1, 5, 3, 7);
    const Lanes evenCD = __builtin_shufflevector(c, d, 0, 4, 2, 6);
    const Lanes oddCD = __builtin_shufflevector(c, d, 1, 5, 3, 7);
    sums += __builtin_shufflevector(evenAB, evenCD, 0, 1, 4, 5);
    sums += __builtin_shufflevector(oddAB, oddCD, 0, 1, 4, 5);
    sums += __builtin_shufflevector(evenAB, evenCD, 2, 3, 6, 7);
    sums += __builtin_shufflevector(oddAB, oddCD, 2, 3, 6, 7);
}

PELMORA_ALWAYS_INLINE void addPair(Lanes& sums, const Lanes& x, const Lanes& y)
{
    const Lanes u = x * x - y * y;
    const Lanes w = x * y;
    addInOrder(sums, u, w, u * w, -0.5 * (u * u) + w * (w + w));
}

PELMORA_ALWAYS_INLINE void addPowers(Lanes& sums, const Lanes& x, const Lanes& y)
{
    const Lanes xx = x * x;
    const Lanes yy = y * y;
    addInOrder(sums, xx, yy, xx * xx, yy * yy);
}

PELMORA_ALWAYS_INLINE void turnPair(Lanes& x, Lanes& y, ColumnTurn turn)
{
    const Lanes oldX = x;
    x = turn.c * oldX + turn.s * y;
    y = -(oldX * turn.s) + y * turn.c;
}

PELMORA_ALWAYS_INLINE PairSums pairSumsOf(const Lanes& sums)
{
    return {sums[0], sums[1], sums[2], sums[3]};
}

PELMORA_ALWAYS_INLINE double criterionOf(double squares, double fourths, int p)
{
    return fourths / p - squares * squares / double(std::int64_t(p) * p);
}

PELMORA_ALWAYS_INLINE Criteria criteriaOf(const Lanes& powers, int p)
{
    return {criterionOf(powers[0], powers[2], p), criterionOf(powers[1], powers[3], p)};
}

} // namespace

PELMORA_VECTOR_CLONES
PairSums pairSums(const double* x, const double* y, int p)
{
    Lanes sums = {};
    for (int i = 0; i < p; i += lanes)
        addPair(sums, lanesAt(x + i).values, lanesAt(y + i).values);
    return pairSumsOf(sums);
}

PELMORA_VECTOR_CLONES
void sumTwoPairs(const TwoPairs& pairs, int p, PairSums& sums, PairSums& otherSums)
{
    Lanes chain = {};
    Lanes otherChain = {};
    for (int i = 0; i < p; i += lanes) {
        addPair(chain, lanesAt(pairs.x + i).values, lanesAt(pairs.next + i).values);
        addPair(otherChain, lanesAt(pairs.otherX + i).values, lanesAt(pairs.y + i).values);
    }
    sums = pairSumsOf(chain);
    otherSums = pairSumsOf(otherChain);
}

PELMORA_VECTOR_CLONES
Criteria columnCriteria(const double* x, const double* y, int p)
{
    Lanes powers = {};
    for (int i = 0; i < p; i += lanes)
        addPowers(powers, lanesAt(x + i).values, lanesAt(y + i).values);
    return criteriaOf(powers, p);
}

PELMORA_VECTOR_CLONES
Criteria sumPair(const double* x, const double* y, int p, PairSums& sums)
{
    Lanes chain = {};
    Lanes powers = {};
    for (int i = 0; i < p; i += lanes) {
        addPair(chain, lanesAt(x + i).values, lanesAt(y + i).values);
        addPowers(powers, lanesAt(x + i).values, lanesAt(y + i).values);
    }
    sums = pairSumsOf(chain);
    return criteriaOf(powers, p);
}

PELMORA_VECTOR_CLONES
void turnColumns(double* x, double* y, int p, ColumnTurn turn)
{
    for (int i = 0; i < p; i += lanes) {
        Lanes turnedX = lanesAt(x + i).values;
        Lanes turnedY = lanesAt(y + i).values;
        turnPair(turnedX, turnedY, turn);
        lanesAt(x + i).values = turnedX;
        lanesAt(y + i).values = turnedY;
    }
}

PELMORA_VECTOR_CLONES
Criteria turnColumnsInto(const double* x, const double* y, int p, ColumnTurn turn, double* newX,
                         double* newY)
{
    Lanes powers = {};
    for (int i = 0; i < p; i += lanes) {
        Lanes turnedX = lanesAt(x + i).values;
        Lanes turnedY = lanesAt(y + i).values;
        turnPair(turnedX, turnedY, turn);
        lanesAt(newX + i).values = turnedX;
        lanesAt(newY + i).values = turnedY;
        addPowers(powers, turnedX, turnedY);
    }
    return criteriaOf(powers, p);
}

PELMORA_VECTOR_CLONES
void turnTwoPairs(const TwoPairs& pairs, int p, ColumnTurn turn, ColumnTurn otherTurn,
                  PairSums& sums, PairSums& otherSums)
{
    const auto [x, y, otherX, otherY, next] = pairs;
    Lanes chain = {};
    Lanes otherChain = {};
    for (int i = 0; i < p; i += lanes) {
        Lanes newX = lanesAt(x + i).values;
        Lanes newY = lanesAt(y + i).values;
        turnPair(newX, newY, turn);
        lanesAt(x + i).values = newX;
        lanesAt(y + i).values = newY;
        addPair(chain, newX, lanesAt(next + i).values);

        Lanes newOtherX = lanesAt(otherX + i).values;
        Lanes newOtherY = lanesAt(otherY + i).values;
        turnPair(newOtherX, newOtherY, otherTurn);
        lanesAt(otherX + i).values = newOtherX;
        lanesAt(otherY + i).values = newOtherY;
        addPair(otherChain, newOtherX, newY);
    }
    sums = pairSumsOf(chain);
    otherSums = pairSumsOf(otherChain);
}

} // namespace pelmora
