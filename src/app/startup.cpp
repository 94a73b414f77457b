// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/startup.h"

#include "app/errorbox.h"
#include "app/mainwindow.h"
#include "app/product.h"
#include "settings/settings.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QIcon>
#include <QPixmap>
#include <QSplashScreen>
#include <QThread>
#include <QWindow>

namespace {

constexpr unsigned long welcomeMilliseconds = 3000;

constexpr int exposureMilliseconds = 500;

/// A window manager takes its time to let a window onto the screen; what is painted before is lost.
void waitForExposure(const QWidget& widget)
{
    QElapsedTimer waited;
    waited.start();
    while (!widget.windowHandle()->isExposed() && waited.elapsed() < exposureMilliseconds) {
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
}

/// Rounds of events, since some window systems paint a new window only in the second or third. The
/// sleep blocks on purpose: the welcome screen stands for its time, whatever is clicked.
void showWelcome(QSplashScreen& splash)
{
    splash.show();
    QCoreApplication::processEvents();
    splash.repaint();
    waitForExposure(splash);
    QCoreApplication::processEvents();
    splash.repaint();
    QCoreApplication::processEvents();
    QThread::msleep(welcomeMilliseconds);
}

} // namespace

void nameApplication()
{
    QCoreApplication::setOrganizationName(QLatin1String(product::organisation));
    QCoreApplication::setOrganizationDomain(QLatin1String(product::organisation));
    QCoreApplication::setApplicationName(QLatin1String(product::name));
    QGuiApplication::setDesktopFileName(QLatin1String(product::applicationId));
}

int runProgram(QApplication& application)
{
    const QPixmap picture(QStringLiteral(":/pelmora/resources/splash_800x600.png"));
    // Never deleted: it goes away with the process, after the main window has taken its place.
    auto* splash = new QSplashScreen(picture, Qt::WindowStaysOnTopHint);
    if (settings::showSplash())
        showWelcome(*splash);

    installErrorBox();
    MainWindow window(nullptr);
    const QIcon icon(QStringLiteral(":/pelmora/resources/pelmora_icon3d_64x64.png"));
    window.setWindowIcon(icon);
    // For boxes without a parent.
    QGuiApplication::setWindowIcon(icon);
    window.show();
    splash->finish(&window);
    return application.exec();
}
