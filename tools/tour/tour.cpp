// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "tour/tour.h"

#include "convert/converterwindow.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEventLoop>
#include <QFileInfo>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextStream>

#include <functional>

namespace {

/// "Pelmora[3]" as part of a file name: "pelmora-3".
QString fileNamePart(QString title)
{
    title = title.toLower().replace(u'[', u'-').remove(u']').remove(u'.');
    return title.replace(u' ', u'-');
}

} // namespace

Tour::Tour(const QDir& outputFolder, const QDir& samples)
    : m_output(outputFolder)
    , m_samples(samples)
    , m_window(nullptr)
{
    m_window.show();
}

bool Tour::run()
{
    takePicture(QStringLiteral("start"));
    readSample("actionDataASCII", QStringLiteral("box-problem.txt"));
    visitSession(QStringLiteral("box"));
    readSample("actionCorrASCII", QStringLiteral("harman-24-psychological-tests.cor"));
    visitSession(QStringLiteral("harman"));
    closeSession();
    closeSession();
    visitConverter();
    return m_succeeded;
}

/// A spreadsheet's table whose decimal sign must be chosen, before and after.
void Tour::visitConverter()
{
    say(QStringLiteral("Convert survey.csv"));
    const QString file = m_samples.absoluteFilePath(QStringLiteral("survey.csv"));
    ConverterWindow converter(nullptr);
    converter.resize(960, 620);
    converter.show();
    const auto settle = [&converter](const std::function<void()>& change) {
        QEventLoop loop;
        QObject::connect(&converter, &ConverterWindow::settled, &loop, &QEventLoop::quit);
        change();
        loop.exec();
    };
    settle([&] { converter.openFile(file); });
    takePicture(converter, QStringLiteral("convert-refused"));
    auto* decimal = converter.findChild<QComboBox*>(QStringLiteral("comboDecimal"));
    settle([&] {
        decimal->setCurrentIndex(2);
        emit decimal->activated(2);
    });
    auto* columns = converter.findChild<QListWidget*>(QStringLiteral("listColumns"));
    settle([&] { columns->item(0)->setCheckState(Qt::Unchecked); });
    takePicture(converter, QStringLiteral("convert-ready"));
}

void Tour::readSample(const char* action, const QString& file)
{
    say(QStringLiteral("Read %1").arg(file));
    m_dialogs.chooseFile(m_samples.absoluteFilePath(file));
    m_window.findChild<QAction*>(QLatin1String(action))->trigger();
    say(QStringLiteral("  status bar: %1").arg(m_window.statusBar()->currentMessage()));
    auto* sessions = m_window.findChild<QTabWidget*>(QStringLiteral("mainTabWidget"));
    sessions->setCurrentIndex(sessions->count() - 1);
    const QStringList shown = m_dialogs.takeRecord();
    expect(shown.size() == 1, QStringLiteral("only the file dialog appeared"));
}

void Tour::visitSession(const QString& prefix)
{
    auto* sessions = m_window.findChild<QTabWidget*>(QStringLiteral("mainTabWidget"));
    auto* pages = qobject_cast<QTabWidget*>(sessions->currentWidget());
    expect(pages != nullptr, QStringLiteral("the session has a tab"));
    if (!pages)
        return;
    makeFactorPages(pages);
    for (int i = 0; i < pages->count(); ++i) {
        pages->setCurrentIndex(i);
        const QString name = prefix + u'-' + fileNamePart(pages->tabText(i));
        say(QStringLiteral("Page \"%1\"").arg(pages->tabText(i)));
        QWidget* page = pages->widget(i);
        if (page->objectName() == u"FactorForm")
            visitFactorPage(page, name);
        else if (auto* tests =
                     page->findChild<QTabWidget*>(QStringLiteral("tabWidgetCorrelations")))
            visitCorrelations(tests, name);
        else if (auto* tabs = page->findChild<QTabWidget*>())
            visitTabs(tabs, name);
        else
            takePicture(name);

        exportFrom(page, "pushButtonSave",
                   name + (page->objectName() == u"DataForm" ? QStringLiteral(".dat")
                                                             : QStringLiteral(".cor")));
        exportFrom(page, "pushButtonExportEigenwerte", name + QStringLiteral(".eig"));
        exportFrom(page, "pushButtonExportEigenvektoren", name + QStringLiteral(".vec"));
        exportFrom(page, "pushButton", name + QStringLiteral(".ini"));
    }
}

void Tour::makeFactorPages(QTabWidget* pages)
{
    QWidget* pca = pages->currentWidget();
    const auto* factors = pca->findChild<QSpinBox*>(QStringLiteral("spinBoxNumberOfFactors"));
    say(QStringLiteral("Start processing: %1 factors, all three kinds").arg(factors->value()));
    pca->findChild<QCheckBox*>(QStringLiteral("checkBoxVarimax"))->setChecked(true);
    pca->findChild<QCheckBox*>(QStringLiteral("checkBoxUnrotated"))->setChecked(true);
    const int before = pages->count();
    pca->findChild<QPushButton*>(QStringLiteral("processButton"))->click();
    expect(pages->count() == before + 3, QStringLiteral("three factor pages were added"));
}

void Tour::visitTabs(QTabWidget* tabs, const QString& prefix)
{
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        takePicture(prefix + u'-' + fileNamePart(tabs->tabText(i)));
    }
    tabs->setCurrentIndex(0);
}

/// The matrix has the name of the page, the other tabs add their own.
void Tour::visitCorrelations(QTabWidget* tabs, const QString& prefix)
{
    takePicture(prefix);
    auto* cases = tabs->findChild<QSpinBox*>(QStringLiteral("spinBoxCases"));
    if (!cases->isReadOnly())
        cases->setValue(145); // of Harman's tests
    for (int i = 1; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        auto* parallel =
            tabs->widget(i)->findChild<QPushButton*>(QStringLiteral("pushButtonParallel"));
        if (parallel)
            parallel->click();
        takePicture(prefix + u'-' + fileNamePart(tabs->tabText(i)));
    }
    tabs->setCurrentIndex(0);
}

void Tour::visitFactorPage(QWidget* page, const QString& prefix)
{
    auto* tabs = page->findChild<QTabWidget*>(QStringLiteral("tabWidget"));
    visitTabs(tabs, prefix);
    zoom(page, prefix);
    exportFrom(page, "ExportRotated", prefix + QStringLiteral("-loadings.txt"));
    // A session read from correlations has no scores; the tab with the button is taken out.
    if (tabs->indexOf(page->findChild<QWidget*>(QStringLiteral("scores"))) >= 0)
        exportFrom(page, "pushButtonSaveScores", prefix + QStringLiteral("-scores.txt"));
    exportFrom(page, "ImageButton", prefix + QStringLiteral("-image.png"));
}

void Tour::zoom(QWidget* page, const QString& prefix)
{
    auto* slider = page->findChild<QScrollBar*>(QStringLiteral("horizontalScrollBarZarnelSize"));
    for (const int size : {25, 100}) {
        slider->setValue(size);
        takePicture(prefix + QStringLiteral("-zoom-%1").arg(size));
    }
    slider->setValue(50);
    QCoreApplication::processEvents();
}

void Tour::exportFrom(QWidget* page, const char* button, const QString& file)
{
    auto* exportButton = page->findChild<QPushButton*>(QLatin1String(button));
    if (!exportButton)
        return;
    const QString path = m_output.absoluteFilePath(file);
    m_dialogs.chooseFile(path);
    exportButton->click();
    m_dialogs.takeRecord();
    say(QStringLiteral("  saved %1 (%2 bytes)").arg(file).arg(QFileInfo(path).size()));
    expect(QFileInfo(path).size() > 0, QStringLiteral("%1 was written").arg(file));
}

void Tour::closeSession()
{
    auto* sessions = m_window.findChild<QTabWidget*>(QStringLiteral("mainTabWidget"));
    say(QStringLiteral("Close %1").arg(QFileInfo(sessions->tabText(0)).fileName()));
    const int before = sessions->count();
    emit sessions->tabCloseRequested(0);
    expect(sessions->count() == before - 1, QStringLiteral("the session's tab is gone"));
}

void Tour::takePicture(const QString& name)
{
    takePicture(m_window, name);
}

void Tour::takePicture(QWidget& window, const QString& name)
{
    // A second round lets a diagram settle that measures itself while it is painted.
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
    const QString file = name + QStringLiteral(".png");
    expect(window.grab().save(m_output.absoluteFilePath(file)),
           QStringLiteral("%1 was written").arg(file));
    say(QStringLiteral("  picture %1").arg(file));
}

void Tour::say(const QString& text) const
{
    QTextStream(stdout) << text << Qt::endl;
}

void Tour::expect(bool held, const QString& what)
{
    if (held)
        return;
    m_succeeded = false;
    say(QStringLiteral("  FAILED: %1").arg(what));
}
