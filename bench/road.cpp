// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The whole road, from a raw data file to three kinds of factors with their scores, as a session
// goes it and in the plain forms. The number of factors is the one that the program proposes.

#include "input/asciidata.h"
#include "input/asciidatareader.h"
#include "numerics/factoranalysis.h"
#include "numerics/initialfactors.h"
#include "numerics/jacobi.h"
#include "numerics/numberoffactors.h"
#include "numerics/owners.h"
#include "numerics/rotation.h"
#include "plain/numerics.h"
#include "plain/reader.h"
#include "samplefile.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <stdexcept>

using namespace pelmora;

namespace {

constexpr int methods[] = {PelmoraRotation, VarimaxRotation, NoRotation};

double fastRoad(const QString& path)
{
    AsciiDataReader reader(path, nullptr);
    AsciiData data;
    if (!reader.readFile() || !reader.checkConsistency() ||
        !data.allocate(reader.lineCount(), reader.columnCount()) || !reader.getData(data))
        throw std::runtime_error("cannot read the sample file");
    const auto correlations = pelmora::formCorrelations(data.matrix(), false);
    const auto decomposition = pelmora::decompose(correlations.matrix);
    double sum = 0.0;
    for (const int method : methods) {
        const auto factors =
            pelmora::extractFactors(decomposition, proposedFactors(decomposition.eigenvalues),
                                    method, {.data = &data.matrix(), .used = &correlations.used});
        sum += factors.loadings[0][0] + factors.scores[0][0];
    }
    return sum;
}

struct PlainFactors
{
    Matrix loadings;
    Matrix scores;
};

PlainFactors plainFactors(const Vector& d, const Matrix& v, const Matrix& z, int method)
{
    const int p = d.size();
    const int m = proposedFactors(d);
    PlainFactors factors{Matrix(p, m + 1), Matrix(z.rows(), m)};
    Matrix coefficients(p, m);
    initial_loadings(d.data(), v.rowPointers(), p, std::min(m + 1, p),
                     factors.loadings.rowPointers());
    score_coefficients(d.data(), v.rowPointers(), p, m, coefficients.rowPointers());
    if (method != NoRotation)
        plain::rotate(factors.loadings.rowPointers(), coefficients.rowPointers(), m, p, method);
    plain::multiply(factors.scores.rowPointers(), z.rowPointers(), 0, coefficients.rowPointers(),
                    z.rows(), p, m);
    return factors;
}

double plainRoad(const QString& path)
{
    plain::TextFile file;
    if (!plain::readFile(path, file) || !plain::firstFault(file).isEmpty())
        throw std::runtime_error("cannot read the sample file");
    const int p = plain::columnCount(file);
    Matrix z(int(file.data.size()), p);
    plain::fillMatrix(file, z.rowPointers());
    benchmark::DoNotOptimize(plain::variableNames(file));

    Matrix r = Matrix::adopt(plain::correlate(z.rowPointers(), z.rows(), p, 0), p, p);
    Vector d(p);
    Matrix v(p, p);
    plain::jacobi(r.rowPointers(), p, d.data(), v.rowPointers());
    sort_eigenpairs(d.data(), v.rowPointers(), p);
    double sum = 0.0;
    for (const int method : methods) {
        const PlainFactors factors = plainFactors(d, v, z, method);
        sum += factors.loadings[0][0] + factors.scores[0][0];
    }
    return sum;
}

template <auto road>
void walk(benchmark::State& state)
{
    const samples::File file(int(state.range(0)), int(state.range(1)));
    double sum = 0.0;
    for (auto _ : state)
        benchmark::DoNotOptimize(sum = road(file.path()));
    if (sum != fastRoad(file.path()))
        state.SkipWithError("the fast and the plain road lead to different results");
}

void shapes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({1000, 60})->Args({100000, 50})->Args({1000, 500});
    benchmark->Unit(benchmark::kMillisecond);
}

BENCHMARK(walk<fastRoad>)->Name("roadFast")->Apply(shapes);
BENCHMARK(walk<plainRoad>)->Name("roadPlain")->Apply(shapes);

} // namespace
