// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The command-line programs, from their start to their end. Shapes are "cases x variables"; the
// time is that of the processor, MB the memory at its highest.

#include "childprocess.h"
#include "samplefile.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace {

void measure(benchmark::State& state, const std::vector<QByteArray>& command)
{
    double megabytes = 0.0;
    for (auto _ : state) {
        const samples::Ended ended = samples::runToTheEnd(command);
        state.SetIterationTime(ended.processorSeconds);
        megabytes = ended.peakMegabytes;
    }
    state.counters["MB"] = megabytes;
}

samples::File sampleFile(const benchmark::State& state)
{
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1))};
}

/// The same numbers as a spreadsheet would write them.
void writeTable(const QString& from, const QString& to)
{
    QFile data(from);
    QFile table(to);
    if (!data.open(QIODevice::ReadOnly) || !table.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot open the sample files");
    QByteArray text = data.readAll();
    text.truncate(text.indexOf("vname"));
    const auto variables = text.left(text.indexOf('\n')).count(' ') + 1;
    QByteArray names;
    for (int j = 1; j <= variables; ++j)
        names += "item" + QByteArray::number(j) + (j < variables ? ',' : '\n');
    table.write(names + text.replace(' ', ','));
}

void convert(benchmark::State& state)
{
    const samples::File file = sampleFile(state);
    const QTemporaryDir folder;
    const QString table = folder.filePath(QStringLiteral("table.csv"));
    writeTable(file.path(), table);
    measure(state, {PELMORA_CONVERT, QFile::encodeName(table), "--force", "-o",
                    QFile::encodeName(folder.filePath(QStringLiteral("table.dat")))});
}

/// Loadings of the three kinds.
void batchAnalyse(benchmark::State& state)
{
    const samples::File file = sampleFile(state);
    measure(state, {PELMORA_BATCH, "analyse", "--quiet", QFile::encodeName(file.path())});
}

/// In one pass.
void batchCorrelate(benchmark::State& state)
{
    const samples::File file = sampleFile(state);
    measure(state, {PELMORA_BATCH, "correlate", QFile::encodeName(file.path()), "-o",
                    QFile::encodeName(file.path() + QStringLiteral(".cor"))});
}

void shapes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({100000, 50})->Unit(benchmark::kMillisecond)->UseManualTime();
}

BENCHMARK(convert)->Apply(shapes);
BENCHMARK(batchAnalyse)->Apply(shapes);
BENCHMARK(batchCorrelate)->Apply(shapes);

} // namespace

BENCHMARK_MAIN();
