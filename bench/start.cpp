// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// From the start of a process to its painted window: the program's, its welcome screen, a window
// without anything, and one with a word, which needs a font. The time is that of the clock.

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double secondsNow()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

/// Runs @p program with two arguments; what it has written.
QByteArray outputOf(const QByteArray& program, const char* first, const QByteArray& second)
{
    int ends[2] = {};
    if (pipe(ends) != 0)
        throw std::runtime_error("cannot make a pipe");
    const pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDOUT_FILENO);
        execl(program.constData(), program.constData(), first, second.constData(), nullptr);
        _exit(1);
    }
    close(ends[1]);
    char text[64] = {};
    const ssize_t length = read(ends[0], text, sizeof text - 1);
    close(ends[0]);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || status != 0 || length < 0)
        throw std::runtime_error("cannot run the probe");
    return text;
}

void start(benchmark::State& state, const char* what, bool hidesWelcome)
{
    const QTemporaryDir folder;
    const QByteArray settings = folder.path().toLocal8Bit();
    const QByteArray self = QFile::symLinkTarget(QStringLiteral("/proc/self/exe")).toLocal8Bit();
    const QByteArray probe = self.left(self.lastIndexOf('/') + 1) + "startprobe";
    if (hidesWelcome)
        outputOf(probe, "hide", settings);
    for (auto _ : state) {
        const double before = secondsNow();
        state.SetIterationTime(1e-9 * outputOf(probe, what, settings).toDouble() - before);
    }
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
