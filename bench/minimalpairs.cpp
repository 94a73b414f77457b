// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Ranking the pairs of all focal factors, as every factor page does. Shapes are "variables x
// factors".

#include "minimalpairs/minimalpairfinder.h"

#include <benchmark/benchmark.h>

#include <random>

namespace {

NamedMatrix normalLoadings(int variables, int factors)
{
    std::mt19937 random(1);
    std::normal_distribution<double> normal(0.0, 0.3);
    NamedMatrix loadings{pelmora::Matrix(variables, factors),
                         VariableNames(static_cast<std::size_t>(variables))};
    for (int i = 0; i < variables; ++i)
        for (int k = 0; k < factors; ++k)
            loadings.values[i][k] = normal(random);
    return loadings;
}

void minimalPairs(benchmark::State& state)
{
    const auto loadings =
        normalLoadings(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        const MinimalPairFinder finder(loadings);
        benchmark::DoNotOptimize(finder.pairCount());
    }
}

} // namespace

BENCHMARK(minimalPairs)->Args({500, 20})->Args({1000, 100})->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
