// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace pelmora {

/// First and second moments of cases that need not be in memory together: their number, the means,
/// and the sums of products of deviations from the means. Moments of parts are merged to those of
/// the whole.
/// A mean is kept as the sum of two doubles, or a mean of 10^8 would cost the deviations seven
/// digits. Running out of memory throws std::bad_alloc.
class Moments
{
public:
    Moments() = default;
    explicit Moments(int variables);

    int variables() const { return static_cast<int>(shift.size()); }

    /// Merges the moments of other cases of the same variables. The order matters to the last bits.
    /// Chan, T. F., Golub, G. H. & LeVeque, R. J. (1983), Algorithms for computing the sample
    /// variance, The American Statistician 37, 242-247.
    void merge(const Moments& other);

    double mean(int j) const;
    /// Divisor n.
    double standardDeviation(int j) const;
    /// Exactly 1 for j == k and for equal variables; not a number where one is constant.
    double correlation(int j, int k) const;

    /// Sums of products of variable j with itself and those after it.
    std::span<double> productRow(int j);
    std::span<const double> productRow(int j) const;

    std::uint64_t cases = 0;
    std::vector<double> shift;    ///< the means, rounded
    std::vector<double> rest;     ///< what was rounded off
    std::vector<double> products; ///< the upper triangle, row by row

private:
    std::size_t rowStart(int j) const;
};

/// Gathers the moments of cases, block by block. A block is centred on its own mean, which is found
/// as a deviation from the very first case: so a constant variable has sums of exactly 0.
class MomentsGatherer
{
public:
    /// As many cases as a block may have. Where blocks end matters to the last bits.
    static constexpr int casesPerBlock = 4096;

    explicit MomentsGatherer(int variables);
    ~MomentsGatherer();

    /// @param values  one case after the other
    /// @param cases   at most casesPerBlock
    void addBlock(const double* values, int cases);

    Moments takeMoments() { return std::move(m_moments); }

private:
    struct Block;

    Moments m_moments;
    std::unique_ptr<Block> m_block;
};

} // namespace pelmora
