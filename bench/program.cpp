// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// What a user waits for in the program itself, from the answer to the file dialog, and from "Start
// processing", until what was asked for is painted. Shapes are "cases x variables"; the time is
// that of the processor.

#include "app/errorbox.h"
#include "app/mainwindow.h"
#include "samplefile.h"
#include "settings/settings.h"
#include "support/dialogscript.h"
#include "support/testsettings.h"

#include <QAction>
#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <ctime>
#include <stdexcept>

namespace {

double processorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Sees a widget being painted.
class Painting : public QObject
{
public:
    explicit Painting(QWidget* widget) { widget->installEventFilter(this); }

    /// Asleep where there is nothing to do, since the processor's time counts.
    void wait() const
    {
        while (!m_seen)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        m_seen |= event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_seen = false;
};

/// The main window with one session, whose "PCA" page is in front.
class Opened
{
public:
    explicit Opened(const QString& path)
    {
        installErrorBox();
        settings::setOpenFolderAfterClosing(false);
        m_window.resize(1200, 900);
        m_window.show();
        QCoreApplication::processEvents();
        double chosen = 0.0;
        m_dialogs.onDialog([&](QDialog* dialog) {
            dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
            chosen = processorSeconds();
            QMetaObject::invokeMethod(dialog, "accept");
        });
        m_window.findChild<QAction*>(QStringLiteral("actionDataASCII"))->trigger();
        const auto* sessions = m_window.findChild<QTabWidget*>(QStringLiteral("mainTabWidget"));
        m_pages = qobject_cast<QTabWidget*>(sessions->currentWidget());
        if (m_pages == nullptr)
            throw std::runtime_error("cannot open the sample file");
        show("tableWidgetEigenwerte");
        seconds = processorSeconds() - chosen;
    }

    /// All kinds of factors; the seconds until the last one's diagram is painted.
    double process()
    {
        QWidget* page = m_pages->currentWidget();
        for (auto* kind : page->findChildren<QCheckBox*>())
            kind->setChecked(true);
        const double before = processorSeconds();
        page->findChild<QPushButton*>(QStringLiteral("processButton"))->click();
        m_pages->setCurrentIndex(m_pages->count() - 1);
        show("tableFactors");
        return processorSeconds() - before;
    }

    double seconds = 0.0;

private:
    /// Until a table of the page in front is painted.
    void show(const char* table) const
    {
        auto* view = m_pages->currentWidget()->findChild<QTableView*>(QLatin1String(table));
        const Painting painting(view->viewport());
        view->viewport()->update(); // in case that a look at progress has painted it already
        painting.wait();
    }

    TestSettings m_settings;
    DialogScript m_dialogs;
    MainWindow m_window{nullptr};
    QTabWidget* m_pages = nullptr;
};

void openFile(benchmark::State& state)
{
    const samples::File file(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state)
        state.SetIterationTime(Opened(file.path()).seconds);
}

void process(benchmark::State& state)
{
    const samples::File file(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)));
    for (auto _ : state)
        state.SetIterationTime(Opened(file.path()).process());
}

void shapes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({1000, 60})->Args({100000, 50})->Args({1000, 500});
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime();
}

/// Twice as many cases as variables.
void moreVariables(benchmark::internal::Benchmark* benchmark)
{
    for (int variables : {250, 350, 500, 700, 1000, 1400})
        benchmark->Args({2 * variables, variables});
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime();
}

void moreCases(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgsProduct({{62500, 125000, 250000, 500000, 1000000}, {50}});
    benchmark->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(3);
}

BENCHMARK(openFile)->Apply(shapes);
BENCHMARK(process)->Apply(shapes);
BENCHMARK(openFile)->Name("growthOpeningVariables")->Apply(moreVariables);
BENCHMARK(openFile)->Name("growthOpeningCases")->Apply(moreCases);

} // namespace
