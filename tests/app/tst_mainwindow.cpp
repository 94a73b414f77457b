// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/mainwindow.h"
#include "support/dialogscript.h"
#include "support/samplefile.h"
#include "support/testsettings.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

/// Takes the addresses that the program would hand to the desktop.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QStringList opened;

public slots:
    void open(const QUrl& url) { opened << url.toLocalFile(); }
};

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void menusAreAsAgreed();
    void aCancelledDialogLeavesEverything();
    void aDataFileBecomesASession();
    void aCorrelationFileBecomesASession();
    void aBadFileIsRememberedAndItsFolderOpened_data();
    void aBadFileIsRememberedAndItsFolderOpened();
    void closingATabKeepsTheOthers();
    void sessionsOpenTheirFoldersAtTheEnd();
    void togglesAreStoredAtOnce();
    void precisionIsStoredOnlyWhenAccepted();
    void aboutBoxNamesTheProduct();
    void missingGuideIsTold();
    void droppedFilesAreTakenAndLeftAlone();
    void everySlotIsConnected();
    void theKeyboardReachesEveryControl();

private:
    QAction* action(MainWindow& window, const char* name) const
    {
        return window.findChild<QAction*>(QLatin1String(name));
    }
    QTabWidget* sessions(MainWindow& window) const
    {
        return window.findChild<QTabWidget*>(QStringLiteral("mainTabWidget"));
    }
    void read(MainWindow& window, const char* actionName, const QString& path)
    {
        m_dialogs.chooseFile(path);
        action(window, actionName)->trigger();
    }

    DialogScript m_dialogs;
    TestSettings m_settings;
};

void TestMainWindow::init()
{
    m_settings.clear();
    m_dialogs.takeRecord();
}

void TestMainWindow::menusAreAsAgreed()
{
    MainWindow window(nullptr);
    QCOMPARE(window.windowTitle(), QStringLiteral("Pelmora"));
    QCOMPARE(window.size(), QSize(1109, 681));
    QStringList entries;
    for (const char* menu :
         {"menuFile", "menuRead_data", "menuRead_correlations", "menuSettings", "menuHelp"}) {
        const auto* found = window.findChild<QMenu*>(QLatin1String(menu));
        for (const QAction* entry : found->actions())
            entries << found->title() + u'/' + entry->text();
    }
    QCOMPARE(entries, QStringList({"File/Read raw data", "File/Read correlations",
                                   "Read raw data/ASCII", "Read correlations/ASCII",
                                   "Settings/Precision", "Settings/Show welcome screen",
                                   "Settings/Open file explorer when closing pelmora session tab",
                                   "Help/About", "Help/Online help"}));
    QCOMPARE(action(window, "actionDataASCII")->shortcut(), QKeySequence("Ctrl+D, Ctrl+A"));
    QCOMPARE(action(window, "actionCorrASCII")->shortcut(), QKeySequence("Ctrl+C, Ctrl+A"));
}

void TestMainWindow::aCancelledDialogLeavesEverything()
{
    MainWindow window(nullptr);
    for (const char* name : {"actionDataASCII", "actionCorrASCII"}) {
        m_dialogs.cancelFile();
        action(window, name)->trigger();
        QCOMPARE(m_dialogs.takeRecord().value(1), QStringLiteral("Warning|No file selected!"));
    }
    QVERIFY(!m_settings.has(QStringLiteral("Input/LastDataASCIILocation")));
    QVERIFY(!m_settings.has(QStringLiteral("Input/LastCorrASCIILocation")));
    QCOMPARE(sessions(window)->count(), 0);
}

void TestMainWindow::aDataFileBecomesASession()
{
    const Desktop desktop;
    const SampleFile file("R&D data.txt", "1 2 4\n2 1 5\n3 5 1\n4 3 3\nvname\t2\tHeight\n");
    MainWindow window(nullptr);
    read(window, "actionDataASCII", file.path());

    QVERIFY(m_dialogs.takeRecord().value(0).startsWith("Open data file in ASCII format|"));
    QCOMPARE(m_settings.get(QStringLiteral("Input/LastDataASCIILocation")).toString(), file.path());
    QCOMPARE(window.statusBar()->currentMessage(),
             QStringLiteral("Read data matrix, 4 rows and 3 cols"));
    QCOMPARE(sessions(window)->count(), 1);
    QCOMPARE(sessions(window)->tabText(0), QString(file.path()).replace("&", "&&"));

    auto* pages = qobject_cast<QTabWidget*>(sessions(window)->widget(0));
    QStringList titles;
    for (int i = 0; i < pages->count(); ++i) {
        titles << pages->tabText(i);
        QCOMPARE(pages->tabBar()->tabButton(i, QTabBar::RightSide)->size(), QSize(0, 0));
    }
    QCOMPARE(titles, QStringList({"Raw data", "Correlations", "PCA"}));
    QCOMPARE(pages->currentIndex(), 2);
}

void TestMainWindow::aCorrelationFileBecomesASession()
{
    const Desktop desktop;
    const SampleFile file("r.cor", "1\n0.3 1\n0.2 0.4 1\n");
    MainWindow window(nullptr);
    read(window, "actionCorrASCII", file.path());

    QVERIFY(m_dialogs.takeRecord().value(0).startsWith("Open correlations file in ASCII format|"));
    QCOMPARE(m_settings.get(QStringLiteral("Input/LastCorrASCIILocation")).toString(), file.path());
    QCOMPARE(window.statusBar()->currentMessage(),
             QStringLiteral("Read correlation matrix, 3 rows and 3 cols"));
    auto* pages = qobject_cast<QTabWidget*>(sessions(window)->widget(0));
    QCOMPARE(pages->count(), 2);
    QCOMPARE(pages->tabText(0), QStringLiteral("Correlations"));
}

void TestMainWindow::aBadFileIsRememberedAndItsFolderOpened_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("box");
    QTest::newRow("ragged") << QByteArray("actionDataASCII") << QByteArray("1 2 3\n4 5 6\n7 8\n")
                            << "Error while reading data|Line 2 has different number of entries "
                               "compared to line no.1.";
    QTest::newRow("not a number")
        << QByteArray("actionDataASCII") << QByteArray("1 - 3\n")
        << "Error while reading data|Entry in line 0 and column 1 is not a number: -";
    QTest::newRow("empty") << QByteArray("actionDataASCII") << QByteArray()
                           << "Error|Error in data matrix.";
    QTest::newRow("asymmetric")
        << QByteArray("actionCorrASCII") << QByteArray("1 0.5\n0.4 1\n")
        << "Error|Correlation matrix is not symmetric! Not symmetric at row 1 and col 2";
    QTest::newRow("no matrix") << QByteArray("actionCorrASCII") << QByteArray()
                               << "Error|Error in correlation matrix.";
}

void TestMainWindow::aBadFileIsRememberedAndItsFolderOpened()
{
    QFETCH(QByteArray, action);
    QFETCH(QByteArray, text);
    QFETCH(QString, box);
    const Desktop desktop;
    const SampleFile file("bad.txt", text);
    MainWindow window(nullptr);
    read(window, action.constData(), file.path());

    QCOMPARE(m_dialogs.takeRecord().mid(1), QStringList(box));
    QCOMPARE(sessions(window)->count(), 0);
    QVERIFY(window.statusBar()->currentMessage().isEmpty());
    QVERIFY(!QGuiApplication::overrideCursor());
    QCOMPARE(desktop.opened, QStringList(file.folder()));
    const QString key = QStringLiteral("Input/Last%1ASCIILocation")
                            .arg(action == "actionDataASCII" ? "Data" : "Corr");
    QCOMPARE(m_settings.get(key).toString(), file.path());
}

void TestMainWindow::closingATabKeepsTheOthers()
{
    const Desktop desktop;
    const SampleFile first("first.txt", "1 2\n2 1\n3 4\n");
    const SampleFile second("second.txt", "1 2\n2 1\n3 4\n");
    MainWindow window(nullptr);
    read(window, "actionDataASCII", first.path());
    read(window, "actionDataASCII", second.path());
    read(window, "actionDataASCII", second.path());

    emit sessions(window)->tabCloseRequested(0);
    QCOMPARE(desktop.opened, QStringList(first.folder()));
    QCOMPARE(sessions(window)->count(), 2);
    QCOMPARE(sessions(window)->tabText(0), second.path());

    m_settings.set(QStringLiteral("OpenFolderAfterClosing"), false);
    emit sessions(window)->tabCloseRequested(1);
    QCOMPARE(desktop.opened.size(), 1);
    emit sessions(window)->tabCloseRequested(7);
    QCOMPARE(sessions(window)->count(), 1);
}

void TestMainWindow::sessionsOpenTheirFoldersAtTheEnd()
{
    const Desktop desktop;
    const SampleFile file("data.txt", "1 2\n2 1\n3 4\n");
    {
        MainWindow window(nullptr);
        read(window, "actionDataASCII", file.path());
        read(window, "actionDataASCII", file.path());
    }
    QCOMPARE(desktop.opened, QStringList({file.folder(), file.folder()}));
}

void TestMainWindow::togglesAreStoredAtOnce()
{
    for (const auto& [name, key] : {std::pair{"actionShow_splash", QStringLiteral("ShowSplash")},
                                    std::pair{"actionOpen_explorer_when_closing",
                                              QStringLiteral("OpenFolderAfterClosing")}}) {
        MainWindow window(nullptr);
        QVERIFY(action(window, name)->isChecked());
        action(window, name)->trigger();
        QCOMPARE(m_settings.get(key), QVariant(false));
        MainWindow next(nullptr);
        QVERIFY(!action(next, name)->isChecked());
    }
}

void TestMainWindow::precisionIsStoredOnlyWhenAccepted()
{
    MainWindow window(nullptr);
    const auto answer = [this](QDialogButtonBox::StandardButton button) {
        m_dialogs.onDialog([button](QDialog* dialog) {
            dialog->findChild<QSpinBox*>()->setValue(5);
            dialog->findChild<QDialogButtonBox*>()->button(button)->click();
        });
    };
    answer(QDialogButtonBox::Cancel);
    action(window, "actionPrecision")->trigger();
    QVERIFY(!m_settings.has(QStringLiteral("Precision")));
    answer(QDialogButtonBox::Ok);
    action(window, "actionPrecision")->trigger();
    QCOMPARE(m_settings.get(QStringLiteral("Precision")).toInt(), 5);
    QCOMPARE(m_dialogs.takeRecord().value(0), QStringLiteral("Please enter value"));
}

void TestMainWindow::aboutBoxNamesTheProduct()
{
    MainWindow window(nullptr);
    action(window, "actionAbout")->trigger();
    const QString box = m_dialogs.takeRecord().value(0);
    QVERIFY(box.startsWith("About Pelmora|<p align=center><big>Pelmora</big>(32 bit)</p>"
                           "<p align=center>Version 1.0</p><p align=center>Built on "));
    QVERIFY(box.contains("2014"));
    QVERIFY(box.endsWith("<p align=center><img "
                         "source=:/pelmora/resources/pelmora_icon3d_64x64.png></p>"));
    QVERIFY(!box.contains("%"));
}

void TestMainWindow::missingGuideIsTold()
{
    MainWindow window(nullptr);
    action(window, "actionOnline_help")->trigger();
    QCOMPARE(m_dialogs.takeRecord(), QStringList("Error|Failed to open online help."));
}

void TestMainWindow::droppedFilesAreTakenAndLeftAlone()
{
    MainWindow window(nullptr);
    const auto accepted = [&window](const QMimeData& data) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QCoreApplication::sendEvent(&window, &enter);
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&window, &drop);
        return enter.isAccepted();
    };
    QMimeData urls;
    urls.setUrls({QUrl::fromLocalFile(QStringLiteral("/etc/hostname"))});
    QMimeData text;
    text.setText(QStringLiteral("1 2 3"));
    QVERIFY(accepted(urls));
    QVERIFY(!accepted(text));
    QCOMPARE(sessions(window)->count(), 0);
    QVERIFY(m_dialogs.takeRecord().isEmpty());
}

void TestMainWindow::everySlotIsConnected()
{
    QTest::failOnWarning(QRegularExpression(QStringLiteral("No matching signal")));
    const MainWindow window(nullptr);
}

/// Tab order is a ring; a wrong order in a form splits it, and a control outside is out of reach.
void TestMainWindow::theKeyboardReachesEveryControl()
{
    const Desktop desktop;
    const SampleFile file("data.txt", "1 2 4\n2 1 5\n3 5 1\n4 3 3\n");
    MainWindow window(nullptr);
    read(window, "actionDataASCII", file.path());
    window.findChild<QPushButton*>("processButton")->click();

    QSet<QWidget*> reached;
    for (QWidget* next = &window; !reached.contains(next); next = next->nextInFocusChain())
        reached << next;
    int controls = 0;
    for (auto* widget : window.findChildren<QWidget*>()) {
        if (!(widget->focusPolicy() & Qt::TabFocus))
            continue;
        ++controls;
        QVERIFY2(reached.contains(widget), qPrintable(widget->objectName()));
        if (const auto* table = qobject_cast<QAbstractItemView*>(widget))
            QVERIFY2(!table->tabKeyNavigation(), qPrintable(widget->objectName()));
    }
    QVERIFY(controls > 20);
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
