// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// A pair (i, j) has d_k = |a_ik - a_jk| on factor k. With m factors its difference for the focal
// factor f is
//
//     d_f - (sum of d_k over k != f) / (m - 1)
//
// The sum over all k serves every focal factor: d_f - (sum - d_f) / (m - 1) is the same but for
// rounding. A pair that misses the ranks by more than this rounding is passed over; every other one
// is computed as it is written above, so the ranking is exactly that of the plain formula.

#include "minimalpairs/minimalpairfinder.h"

#include "numerics/progress.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

struct Candidate
{
    int first = 0;
    int second = 0;
    double difference = 0.0;
};

using Ranks = std::vector<Candidate>;

bool isBetter(double difference, double other)
{
    return difference > other || (std::isnan(other) && !std::isnan(difference));
}

/// Pairs arrive by ascending indices, so among equal differences those that are ranked stay in
/// front.
void enter(Ranks& ranks, const Candidate& candidate, std::size_t limit)
{
    const auto place = std::find_if(ranks.begin(), ranks.end(), [&](const Candidate& ranked) {
        return isBetter(candidate.difference, ranked.difference);
    });
    ranks.insert(place, candidate);
    if (ranks.size() > limit)
        ranks.pop_back();
}

/// All pairs of one loading matrix, seen one after another.
class Search
{
public:
    Search(const pelmora::Matrix& loadings, int limit)
        : m_loadings(loadings)
        , m_factors(loadings.columns())
        , m_limit(static_cast<std::size_t>(limit))
        , m_differences(static_cast<std::size_t>(m_factors))
        , m_thresholds(static_cast<std::size_t>(m_factors),
                       -std::numeric_limits<double>::infinity())
        , m_ranks(static_cast<std::size_t>(m_factors))
    {
    }

    std::vector<Ranks> run()
    {
        constexpr double operationsPerDifference = 2.0;
        const int variables = m_loadings.rows();
        pelmora::ProgressMeter meter({.work = pelmora::Progress::Work::MinimalPairs});
        for (int first = 0; first < variables; ++first) {
            for (int second = first + 1; second < variables; ++second)
                consider(first, second);
            const double left = 1.0 - double(first) / variables;
            meter.progress().done = 1.0 - left * left;
            if (!meter.goOnAfter(operationsPerDifference * (variables - first) * m_factors))
                return {};
        }
        return std::move(m_ranks);
    }

private:
    void consider(int first, int second)
    {
        const double total = sumDifferences(m_loadings[first], m_loadings[second]);
        if (std::isnan(total) && m_ranks.front().size() == m_limit)
            return; // not a number for any focal factor
        const double others = m_factors > 1 ? 1.0 / (m_factors - 1) : 0.0;
        // No step of either sum is rounded by more than epsilon times the total.
        using Limits = std::numeric_limits<double>;
        const double slack = 8.0 * m_factors * Limits::epsilon() * total + Limits::min();
        for (int focal = 0; focal < m_factors; ++focal) {
            const double difference = m_differences[static_cast<std::size_t>(focal)];
            const double quick = difference - (total - difference) * others;
            // Not "quick + slack >= threshold": what is not a number has to be computed too.
            if (!(quick + slack < m_thresholds[static_cast<std::size_t>(focal)]))
                rank(first, second, focal);
        }
    }

    double sumDifferences(const double* first, const double* second)
    {
        double total = 0.0;
        for (int factor = 0; factor < m_factors; ++factor) {
            const double difference = std::abs(first[factor] - second[factor]);
            m_differences[static_cast<std::size_t>(factor)] = difference;
            total += difference;
        }
        return total;
    }

    void rank(int first, int second, int focal)
    {
        const double difference =
            m_differences[static_cast<std::size_t>(focal)] -
            averageNonFocalDifference(m_loadings[first], m_loadings[second], m_factors, focal);
        auto& ranks = m_ranks[static_cast<std::size_t>(focal)];
        if (ranks.size() == m_limit && !isBetter(difference, ranks.back().difference))
            return;
        enter(ranks, {first, second, difference}, m_limit);
        if (ranks.size() == m_limit && !std::isnan(ranks.back().difference))
            m_thresholds[static_cast<std::size_t>(focal)] = ranks.back().difference;
    }

    const pelmora::Matrix& m_loadings;
    const int m_factors;
    const std::size_t m_limit;
    std::vector<double> m_differences; ///< of the pair under consideration, per factor
    std::vector<double> m_thresholds;  ///< difference of the last rank, per focal factor
    std::vector<Ranks> m_ranks;
};

MinimalPair::Variable variable(const NamedMatrix& loadings, int index)
{
    const double* row = loadings.values[index];
    const auto position = static_cast<std::size_t>(index);
    return {index,
            {row, row + loadings.values.columns()},
            position < loadings.names.size() ? loadings.names.text(position) : QString()};
}

int countPairs(int variables, int limit)
{
    const auto pairs = static_cast<long long>(variables) * (variables - 1) / 2;
    return static_cast<int>(std::clamp<long long>(limit, 0, pairs));
}

} // namespace

double averageNonFocalDifference(const double* first, const double* second, int factors,
                                 int focalFactor)
{
    double sum = 0.0;
    for (int factor = 0; factor < factors; ++factor)
        if (factor != focalFactor)
            sum += std::abs(first[factor] - second[factor]);
    return factors > 1 ? sum / (factors - 1) : 0.0;
}

MinimalPairFinder::MinimalPairFinder(const NamedMatrix& loadings, int limit)
    : m_variableCount(loadings.values.rows())
    , m_factorCount(loadings.values.columns())
    , m_pairCount(countPairs(m_variableCount, limit))
    , m_ranked(static_cast<std::size_t>(m_factorCount))
{
    if (m_pairCount == 0)
        return;
    const auto found = Search(loadings.values, m_pairCount).run();
    if (found.empty())
        m_pairCount = 0;
    for (std::size_t focal = 0; focal < found.size(); ++focal)
        for (const auto& [first, second, difference] : found[focal])
            m_ranked[focal].push_back(
                {{variable(loadings, first), variable(loadings, second)}, difference});
}

std::vector<int> MinimalPairFinder::nonFocalFactors(int focalFactor) const
{
    std::vector<int> factors;
    for (int factor = 0; factor < m_factorCount; ++factor)
        if (factor != focalFactor)
            factors.push_back(factor);
    return factors;
}

MinimalPair MinimalPairFinder::pair(int focalFactor, int rank) const
{
    const bool exists =
        focalFactor >= 0 && focalFactor < m_factorCount && rank >= 0 && rank < m_pairCount;
    if (!exists)
        throw std::out_of_range("no such minimal pair!");
    return m_ranked[static_cast<std::size_t>(focalFactor)][static_cast<std::size_t>(rank)];
}
