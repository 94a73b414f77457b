// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Benchmarks beside plain numerics say what these are built for: the ratios hang on it.

#include "plain/processor.h"

#include <benchmark/benchmark.h>

#include <iostream>

int main(int argc, char** argv)
{
    std::cout << "plain forms: " << pelmora::plain::processor() << std::endl;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
