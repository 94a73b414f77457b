// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Every kernel beside its plain form, on the same input. Inputs that a kernel destroys are copied
// afresh in both, which costs next to nothing.

#include "plain/numerics.h"
#include "numerics/correlation.h"
#include "numerics/jacobi.h"
#include "numerics/owners.h"
#include "numerics/product.h"
#include "numerics/rotation.h"
#include "samples.h"

#include <benchmark/benchmark.h>

#include <map>
#include <tuple>

using namespace pelmora;

namespace {

template <auto correlateForm>
void standardise(benchmark::State& state)
{
    const int cases = int(state.range(0));
    const int variables = int(state.range(1));
    Matrix x = samples::answers(cases, variables);
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
    const Matrix r = samples::correlationsOf(samples::answers(3 * n, n));
    Matrix a(n, n);
    Matrix v(n, n);
    Vector d(n);
    for (auto _ : state) {
        samples::copyInto(a, r);
        benchmark::DoNotOptimize(jacobiForm(a.rowPointers(), n, d.data(), v.rowPointers()));
    }
}

const samples::Unrotated& unrotatedFactors(int variables, int factors, int dataSet)
{
    static std::map<std::tuple<int, int, int>, samples::Unrotated> made;
    const auto [place, isNew] = made.try_emplace({variables, factors, dataSet});
    if (isNew)
        place->second = samples::unrotatedFactors(variables, factors, dataSet);
    return place->second;
}

/// Several data sets take turns.
template <auto rotateForm, RotationMethod method, int dataSets = 1>
void turnFactors(benchmark::State& state)
{
    const int p = int(state.range(0));
    const int m = int(state.range(1));
    for (int i = 0; i < dataSets; ++i)
        unrotatedFactors(p, m, i);
    Matrix l(p, m + 1);
    Matrix b(p, m);
    int turn = 0;
    for (auto _ : state) {
        const samples::Unrotated& start = unrotatedFactors(p, m, turn++ % dataSets);
        samples::copyInto(l, start.loadings);
        samples::copyInto(b, start.coefficients);
        rotateForm(l.rowPointers(), b.rowPointers(), m, p, method);
        benchmark::DoNotOptimize(l[0]);
    }
}

template <auto multiplyForm>
void formScores(benchmark::State& state)
{
    const int cases = int(state.range(0));
    const int variables = int(state.range(1));
    const int factors = int(state.range(2));
    const Matrix x = samples::answers(cases, variables);
    const Matrix b = samples::answers(variables, factors);
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
    for (int n : {25, 60, 100, 200, 500})
        benchmark->Arg(n);
    benchmark->Unit(benchmark::kMillisecond);
}

void factorSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({60, 10})->Args({200, 40});
    benchmark->Unit(benchmark::kMillisecond);
}

/// What takes long is repeated less often.
template <int repetitions>
void hugeMatrix(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(1000)->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
}

template <int repetitions>
void manyFactors(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({500, 100})->Unit(benchmark::kMillisecond)->Repetitions(repetitions);
}

void scoreSizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({100000, 50, 10})->Args({1000, 500, 100})->Args({1000, 60, 10});
    benchmark->Unit(benchmark::kMillisecond);
}

/// How many sweeps a rotation needs is a matter of luck.
constexpr int luck = 5;

void moreFactors(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgsProduct({{500}, {25, 35, 50, 70, 100}});
    benchmark->Unit(benchmark::kMillisecond)->Iterations(luck);
}

BENCHMARK(standardise<correlate>)->Name("correlateFast")->Apply(dataSizes);
BENCHMARK(standardise<plain::correlate>)->Name("correlatePlain")->Apply(dataSizes);
BENCHMARK(decompose<jacobi>)->Name("jacobiFast")->Apply(matrixSizes);
BENCHMARK(decompose<jacobi>)->Name("jacobiFast")->Apply(hugeMatrix<5>);
BENCHMARK(decompose<plain::jacobi>)->Name("jacobiPlain")->Apply(matrixSizes);
BENCHMARK(decompose<plain::jacobi>)->Name("jacobiPlain")->Apply(hugeMatrix<2>);

BENCHMARK(turnFactors<pelmora::rotate, VarimaxRotation>)->Name("varimaxFast")->Apply(factorSizes);
BENCHMARK(turnFactors<pelmora::rotate, VarimaxRotation>)
    ->Name("varimaxFast")
    ->Apply(manyFactors<5>);
BENCHMARK(turnFactors<plain::rotate, VarimaxRotation>)->Name("varimaxPlain")->Apply(factorSizes);
BENCHMARK(turnFactors<plain::rotate, VarimaxRotation>)->Name("varimaxPlain")->Apply(manyFactors<2>);
BENCHMARK(turnFactors<pelmora::rotate, PelmoraRotation>)->Name("pelmoraFast")->Apply(factorSizes);
BENCHMARK(turnFactors<pelmora::rotate, PelmoraRotation>)
    ->Name("pelmoraFast")
    ->Apply(manyFactors<3>);
BENCHMARK(turnFactors<plain::rotate, PelmoraRotation>)->Name("pelmoraPlain")->Apply(factorSizes);
BENCHMARK(turnFactors<plain::rotate, PelmoraRotation>)->Name("pelmoraPlain")->Apply(manyFactors<1>);

BENCHMARK(decompose<jacobi>)
    ->Name("growthJacobi")
    ->ArgsProduct({{250, 350, 500, 700, 1000, 1400, 2000}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(turnFactors<pelmora::rotate, VarimaxRotation, luck>)
    ->Name("growthVarimax")
    ->Apply(moreFactors);
BENCHMARK(turnFactors<pelmora::rotate, PelmoraRotation, luck>)
    ->Name("growthPelmora")
    ->Apply(moreFactors);

BENCHMARK(formScores<multiply>)->Name("productFast")->Apply(scoreSizes);
BENCHMARK(formScores<plain::multiply>)->Name("productPlain")->Apply(scoreSizes);

} // namespace
