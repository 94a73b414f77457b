// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// What is told of correlations before factors are asked for.

#include "numerics/adequacy.h"
#include "numerics/numberoffactors.h"
#include "numerics/parallelanalysis.h"

#include <benchmark/benchmark.h>

using namespace pelmora;

namespace {

void parallelAnalysisOf(benchmark::State& state)
{
    const int variables = int(state.range(0));
    const int cases = int(state.range(1));
    for (auto _ : state)
        benchmark::DoNotOptimize(parallelAnalysis(variables, cases, 1000)->mean.data());
}

void adequacyAndPartials(benchmark::State& state)
{
    const int variables = int(state.range(0));
    RandomNumbers random;
    Matrix r(variables, variables);
    Vector row(variables);
    randomCorrelations(random, 2 * variables, r, row);
    const Decomposition d = decompose(r);
    for (auto _ : state) {
        benchmark::DoNotOptimize(adequacy(r, d).kmo.value);
        benchmark::DoNotOptimize(minimumAveragePartial(r, d).value.bySquares);
    }
}

} // namespace

BENCHMARK(parallelAnalysisOf)
    ->Args({25, 1000})
    ->Args({60, 1000})
    ->Args({50, 100000})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(adequacyAndPartials)->Arg(60)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
