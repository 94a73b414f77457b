// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/product.h"
#include "app/startup.h"
#include "support/testsettings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QSplashScreen>
#include <QTest>
#include <QTimer>

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void welcomeStandsForItsTime();
    void theProgramIsNamed();
};

void TestStartup::welcomeStandsForItsTime()
{
    TestSettings settings;
    for (const bool hidden : {false, true}) {
        if (hidden)
            settings.set(QStringLiteral("ShowSplash"), false);
        bool hasIcon = false;
        bool splashLeft = true;
        // Fires until it does so in the event loop itself and not in a round before it.
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

void TestStartup::theProgramIsNamed()
{
    nameApplication();
    QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("Pelmora"));
    QCOMPARE(QCoreApplication::organizationName(), QCoreApplication::organizationDomain());
    QCOMPARE(QCoreApplication::organizationName(), QLatin1String(product::organisation));
}

QTEST_MAIN(TestStartup)
#include "tst_startup.moc"
