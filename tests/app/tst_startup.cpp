// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/product.h"
#include "app/startup.h"
#include "input/readerreport.h"
#include "numerics/errorreport.h"
#include "support/dialogscript.h"
#include "support/testsettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QSplashScreen>
#include <QTest>
#include <QTimer>

#include <utility>

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    /// Nothing else than the start says where the reports of the numerics and the readers go.
    /// First, before anything is installed.
    void whatIsReportedIsShown()
    {
        TestSettings settings;
        settings.set(QStringLiteral("ShowSplash"), false);
        DialogScript dialogs;
        // Fires again and again, since exit() has no effect before the event loop runs, but not
        // while the boxes stand.
        QTimer report;
        bool reported = false;
        connect(&report, &QTimer::timeout, qApp, [&] {
            report.stop();
            if (!std::exchange(reported, true)) {
                pelmora::reportError("allocation failure in dvector()");
                reportReaderMessage({ReaderMessage::Severity::Warning, "title", "text"});
            }
            report.start(0);
            QCoreApplication::exit();
        });
        report.start(0);
        runProgram(*qApp);
        QCOMPARE(dialogs.takeRecord(),
                 QStringList({"Error|allocation failure in dvector()", "title|text"}));
    }

    void welcomeStandsForItsTime()
    {
        TestSettings settings;
        for (const bool hidden : {false, true}) {
            if (hidden)
                settings.set(QStringLiteral("ShowSplash"), false);
            bool hasIcon = false;
            bool splashLeft = true;
            // Fires again and again, since exit() has no effect before the event loop runs.
            QTimer inspect;
            connect(&inspect, &QTimer::timeout, qApp, [&] {
                splashLeft = false;
                for (const QWidget* widget : QApplication::topLevelWidgets()) {
                    if (qobject_cast<const QMainWindow*>(widget))
                        hasIcon = !widget->windowIcon().isNull();
                    splashLeft |= qobject_cast<const QSplashScreen*>(widget) && widget->isVisible();
                }
                QCoreApplication::exit(3);
            });
            inspect.start(0);
            QElapsedTimer timer;
            timer.start();
            QCOMPARE(runProgram(*qApp), 3);
            QCOMPARE(timer.elapsed() >= 3000, !hidden);
            QVERIFY(hasIcon);
            QVERIFY(!splashLeft);
        }
    }

    void theProgramIsNamed()
    {
        nameApplication();
        QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("Pelmora"));
        QCOMPARE(QCoreApplication::organizationName(), QCoreApplication::organizationDomain());
        QCOMPARE(QCoreApplication::organizationName(), QLatin1String(product::organisation));
    }
};

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
