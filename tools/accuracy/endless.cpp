// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

/// Rotates generated data sets: does every rotation end, and where it should?

#include "datasets.h"
#include "rotationtrial.h"
#include "tally.h"

#include "numerics/numberoffactors.h"
#include "numerics/rotation.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <mutex>
#include <thread>
#include <vector>

using namespace pelmora;

namespace {

using Clock = std::chrono::steady_clock;
constexpr auto patience = std::chrono::minutes(30);

/// The data set that a thread works on, and since when.
struct Watch
{
    std::atomic<std::int64_t> number = -1;
    std::atomic<Clock::rep> since = 0;

    /// Ends the program when it takes too long: a thread that hangs cannot be stopped.
    void check() const
    {
        const std::int64_t current = number;
        const Clock::duration started{since.load()};
        if (current >= 0 && Clock::now().time_since_epoch() - started > patience) {
            std::cerr << "data set " << current << " hangs\n";
            std::_Exit(1);
        }
    }
};

std::mutex mutex;
std::vector<Tally> tallies(dataKinds().size());

/// Any number of factors, but seldom so many that it would take hours.
int otherFactors(std::int64_t number, int variables)
{
    Random random{~std::uint64_t(number)};
    if (variables <= 30 && random.integer(0, 4) == 0)
        return variables;
    return random.integer(2, std::clamp(variables, 2, 30));
}

void tryDataSet(std::int64_t number)
{
    const Matrix a = dataSet(number);
    const Decomposition factors = decompose(a);
    Tally& tally = tallies[std::size_t(kindOf(number))];
    const auto tryFactors = [&](int m) {
        for (const int method : {PelmoraRotation, VarimaxRotation}) {
            const RotationTrial trial = tryRotation(factors.initialLoadings, m, method);
            const std::lock_guard lock(mutex);
            tally.addRotation(trial, number, m, method, std::cerr);
        }
    };
    const int proposed = proposedFactors(factors.eigenvalues);
    tryFactors(proposed);
    if (const int other = otherFactors(number, a.rows()); other != proposed)
        tryFactors(other);
    const std::lock_guard lock(mutex);
    tally.addDataSet();
}

void run(std::int64_t first, std::int64_t count, int threadCount)
{
    std::vector<Watch> watches(static_cast<std::size_t>(threadCount));
    std::vector<std::thread> threads;
    threads.reserve(watches.size());
    std::atomic<std::int64_t> next = first;
    std::atomic<int> running = threadCount;
    for (Watch& watch : watches)
        threads.emplace_back([&] {
            for (std::int64_t number = next++; number < first + count; number = next++) {
                watch.since = Clock::now().time_since_epoch().count();
                watch.number = number;
                tryDataSet(number);
                watch.number = -1;
            }
            --running;
        });
    while (running > 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        for (const Watch& watch : watches)
            watch.check();
    }
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

int main(int argc, char** argv)
{
    const std::int64_t count = argc > 1 ? std::atoll(argv[1]) : 110000;
    const int threads = argc > 2 ? std::atoi(argv[2]) : 3;
    const std::int64_t first = argc > 3 ? std::atoll(argv[3]) : 0;
    if (argc > 4 || count < 1 || threads < 1) {
        std::cerr << "usage: pelmora_endless [COUNT [THREADS [FIRST]]]\n"
                     "A data set is made from its number alone: to see one again, name it.\n";
        return 2;
    }
    run(first, count, threads);

    Tally all;
    Tally::writeHeader(std::cout);
    for (std::size_t k = 0; k < tallies.size(); ++k) {
        tallies[k].writeLine(std::cout, dataKinds()[k].name);
        all.add(tallies[k]);
    }
    all.writeLine(std::cout, "**all**");
    std::cout << '\n';
    all.writeFaults(std::cout);
    return all.hasFaults() ? 1 : 0;
}
