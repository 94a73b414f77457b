// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// What a user waits for after the computation: filled tables with fitted columns, and the steps of
// the diagram's zoom. Shapes are "rows x columns"; MB is what one table allocates.

#include "input/asciidata.h"
#include "plain/table.h"
#include "views/dataform.h"
#include "views/factorform.h"
#include "views/fakesession.h"
#include "views/numbertable.h"

#include <QCoreApplication>
#include <QScrollBar>
#include <QTableView>
#include <QTableWidget>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <malloc.h>
#include <memory>
#include <random>

namespace {

pelmora::Matrix normalNumbers(int rows, int columns, double deviation)
{
    pelmora::Matrix values(rows, columns);
    std::mt19937 random(1);
    std::normal_distribution<double> normal(0.0, deviation);
    for (int i = 0; i < rows; ++i)
        for (int j = 0; j < columns; ++j)
            values[i][j] = normal(random);
    return values;
}

double allocatedMegabytes()
{
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd) / 1e6;
}

/// Times @p makeTable, which returns an owner of a filled table that is destroyed untimed.
template <class MakeTable>
void measureTable(benchmark::State& state, MakeTable makeTable)
{
    double growth = 0.0;
    for (auto _ : state) {
        const double before = allocatedMegabytes();
        auto table = makeTable();
        state.PauseTiming();
        growth = std::max(growth, allocatedMegabytes() - before);
        table.reset();
        state.ResumeTiming();
    }
    state.counters["MB"] = growth;
}

void tablePlain(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    const int columns = static_cast<int>(state.range(1));
    const pelmora::Matrix values = normalNumbers(rows, columns, 1.0);
    measureTable(state, [&] {
        auto table = std::make_unique<QTableWidget>();
        pelmora::plain::fillTable(*table, values.rowPointers(), rows, columns);
        return table;
    });
}

void tableFast(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    const int columns = static_cast<int>(state.range(1));
    const pelmora::Matrix values = normalNumbers(rows, columns, 1.0);
    measureTable(state, [&] {
        auto table = std::make_unique<QTableView>();
        auto* model = new NumberTableModel(table.get());
        table->setModel(model);
        model->fill(values);
        fitColumnWidths(table.get(), *model);
        return table;
    });
}

/// The whole page, with its statistics.
void rawDataPageFast(benchmark::State& state)
{
    const int rows = static_cast<int>(state.range(0));
    const int columns = static_cast<int>(state.range(1));
    FakeSession session;
    AsciiData data;
    data.setMatrix(normalNumbers(rows, columns, 1.0));
    data.setNames(VariableNames(static_cast<std::size_t>(std::max(rows, columns))));
    measureTable(state, [&] {
        auto page = std::make_unique<DataForm>(&session, nullptr);
        page->fill(data);
        return page;
    });
}

void zoomStep(benchmark::State& state)
{
    const int variables = static_cast<int>(state.range(0));
    const int factors = static_cast<int>(state.range(1));
    FakeSession session;
    FactorForm page(nullptr, factors, &session);
    page.setUp({normalNumbers(variables, factors, 0.3),
                VariableNames(static_cast<std::size_t>(variables))},
               true, pelmora::Matrix());
    page.resize(1200, 900);
    page.show();
    QCoreApplication::processEvents();
    auto* slider = page.findChild<QScrollBar*>(QStringLiteral("horizontalScrollBarZarnelSize"));
    int step = 0;
    for (auto _ : state) {
        slider->setValue(slider->minimum() + 7 * ++step % 101);
        QCoreApplication::processEvents(); // paints
    }
}

} // namespace

BENCHMARK(tableFast)
    ->Args({300, 300})
    ->Args({1000, 1000})
    ->Args({100000, 50})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(rawDataPageFast)->Args({100000, 50})->Unit(benchmark::kMillisecond);
BENCHMARK(zoomStep)->Args({500, 30})->Unit(benchmark::kMillisecond);
BENCHMARK(tablePlain)
    ->Args({300, 300})
    ->Args({1000, 1000})
    ->Args({100000, 50})
    ->Unit(benchmark::kMillisecond);
