// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Every kernel beside its plain form, on the same input. Inputs that a kernel destroys are copied
// afresh in both, which costs next to nothing.

#include "plain/numerics.h"
#include "numerics/correlation.h"
#include "numerics/initialfactors.h"
#include "numerics/jacobi.h"
#include "numerics/owners.h"
#include "numerics/product.h"
#include "numerics/rotation.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <random>

using namespace pelmora;

namespace {

void copyInto(Matrix& to, const Matrix& from)
{
    std::copy_n(from[0], std::size_t(from.rows()) * std::size_t(from.columns()), to[0]);
}

double uniform(std::mt19937_64& generator)
{
    return static_cast<double>(generator() >> 11) * 0x1p-53 - 0.5;
}

/// Answers to a questionnaire: each group of five variables has something in common, and all have
/// a little.
Matrix answers(int cases, int variables)
{
    std::mt19937_64 generator{std::mt19937_64::result_type(cases) * 1000 + unsigned(variables)};
    Matrix x(cases, variables);
    for (int i = 0; i < cases; ++i) {
        const double general = uniform(generator);
        double common = 0.0;
        for (int j = 0; j < variables; ++j) {
            if (j % 5 == 0)
                common = uniform(generator);
            x[i][j] = 3.0 + 2.0 * common + general + uniform(generator);
        }
    }
    return x;
}

Matrix correlations(int variables)
{
    Matrix x = answers(3 * variables, variables);
    return Matrix::adopt(correlate(x.rowPointers(), x.rows(), variables, 0), variables, variables);
}

template <auto correlateForm>
void standardise(benchmark::State& state)
{
    const int cases = int(state.range(0));
    const int variables = int(state.range(1));
    Matrix x = answers(cases, variables);
    for (auto _ : state) {
        const Matrix r = Matrix::adopt(correlateForm(x.rowPointers(), cases, variables, 0),
                                       variables, variables);
        benchmark::DoNotOptimize(r[0]);
    }
}

template <auto jacobiForm>
void decompose(benchmark::State& state)
{
    const int n = int(state.range(0));
    const Matrix r = correlations(n);
    Matrix a(n, n);
    Matrix v(n, n);
    Vector d(n);
    for (auto _ : state) {
        copyInto(a, r);
        benchmark::DoNotOptimize(jacobiForm(a.rowPointers(), n, d.data(), v.rowPointers()));
    }
}

template <auto rotateForm>
void turnFactors(benchmark::State& state)
{
    const int p = int(state.range(0));
    const int m = int(state.range(1));
    Matrix r = correlations(p);
    Matrix v(p, p);
    Vector d(p);
    jacobi(r.rowPointers(), p, d.data(), v.rowPointers());
    sort_eigenpairs(d.data(), v.rowPointers(), p);
    Matrix initial(p, m + 1);
    Matrix coefficients(p, m);
    initial_loadings(d.data(), v.rowPointers(), p, m + 1, initial.rowPointers());
    score_coefficients(d.data(), v.rowPointers(), p, m, coefficients.rowPointers());
    Matrix l(p, m + 1);
    Matrix b(p, m);
    for (auto _ : state) {
        copyInto(l, initial);
        copyInto(b, coefficients);
        rotateForm(l.rowPointers(), b.rowPointers(), m, p, VarimaxRotation);
        benchmark::DoNotOptimize(l[0]);
    }
}

template <auto multiplyForm>
void formScores(benchmark::State& state)
{
    const int cases = int(state.range(0));
    const int variables = int(state.range(1));
    const int factors = int(state.range(2));
    const Matrix x = answers(cases, variables);
    const Matrix b = answers(variables, factors);
    Matrix scores(cases, factors);
    for (auto _ : state) {
        multiplyForm(scores.rowPointers(), x.rowPointers(), 0, b.rowPointers(), cases, variables,
                     factors);
        benchmark::DoNotOptimize(scores[0]);
    }
}

void dataSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({100000, 50})->Args({1000, 500})->Args({1000, 60});
    benchmark->Unit(benchmark::kMillisecond);
}

void matrixSizes(benchmark::internal::Benchmark* benchmark)
{
    for (int n : {25, 60, 100, 200, 500, 1000})
        benchmark->Arg(n);
    benchmark->Unit(benchmark::kMillisecond);
}

void factorSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({60, 10})->Args({200, 40})->Args({500, 100});
    benchmark->Unit(benchmark::kMillisecond);
}

void scoreSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({100000, 50, 10})->Args({1000, 500, 100})->Args({1000, 60, 10});
    benchmark->Unit(benchmark::kMillisecond);
}

BENCHMARK(standardise<correlate>)->Name("correlateFast")->Apply(dataSizes);
BENCHMARK(standardise<plain::correlate>)->Name("correlatePlain")->Apply(dataSizes);
BENCHMARK(decompose<jacobi>)->Name("jacobiFast")->Apply(matrixSizes);
BENCHMARK(decompose<plain::jacobi>)->Name("jacobiPlain")->Apply(matrixSizes);
BENCHMARK(turnFactors<pelmora::rotate>)->Name("rotationFast")->Apply(factorSizes);
BENCHMARK(turnFactors<plain::rotate>)->Name("rotationPlain")->Apply(factorSizes);
BENCHMARK(formScores<multiply>)->Name("productFast")->Apply(scoreSizes);
BENCHMARK(formScores<plain::multiply>)->Name("productPlain")->Apply(scoreSizes);

} // namespace

BENCHMARK_MAIN();
