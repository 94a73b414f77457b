// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The mean of a block is found from deviations from the first case, which are rounded where that
// case is far away. The values centred on this mean are therefore summed once more: the small rest
// corrects the sums of products and is added to the mean.

#include "numerics/moments.h"

#include "numerics/kernels/lanes.h"
#include "numerics/kernels/productpanels.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <new>

namespace pelmora {

namespace {

std::size_t triangleSize(int variables)
{
    const auto p = static_cast<std::size_t>(variables);
    return p * (p + 1) / 2;
}

/// The two doubles of @p large + @p small: the rounded sum and what was rounded off.
/// Knuth, D. E. (1969), The Art of Computer Programming 2, section 4.2.2.
struct TwoDoubles
{
    double sum;
    double rest;

    TwoDoubles(double large, double small) : sum(large + small)
    {
        const double part = sum - large;
        rest = (large - (sum - part)) + (small - part);
    }
};

/// Adds @p addend to the mean of variable @p j.
void shiftMean(Moments& moments, std::size_t j, double addend)
{
    const TwoDoubles mean(moments.shift[j], moments.rest[j] + addend);
    moments.shift[j] = mean.sum;
    moments.rest[j] = mean.rest;
}

int halfExponent(double square)
{
    int exponent = 0;
    std::frexp(square, &exponent);
    return (exponent + (exponent & 1)) / 2;
}

/// Merges @p part into @p whole; @p rowOf returns a row of the products of @p part, from the
/// diagonal on.
template <typename RowOf>
void mergeInto(Moments& whole, const Moments& part, RowOf rowOf)
{
    const int p = whole.variables();
    const auto wholeCases = static_cast<double>(whole.cases);
    const auto partCases = static_cast<double>(part.cases);
    const double share = partCases / (wholeCases + partCases);
    const double weight = wholeCases * share;
    std::vector<double> differences(whole.shift.size());
    for (std::size_t j = 0; j < differences.size(); ++j)
        differences[j] = (part.shift[j] - whole.shift[j]) + (part.rest[j] - whole.rest[j]);
    for (int j = 0; j < p; ++j) {
        const std::span<double> sums = whole.productRow(j);
        const double* added = rowOf(j);
        const double* difference = differences.data() + j;
        const double weighted = difference[0] * weight;
        for (std::size_t k = 0; k < sums.size(); ++k)
            sums[k] += added[k] + weighted * difference[k];
    }
    for (std::size_t j = 0; j < differences.size(); ++j)
        shiftMean(whole, j, differences[j] * share);
    whole.cases += part.cases;
}

struct SumDeviations
{
    template <typename>
    PELMORA_ALWAYS_INLINE static void run(const double* values, int cases, int variables,
                                          const double* __restrict centre, double* __restrict sums)
    {
        int i = 0;
        for (; i + 4 <= cases; i += 4) {
            const double* rows[4];
            for (int r = 0; r < 4; ++r)
                rows[r] = values + std::ptrdiff_t(i + r) * variables;
            for (int j = 0; j < variables; ++j)
                sums[j] = sums[j] + (rows[0][j] - centre[j]) + (rows[1][j] - centre[j]) +
                          (rows[2][j] - centre[j]) + (rows[3][j] - centre[j]);
        }
        for (; i < cases; ++i)
            for (int j = 0; j < variables; ++j)
                sums[j] += values[std::ptrdiff_t(i) * variables + j] - centre[j];
    }
};

/// Packs centred values, and adds them up.
struct PackCentred
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const double* values, int cases, const Moments& centre,
                                          AlignedRows& panels, double* sums)
    {
        constexpr int lanes = laneCount<Lanes>;
        constexpr int width = productpanels::width;
        const int variables = centre.variables();
        const int whole = variables / width * width;
        const double* shift = centre.shift.data();
        const double* rest = centre.rest.data();
        for (int i = 0; i < cases; ++i, values += variables) {
            double* panel = panels[0] + i * width;
            for (int j = 0; j < whole; j += width, panel += panels.stride())
                for (int lane = 0; lane < width; lane += lanes) {
                    const int at = j + lane;
                    const Lanes centred =
                        (lanesAt<Lanes>(values + at).values - lanesAt<Lanes>(shift + at).values) -
                        lanesAt<Lanes>(rest + at).values;
                    lanesAt<Lanes>(panel + lane).values = centred;
                    lanesAt<Lanes>(sums + at).values += centred;
                }
            for (int j = whole; j < variables; ++j) {
                const double centred = (values[j] - shift[j]) - rest[j];
                panel[j - whole] = centred;
                sums[j] += centred;
            }
        }
    }
};

} // namespace

Moments::Moments(int variables)
    : shift(static_cast<std::size_t>(variables))
    , rest(static_cast<std::size_t>(variables))
    , products(triangleSize(variables))
{
}

std::size_t Moments::rowStart(int j) const
{
    const auto row = static_cast<std::size_t>(j);
    return row * shift.size() - row * (row - 1) / 2;
}

std::span<double> Moments::productRow(int j)
{
    return std::span(products).subspan(rowStart(j), shift.size() - static_cast<std::size_t>(j));
}

std::span<const double> Moments::productRow(int j) const
{
    return std::span(products).subspan(rowStart(j), shift.size() - static_cast<std::size_t>(j));
}

void Moments::merge(const Moments& other)
{
    if (other.cases == 0)
        return;
    if (cases == 0)
        *this = other;
    else
        mergeInto(*this, other, [&other](int j) { return other.productRow(j).data(); });
}

double Moments::mean(int j) const
{
    const auto at = static_cast<std::size_t>(j);
    return shift[at] + rest[at];
}

double Moments::standardDeviation(int j) const
{
    return std::sqrt(productRow(j)[0] / static_cast<double>(cases));
}

double Moments::correlation(int j, int k) const
{
    const int first = std::min(j, k);
    const int second = std::max(j, k);
    const double firstSquare = productRow(first)[0];
    const double secondSquare = productRow(second)[0];
    const double product = productRow(first)[static_cast<std::size_t>(second - first)];
    // Both squares are divided by even powers of two, so that their product cannot overflow.
    const int a = halfExponent(firstSquare);
    const int b = halfExponent(secondSquare);
    return std::ldexp(product, -a - b) /
           std::sqrt(std::ldexp(firstSquare, -2 * a) * std::ldexp(secondSquare, -2 * b));
}

/// Means, sums of products and working space of one block.
struct MomentsGatherer::Block
{
    explicit Block(int variables)
        : means(0)
        , sums(static_cast<std::size_t>(variables))
        , panels(productpanels::make(variables))
        , products(AlignedRows::padded(variables), variables)
    {
        means.shift.resize(sums.size());
        means.rest.resize(sums.size());
        if (panels.isNull() || products.isNull())
            throw std::bad_alloc();
    }

    void findMeans(const double* values, int cases);
    void sumProducts(const double* values, int cases);

    Moments means; ///< without products
    std::vector<double> firstCase;
    std::vector<double> sums;
    AlignedRows panels;
    AlignedRows products;
};

void MomentsGatherer::Block::findMeans(const double* values, int cases)
{
    means.cases = static_cast<std::uint64_t>(cases);
    std::fill(sums.begin(), sums.end(), 0.0);
    runKernel<SumDeviations>(values, cases, means.variables(), firstCase.data(), sums.data());
    for (std::size_t j = 0; j < sums.size(); ++j) {
        const TwoDoubles mean(firstCase[j], sums[j] / cases);
        means.shift[j] = mean.sum;
        means.rest[j] = mean.rest;
    }
}

void MomentsGatherer::Block::sumProducts(const double* values, int cases)
{
    const int p = means.variables();
    for (int row = 0; row < p; ++row)
        std::fill_n(products[row], AlignedRows::padded(p), 0.0);
    std::fill(sums.begin(), sums.end(), 0.0);
    for (int first = 0; first < cases; first += productpanels::casesPerBlock) {
        const int count = std::min(productpanels::casesPerBlock, cases - first);
        runKernel<PackCentred>(values + std::ptrdiff_t(first) * p, count, means, panels,
                               sums.data());
        productpanels::addProducts(panels, p, count, products);
    }
    for (int j = 0; j < p; ++j) {
        const double mean = sums[static_cast<std::size_t>(j)] / cases;
        for (int k = j; k < p; ++k)
            products[j][k] -= mean * sums[static_cast<std::size_t>(k)];
        shiftMean(means, static_cast<std::size_t>(j), mean);
    }
}

MomentsGatherer::MomentsGatherer(int variables)
    : m_moments(variables)
    , m_block(std::make_unique<Block>(variables))
{
}

MomentsGatherer::~MomentsGatherer() = default;

void MomentsGatherer::addBlock(const double* values, int cases)
{
    if (m_block->firstCase.empty())
        m_block->firstCase.assign(values, values + m_moments.variables());
    m_block->findMeans(values, cases);
    m_block->sumProducts(values, cases);
    if (m_moments.cases == 0) {
        m_moments.shift = m_block->means.shift;
        m_moments.rest = m_block->means.rest;
    }
    const AlignedRows& products = m_block->products;
    mergeInto(m_moments, m_block->means, [&products](int j) { return products[j] + j; });
}

} // namespace pelmora
