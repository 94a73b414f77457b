// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/namedmatrix.h"

#include <QString>

#include <array>
#include <vector>

/// Two variables that differ much on the focal factor and little on all others.
struct MinimalPair
{
    struct Variable
    {
        int index = 0;                ///< 0-based row of the loading matrix
        std::vector<double> loadings; ///< on every factor, in the matrix's order
        QString name;
    };
    std::array<Variable, 2> variables; ///< the smaller index first
    /// |difference| on the focal factor minus the average |difference| on the non-focal factors.
    double difference = 0.0;
};

/// Ranks the pairs of variables of one loading matrix for each of its factors as focal factor: by
/// MinimalPair::difference, highest first, ties by the smaller first and then second index. Pairs
/// whose difference is not a number come last.
class MinimalPairFinder
{
public:
    /// Ranks the best @p limit pairs for every focal factor. What all focal factors share is
    /// computed once for all. Cancelled (see numerics/progress.h), there is no pair.
    explicit MinimalPairFinder(const NamedMatrix& loadings, int limit = 3);

    int variableCount() const { return m_variableCount; }
    int factorCount() const { return m_factorCount; }

    /// Number of ranked pairs per focal factor: limit, or fewer where there are fewer pairs.
    int pairCount() const { return m_pairCount; }

    /// Every factor index except @p focalFactor, ascending.
    std::vector<int> nonFocalFactors(int focalFactor) const;

    /// Pair @p rank (0 is the best) for @p focalFactor (0-based). Throws std::out_of_range with the
    /// text "no such minimal pair!" beyond the last pair.
    MinimalPair pair(int focalFactor, int rank) const;

private:
    int m_variableCount = 0;
    int m_factorCount = 0;
    int m_pairCount = 0;
    std::vector<std::vector<MinimalPair>> m_ranked; ///< per focal factor, the best first
};

/// The average |difference| of a pair on all factors but @p focalFactor, summed in ascending order;
/// 0 where there is no other factor.
double averageNonFocalDifference(const double* first, const double* second, int factors,
                                 int focalFactor);
