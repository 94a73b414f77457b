// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The sums of all pairs, arranged for the cache and for vectors. Blocks of cases are centred and
// packed into panels of eight variables, case after case, whose products are added tile by tile.
// Every sum still takes its cases in their order. The sum of a pair is the same in both triangles,
// only the division differs, and the sum of a variable with itself is what its variance divides.

#include "numerics/correlation.h"

#include "numerics/kernels/alignedrows.h"
#include "numerics/kernels/lanes.h"
#include "numerics/kernels/productpanels.h"
#include "numerics/memory.h"
#include "numerics/owners.h"
#include "numerics/progress.h"

#include <algorithm>
#include <cmath>

namespace pelmora {

namespace {

using productpanels::casesPerBlock;
constexpr int panelWidth = productpanels::width;

struct RawData
{
    const double* const* x;
    bool rowWise;
    int variables;
    int cases;
};

/// Four cases at a time, so that a sum is loaded and stored once for all of them.
struct SumColumns
{
    template <typename>
    PELMORA_ALWAYS_INLINE static void run(const RawData& data, double* __restrict sum)
    {
        std::fill_n(sum, data.variables, 0.0);
        int i = 0;
        for (; i + 4 <= data.cases; i += 4) {
            const double* const* rows = data.x + i;
            for (int j = 0; j < data.variables; ++j)
                sum[j] = sum[j] + rows[0][j] + rows[1][j] + rows[2][j] + rows[3][j];
        }
        for (; i < data.cases; ++i)
            for (int j = 0; j < data.variables; ++j)
                sum[j] += data.x[i][j];
    }
};

/// Several rows at a time: their sums do not wait for one another.
void sumRows(const RawData& data, double* sum)
{
    std::fill_n(sum, data.variables, 0.0);
    int j = 0;
    for (; j + 4 <= data.variables; j += 4)
        for (int i = 0; i < data.cases; ++i)
            for (int row = j; row < j + 4; ++row)
                sum[row] += data.x[row][i];
    for (; j < data.variables; ++j)
        for (int i = 0; i < data.cases; ++i)
            sum[j] += data.x[j][i];
}

void findMeans(const RawData& data, double* mean)
{
    if (data.rowWise)
        sumRows(data, mean);
    else
        runKernel<SumColumns>(data, mean);
    // Row-wise data divide by the number of variables, on purpose.
    const int divisor = data.rowWise ? data.variables : data.cases;
    for (int j = 0; j < data.variables; ++j)
        mean[j] /= divisor;
}

/// Fills the panels with the centred values of some cases. Lanes beyond the last variable stay 0.
struct PackColumns
{
    template <typename Lanes>
    PELMORA_ALWAYS_INLINE static void run(const RawData& data, const double* mean, int firstCase,
                                          int count, AlignedRows& panels)
    {
        const int whole = data.variables / panelWidth * panelWidth;
        for (int i = 0; i < count; ++i) {
            const double* values = data.x[firstCase + i];
            double* panel = panels[0] + i * panelWidth;
            for (int j = 0; j < whole; j += panelWidth, panel += panels.stride())
                for (int lane = 0; lane < panelWidth; lane += laneCount<Lanes>)
                    lanesAt<Lanes>(panel + lane).values = lanesAt<Lanes>(values + j + lane).values -
                                                          lanesAt<Lanes>(mean + j + lane).values;
            for (int j = whole; j < data.variables; ++j)
                panel[j - whole] = values[j] - mean[j];
        }
    }
};

void packRows(const RawData& data, const double* mean, int firstCase, int count,
              AlignedRows& panels)
{
    for (int j = 0; j < data.variables; ++j) {
        const double* values = data.x[j] + firstCase;
        double* packed = panels[j / panelWidth] + j % panelWidth;
        for (int i = 0; i < count; ++i)
            packed[i * panelWidth] = values[i] - mean[j];
    }
}

/// False when cancelled.
bool sumProducts(const RawData& data, const double* mean, AlignedRows& panels, AlignedRows& sums)
{
    constexpr double operationsPerProduct = 0.1;
    ProgressMeter meter({.work = Progress::Work::Correlations, .done = 0.0});
    for (int first = 0; first < data.cases; first += casesPerBlock) {
        const int count = std::min(casesPerBlock, data.cases - first);
        if (data.rowWise)
            packRows(data, mean, first, count, panels);
        else
            runKernel<PackColumns>(data, mean, first, count, panels);
        productpanels::addProducts(panels, data.variables, count, sums);
        meter.progress().done = double(first + count) / data.cases;
        if (!meter.goOnAfter(operationsPerProduct * count * data.variables * data.variables))
            return false;
    }
    return true;
}

void divideSums(const AlignedRows& sums, const double* deviation, int p, int n, double** r)
{
    for (int j = 0; j < p; ++j) {
        r[j][j] = 1.0;
        for (int k = j + 1; k < p; ++k) {
            r[j][k] = sums[j][k] / (deviation[j] * n * deviation[k]);
            r[k][j] = sums[j][k] / (deviation[k] * n * deviation[j]);
        }
    }
}

/// The correlations of data whose variables' means and deviations go to @p used; null when memory
/// fails or the user cancels.
double** correlateRaw(const RawData& data, Standardisation& used)
{
    const int p = data.variables;
    const int n = data.cases;
    used = {Vector(p), Vector(p), Vector(p)};
    if (used.isNull())
        return nullptr;
    AlignedRows panels = productpanels::make(p);
    AlignedRows sums(AlignedRows::padded(p), p);
    if (panels.isNull() || sums.isNull())
        return nullptr;
    double** r = matrix(0, p - 1, 0, p - 1);
    if (!r)
        return nullptr;

    findMeans(data, used.means.data());
    if (!sumProducts(data, used.means.data(), panels, sums)) {
        free_matrix(r, 0, 0);
        return nullptr;
    }
    for (int j = 0; j < p; ++j) {
        used.deviations[j] = std::sqrt(sums[j][j] / n);
        used.scales[j] = 1.0 / used.deviations[j];
    }
    divideSums(sums, used.deviations.data(), p, n, r);
    return r;
}

/// Makes z-scores of the data in place.
struct StandardiseColumns
{
    template <typename>
    PELMORA_ALWAYS_INLINE static void run(double** x, int cases, int variables, const double* mean,
                                          const double* scale)
    {
        for (int i = 0; i < cases; ++i) {
            double* __restrict row = x[i];
            for (int j = 0; j < variables; ++j)
                row[j] = (row[j] - mean[j]) * scale[j];
        }
    }
};

void standardiseRows(double** x, int variables, int cases, const double* mean, const double* scale)
{
    for (int j = 0; j < variables; ++j)
        for (int i = 0; i < cases; ++i)
            x[j][i] = (x[j][i] - mean[j]) * scale[j];
}

} // namespace

double** correlate(double** x, int nrows, int ncols, int flag)
{
    const bool rowWise = flag == 1;
    Standardisation used;
    double** r =
        correlateRaw(RawData{x, rowWise, rowWise ? nrows : ncols, rowWise ? ncols : nrows}, used);
    if (!r)
        return nullptr;
    if (rowWise)
        standardiseRows(x, nrows, ncols, used.means.data(), used.scales.data());
    else
        runKernel<StandardiseColumns>(x, nrows, ncols, used.means.data(), used.scales.data());
    return r;
}

Matrix correlations(const Matrix& data, bool rowWise, Standardisation& used)
{
    const int p = rowWise ? data.rows() : data.columns();
    const int n = rowWise ? data.columns() : data.rows();
    return Matrix::adopt(correlateRaw(RawData{data.rowPointers(), rowWise, p, n}, used), p, p);
}

} // namespace pelmora
