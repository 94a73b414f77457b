// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// From the start of a process to its painted window: the program's, its welcome screen, a window
// without anything, and one with a word, which needs a font. The time is that of the clock;
// cpuMs is the processor's, for machines that are busy.

#include "childprocess.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <ctime>

namespace {

double secondsNow()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

void start(benchmark::State& state, const char* what, bool hidesWelcome)
{
    const QTemporaryDir folder;
    const QByteArray settings = QFile::encodeName(folder.path());
    if (hidesWelcome)
        samples::runToTheEnd({STARTPROBE, "hide", settings});
    double processorSeconds = 0.0;
    for (auto _ : state) {
        const double before = secondsNow();
        const samples::Ended probe = samples::runToTheEnd({STARTPROBE, what, settings});
        state.SetIterationTime(1e-9 * probe.output.toDouble() - before);
        processorSeconds += probe.processorSeconds;
    }
    state.counters["cpuMs"] =
        benchmark::Counter(1e3 * processorSeconds, benchmark::Counter::kAvgIterations);
}

void times(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(20);
}

BENCHMARK_CAPTURE(start, program, "program", true)->Apply(times);
BENCHMARK_CAPTURE(start, welcome, "welcome", false)->Apply(times);
BENCHMARK_CAPTURE(start, bare, "bare", true)->Apply(times);
BENCHMARK_CAPTURE(start, word, "word", true)->Apply(times);

} // namespace

BENCHMARK_MAIN();
