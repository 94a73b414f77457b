// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// From the bytes of a raw data file to its matrix and names. Shapes are "cases x variables";
// "peak" is the memory at its highest, above that of a process that reads nothing, in units of the
// matrix.

#include "input/asciidata.h"
#include "input/asciidatareader.h"
#include "numerics/owners.h"
#include "plain/reader.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <random>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// A raw data file with four decimals per number, 7.8 bytes with the separator, and names.
class SampleFile
{
public:
    SampleFile(int rows, int columns)
    {
        std::mt19937 random(1);
        std::normal_distribution<double> normal(0.0, 10.0);
        QByteArray text;
        for (int i = 0; i < rows; ++i)
            for (int j = 0; j < columns; ++j)
                text += QByteArray::number(normal(random), 'f', 4) + (j + 1 < columns ? ' ' : '\n');
        for (int j = 1; j <= columns; ++j)
            text +=
                "vname\t" + QByteArray::number(j) + "\tVariable " + QByteArray::number(j) + '\n';
        QFile file(path());
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
            throw std::runtime_error("cannot write the sample file");
    }

    QString path() const { return m_folder.filePath(QStringLiteral("sample.txt")); }

private:
    QTemporaryDir m_folder;
};

const SampleFile& sampleFile(int rows, int columns)
{
    static const SampleFile file(rows, columns);
    return file;
}

void readFast(const QString& path)
{
    AsciiDataReader reader(path, nullptr);
    AsciiData data;
    if (!reader.readFile() || !reader.checkConsistency() ||
        !data.allocate(reader.lineCount(), reader.columnCount()) || !reader.getData(data))
        throw std::runtime_error("cannot read the sample file");
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
    const QString path = sampleFile(rows, columns).path();
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

} // namespace

// The fast form comes first: it would find room in what the plain one has left.
BENCHMARK(readingFast)->Args({100000, 50})->Unit(benchmark::kMillisecond);
BENCHMARK(readingPlain)->Args({100000, 50})->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
