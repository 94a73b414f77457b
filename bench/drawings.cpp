// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// Drawings of diagrams and the order of their rows. Shapes are "variables x factors"; MB is the
// size of the file.

#include "views/diagramdrawing.h"
#include "views/diagramview.h"
#include "views/drawingfile.h"
#include "views/factormodel.h"
#include "views/roworder.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDateTime>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <random>

namespace {

NamedMatrix uniformLoadings(const benchmark::State& state)
{
    const int variables = static_cast<int>(state.range(0));
    const int factors = static_cast<int>(state.range(1));
    NamedMatrix loadings{pelmora::Matrix(variables, factors),
                         VariableNames(static_cast<std::size_t>(variables))};
    std::mt19937 random(1);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    for (int i = 0; i < variables; ++i)
        for (int j = 0; j < factors; ++j)
            loadings.values[i][j] = uniform(random);
    return loadings;
}

template <class MakeFile>
void measureFile(benchmark::State& state, MakeFile makeFile)
{
    factorModel model(uniformLoadings(state), static_cast<int>(state.range(1)), nullptr);
    qsizetype bytes = 0;
    for (auto _ : state)
        bytes = makeFile(drawDiagram(&model)).size();
    state.counters["MB"] = static_cast<double>(bytes) / 1e6;
}

void drawingPdf(benchmark::State& state)
{
    measureFile(state, [](const DiagramDrawing& drawing) {
        return pdfFile(drawing, QString(), QDateTime::fromSecsSinceEpoch(0));
    });
}

void drawingSvg(benchmark::State& state)
{
    measureFile(state, [](const DiagramDrawing& drawing) { return svgFile(drawing, QString()); });
}

/// There and back.
void rowOrder(benchmark::State& state)
{
    factorModel model(uniformLoadings(state), static_cast<int>(state.range(1)), nullptr);
    QTableView view;
    setUpDiagramView(&view, &model);
    installRowOrder(&view);
    view.show();
    view.setCurrentIndex(model.index(1, 1));
    for (auto _ : state) {
        for (QAction* action : view.actions()) {
            QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
            QCoreApplication::sendEvent(&view, &menu);
            action->trigger();
        }
    }
}

} // namespace

BENCHMARK(drawingPdf)->Args({500, 30})->Unit(benchmark::kMillisecond);
BENCHMARK(drawingSvg)->Args({500, 30})->Unit(benchmark::kMillisecond);
BENCHMARK(rowOrder)->Args({1000, 5})->Unit(benchmark::kMillisecond);
