// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// From the bytes of a raw data file to its matrix and names. Shapes are "cases x variables";
// "peak" is the memory at its highest, above that of a process that reads nothing, in units of the
// matrix.

#include "input/asciidata.h"
#include "input/asciidatareader.h"
#include "numerics/factoranalysis.h"
#include "numerics/owners.h"
#include "plain/reader.h"
#include "samplefile.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void read(const QString& path, AsciiData& data)
{
    AsciiDataReader reader(path, nullptr);
    if (!reader.readFile() || !reader.checkConsistency() ||
        !data.allocate(reader.lineCount(), reader.columnCount()) || !reader.getData(data))
        throw std::runtime_error("cannot read the sample file");
}

void readFast(const QString& path)
{
    AsciiData data;
    read(path, data);
    benchmark::DoNotOptimize(data.matrix()[0][0]);
}

void readPlain(const QString& path)
{
    using namespace pelmora;
    plain::TextFile file;
    if (!plain::readFile(path, file) || !plain::firstFault(file).isEmpty())
        throw std::runtime_error("cannot read the sample file");
    Matrix matrix(static_cast<int>(file.data.size()), plain::columnCount(file));
    if (!plain::fillMatrix(file, matrix.rowPointers()))
        throw std::runtime_error("cannot convert the sample file");
    const auto names = plain::variableNames(file);
    benchmark::DoNotOptimize(matrix[0][0]);
    benchmark::DoNotOptimize(names.data());
}

/// The highest memory, in bytes, of a process that does nothing but @p work.
template <typename Work>
double peakMemory(Work work)
{
    const pid_t child = fork();
    if (child == 0) {
        work();
        _exit(0);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error("cannot measure the memory");
    return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

template <void (*Read)(const QString&)>
void reading(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    const int columns = static_cast<int>(state.range(1));
    static const samples::File file(rows, columns);
    const QString path = file.path();
    // Before this process has any room left from earlier runs.
    static const double bare = peakMemory([] {});
    static const double peak = peakMemory([&path] { Read(path); });
    for (auto _ : state)
        Read(path);
    state.counters["peak"] = (peak - bare) / (8.0 * rows * columns);
}

void readingFast(benchmark::State& state)
{
    reading<readFast>(state);
}

void readingPlain(benchmark::State& state)
{
    reading<readPlain>(state);
}

void readAndCorrelate(benchmark::State& state)
{
    const samples::File file(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state) {
        AsciiData data;
        read(file.path(), data);
        const auto correlations = pelmora::formCorrelations(data.matrix(), false);
        benchmark::DoNotOptimize(correlations.matrix[0][0]);
    }
}

} // namespace

// The fast form comes first: it would find room in what the plain one has left.
BENCHMARK(readingFast)->Args({100000, 50})->Unit(benchmark::kMillisecond);
BENCHMARK(readingPlain)->Args({100000, 50})->Unit(benchmark::kMillisecond);
BENCHMARK(readAndCorrelate)
    ->Name("growthReading")
    ->ArgsProduct({{62500, 125000, 250000, 500000, 1000000}, {50}})
    ->Unit(benchmark::kMillisecond)
    ->Iterations(3);

BENCHMARK_MAIN();
