// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "apptest.h"

#include <QAbstractItemView>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QSet>
#include <QSpinBox>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTabBar>

class TestMainWindow : public AppTest
{
    Q_OBJECT

private:
    QAction* action(const QString& name) const { return m_window->findChild<QAction*>(name); }
    /// The file of the last session that was begun by @p action.
    QString location(const QString& action) const
    {
        return m_settings
            .get(action == "actionDataASCII" ? "Input/LastDataASCIILocation"
                                             : "Input/LastCorrASCIILocation")
            .toString();
    }

private slots:
    void menusAreAsAgreed()
    {
        QCOMPARE(m_window->windowTitle(), QStringLiteral("Pelmora"));
        QCOMPARE(m_window->size(), QSize(1109, 681));
        QStringList entries;
        for (const char* menu :
             {"menuFile", "menuRead_data", "menuRead_correlations", "menuSettings", "menuHelp"}) {
            const auto* found = m_window->findChild<QMenu*>(menu);
            for (const QAction* entry : found->actions())
                entries << found->title() + u'/' + entry->text();
        }
        QCOMPARE(entries,
                 QStringList({"File/Read raw data", "File/Read correlations", "Read raw data/ASCII",
                              "Read correlations/ASCII", "Settings/Precision",
                              "Settings/Show welcome screen",
                              "Settings/Open file explorer when closing pelmora session tab",
                              "Help/About", "Help/Online help"}));
        QCOMPARE(action("actionDataASCII")->shortcut(), QKeySequence("Ctrl+D, Ctrl+A"));
        QCOMPARE(action("actionCorrASCII")->shortcut(), QKeySequence("Ctrl+C, Ctrl+A"));
    }

    void aCancelledDialogLeavesEverything()
    {
        for (const char* name : {"actionDataASCII", "actionCorrASCII"}) {
            m_dialogs.cancelFile();
            trigger(name);
            QCOMPARE(m_dialogs.takeRecord().value(1), QStringLiteral("Warning|No file selected!"));
        }
        QVERIFY(!m_settings.has(QStringLiteral("Input/LastDataASCIILocation")));
        QVERIFY(!m_settings.has(QStringLiteral("Input/LastCorrASCIILocation")));
        QCOMPARE(sessions()->count(), 0);
    }

    void aFileBecomesASession_data()
    {
        const DataRows<QString, QByteArray, QString, QString, QStringList> row(
            "action", "text", "caption", "status", "pageTitles");
        row("raw data", "actionDataASCII", fourCases, "Open data file in ASCII format",
            "Read data matrix, 4 rows and 3 cols", {"Raw data", "Correlations", "PCA"});
        row("correlations", "actionCorrASCII", "1\n0.3 1\n0.2 0.4 1\n",
            "Open correlations file in ASCII format", "Read correlation matrix, 3 rows and 3 cols",
            {"Correlations", "PCA"});
    }

    void aFileBecomesASession()
    {
        QFETCH(QString, action);
        QFETCH(QByteArray, text);
        QFETCH(QString, caption);
        const SampleFile file("R&D data.txt", text);
        read(action, file.path());
        QCOMPARE(location(action), file.path());
        // As from a menu entry without a tip.
        QStatusTipEvent noTip{QString()};
        QCoreApplication::sendEvent(m_window.get(), &noTip);
        QTEST(m_window->statusBar()->currentMessage(), "status");
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(sessions()->count(), 1);
        QCOMPARE(sessions()->tabText(0), QString(file.path()).replace("&", "&&"));
        QTEST(titles(pages()), "pageTitles");
        QCOMPARE(pages()->currentIndex(), pages()->count() - 1);
        for (int i = 0; i < pages()->count(); ++i)
            QCOMPARE(pages()->tabBar()->tabButton(i, QTabBar::RightSide)->size(), QSize(0, 0));

        m_dialogs.takeRecord();
        m_dialogs.cancelFile();
        trigger(action);
        QCOMPARE(m_dialogs.takeRecord().value(0), caption + '|' + file.path() + "|Any Files *");
    }

    void aBadFileIsRememberedAndItsFolderOpened_data()
    {
        const DataRows<QString, QByteArray, QStringList> row("action", "text", "boxes");
        row("a short line", "actionDataASCII", "1 2 3\n4 5 6\n7 8\n",
            {"Error while reading data|Line 2 has different number of entries compared to line "
             "no.1."});
        row("no data", "actionDataASCII", "", {"Error|Error in data matrix."});
        row("not symmetric", "actionCorrASCII", "1 0.5\n0.4 1\n",
            {"Error|Correlation matrix is not symmetric! Not symmetric at row 1 and col 2"});
        row("no correlations", "actionCorrASCII", "", {"Error|Error in correlation matrix."});
    }

    void aBadFileIsRememberedAndItsFolderOpened()
    {
        QFETCH(QString, action);
        QFETCH(QByteArray, text);
        const SampleFile file("bad.txt", text);
        read(action, file.path());
        QTEST(m_dialogs.takeRecord().mid(1), "boxes");
        QCOMPARE(sessions()->count(), 0);
        QVERIFY(m_window->statusBar()->currentMessage().isEmpty());
        QVERIFY(!QGuiApplication::overrideCursor());
        QCOMPARE(m_opened, QStringList(file.folder()));
        QCOMPARE(location(action), file.path());
    }

    void theStatusBarTellsWhatCame()
    {
        const auto told = [this] { return m_window->statusBar()->currentMessage(); };
        const SampleFile file("data.txt", fourCases);
        openSession(file.path());
        QCOMPARE(told(), "Pelmora[2], Varimax[2], Initial[2]");
        m_dialogs.cancelFile();
        trigger("actionDataASCII");
        QCOMPARE(told(), "Pelmora[2], Varimax[2], Initial[2]");
        const SampleFile bad("bad.txt", "1 2\n1\n");
        read("actionDataASCII", bad.path());
        QCOMPARE(told(), "");
    }

    void firstStepsFillTheEmptyPane()
    {
        m_window->show();
        const auto* steps = sessions()->findChild<QLabel*>("labelFirstSteps");
        QVERIFY(steps->isVisible() && sessions()->rect().contains(steps->geometry()));
        for (const char* key : {"actionDataASCII", "actionCorrASCII"})
            QVERIFY(
                steps->text().contains(action(key)->shortcut().toString(QKeySequence::NativeText)));
        const SampleFile file("data.txt", fourCases);
        for (int i = 0; i < 2; ++i) {
            read("actionDataASCII", file.path());
            QVERIFY(!steps->isVisible());
        }
        emit sessions()->tabCloseRequested(0);
        QVERIFY(!steps->isVisible());
        emit sessions()->tabCloseRequested(0);
        QVERIFY(steps->isVisible());
    }

    void longPathsLeaveFileNamesReadable()
    {
        const QTemporaryDir folder;
        const QString deep = folder.filePath(QString(200, 'x'));
        QVERIFY(QDir().mkpath(deep));
        QFile file(deep + "/survey of the year.txt");
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(fourCases) > 0);
        file.close();
        m_window->show();
        for (int i = 0; i < 12; ++i)
            read("actionDataASCII", file.fileName());
        QCoreApplication::processEvents();
        const auto* tabs = sessions()->tabBar();
        QCOMPARE(tabs->elideMode(), Qt::ElideLeft);
        for (int i = 0; i < tabs->count(); ++i)
            QVERIFY2(tabs->tabRect(i).width() >
                         tabs->fontMetrics().horizontalAdvance("survey of the year.txt"),
                     qPrintable(QString::number(tabs->tabRect(i).width())));
    }

    void closingATabKeepsTheOthers()
    {
        const SampleFile first("first.txt", fourCases);
        const SampleFile second("second.txt", fourCases);
        const SampleFile third("third.txt", fourCases);
        const SampleFile bad("bad.txt", "");
        for (const auto* file : {&first, &bad, &second, &third, &second})
            read("actionDataASCII", file->path());
        m_opened.clear();

        emit sessions()->tabCloseRequested(0);
        emit sessions()->tabCloseRequested(1);
        emit sessions()->tabCloseRequested(7);
        QCOMPARE(m_opened, QStringList({first.folder(), third.folder()}));
        QCOMPARE(titles(sessions()), QStringList({second.path(), second.path()}));

        m_settings.set(QStringLiteral("OpenFolderAfterClosing"), false);
        emit sessions()->tabCloseRequested(0);
        m_settings.clear();
        m_window.reset();
        QCOMPARE(m_opened, QStringList({first.folder(), third.folder(), second.folder()}));
    }

    void keysCloseWhatIsInFront()
    {
        const SampleFile file("data.txt", fourCases);
        openSession(file.path());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        pages()->setFocus();
        const auto leftAfterClosing = [this](int page) {
            pages()->setCurrentIndex(page);
            QTest::keySequence(pages(), QKeySequence::Close);
            return pages()->count();
        };
        QCOMPARE(leftAfterClosing(2), 6); // the "PCA" page stays
        QCOMPARE(leftAfterClosing(4), 5);
        QCOMPARE(pages()->tabText(4), QStringLiteral("Initial[2]"));
        for (int i = 0; i < 2; ++i) {
            QTest::keySequence(m_window.get(), QKeySequence("Ctrl+Shift+W"));
            QCOMPARE(sessions()->count(), 0);
        }
    }

    void togglesAreStoredAtOnce_data()
    {
        const DataRows<QString, QString> row("name", "key");
        row("welcome screen", "actionShow_splash", "ShowSplash");
        row("folder", "actionOpen_explorer_when_closing", "OpenFolderAfterClosing");
    }

    void togglesAreStoredAtOnce()
    {
        QFETCH(QString, name);
        QFETCH(QString, key);
        QVERIFY(action(name)->isChecked());
        trigger(name);
        QCOMPARE(m_settings.get(key), QVariant(false));
        m_window = std::make_unique<MainWindow>(nullptr);
        QVERIFY(!action(name)->isChecked());
    }

    void precisionIsStoredOnlyWhenAccepted()
    {
        for (const auto button : {QDialogButtonBox::Cancel, QDialogButtonBox::Ok}) {
            int shown = 0;
            m_dialogs.onDialog([&](QDialog* dialog) {
                shown = dialog->findChild<QSpinBox*>()->value();
                dialog->findChild<QSpinBox*>()->setValue(5);
                dialog->findChild<QDialogButtonBox*>()->button(button)->click();
            });
            m_settings.set(QStringLiteral("Precision"), 3);
            trigger("actionPrecision");
            QCOMPARE(shown, 3);
            QCOMPARE(m_settings.get(QStringLiteral("Precision")).toInt(),
                     button == QDialogButtonBox::Ok ? 5 : 3);
            QCOMPARE(m_dialogs.takeRecord(), QStringList("Please enter value"));
        }
    }

    void helpIsShown()
    {
        trigger("actionAbout");
        const QString box = m_dialogs.takeRecord().value(0);
        QVERIFY(box.startsWith("About Pelmora|<p align=center><big>Pelmora</big>(32 bit)</p>"
                               "<p align=center>Version 1.0</p><p align=center>Built on "));
        QVERIFY(box.contains("Copyright 2014 The Pelmora Developers"));
        QVERIFY(box.endsWith("<p align=center><img "
                             "source=:/pelmora/resources/pelmora_icon3d_64x64.png></p>"));
        QVERIFY(!box.contains("%"));
        // The guide may have been built beside the test.
        trigger("actionOnline_help");
        QCOMPARE(m_dialogs.takeRecord(), m_opened.filter("pelmora-user-guide.pdf").isEmpty()
                                             ? QStringList("Error|Failed to open online help.")
                                             : QStringList());
    }

    void droppedFilesAreTakenAndLeftAlone()
    {
        const auto accepted = [this](const QMimeData& data) {
            QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            enter.ignore();
            QCoreApplication::sendEvent(m_window.get(), &enter);
            QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(m_window.get(), &drop);
            return enter.isAccepted();
        };
        QMimeData urls;
        urls.setUrls({QUrl::fromLocalFile(QStringLiteral("/etc/hostname"))});
        QMimeData text;
        text.setText(QStringLiteral("1 2 3"));
        QVERIFY(accepted(urls));
        QVERIFY(!accepted(text));
        QCOMPARE(sessions()->count(), 0);
        QVERIFY(m_dialogs.takeRecord().isEmpty());
    }

    /// Tab order is a ring; a wrong order in a form splits it, and a control outside is out of
    /// reach.
    void theKeyboardReachesEveryControl()
    {
        const SampleFile file("data.txt", fourCases);
        openSession(file.path());
        QSet<QWidget*> reached;
        for (QWidget* next = m_window.get(); !reached.contains(next);
             next = next->nextInFocusChain())
            reached << next;
        int controls = 0;
        for (auto* widget : m_window->findChildren<QWidget*>()) {
            if (!(widget->focusPolicy() & Qt::TabFocus))
                continue;
            ++controls;
            QVERIFY2(reached.contains(widget), qPrintable(widget->objectName()));
            if (const auto* table = qobject_cast<QAbstractItemView*>(widget))
                QVERIFY2(!table->tabKeyNavigation(), qPrintable(widget->objectName()));
        }
        QVERIFY(controls > 20);
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
