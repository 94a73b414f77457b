// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// startprobe <what> <settings>: starts something with a window, notes when it is painted, and ends.
// What it is: the "program", its "welcome" screen, a "bare" window or one with a "word"; with
// "hide" the settings are told to leave the welcome screen out. The clock's nanoseconds go to the
// output.

#include "app/startup.h"
#include "settings/settings.h"

#include <QApplication>
#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QMainWindow>
#include <QSettings>
#include <QSplashScreen>

#include <cstdio>
#include <ctime>
#include <string_view>
#include <unistd.h>

namespace {

[[noreturn]] void tellTheTime()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::printf("%lld%09ld\n", static_cast<long long>(now.tv_sec), now.tv_nsec);
    std::fflush(stdout);
    _exit(0);
}

/// Ends the program when its first window has been painted; without the time when that is none of
/// the class that was to come.
class FirstPainting : public QObject
{
public:
    explicit FirstPainting(const QMetaObject& expected) : m_expected(expected) {}

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* widget = qobject_cast<const QWidget*>(watched);
        if (event->type() != QEvent::Paint || !widget || !widget->isWindow())
            return false;
        if (!widget->metaObject()->inherits(&m_expected)) {
            std::fprintf(stderr, "%s came first\n", widget->metaObject()->className());
            _exit(1);
        }
        QMetaObject::invokeMethod(this, tellTheTime, Qt::QueuedConnection);
        return false;
    }

private:
    const QMetaObject& m_expected;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 1;
    const std::string_view what = argv[1];
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QFile::decodeName(argv[2]));
    FirstPainting painting(what == "welcome" ? QSplashScreen::staticMetaObject
                                             : QMainWindow::staticMetaObject);
    application.installEventFilter(&painting);
    if (what == "bare" || what == "word") {
        QMainWindow window;
        if (what == "word")
            window.setCentralWidget(new QLabel(QStringLiteral("word")));
        window.show();
        return QApplication::exec();
    }
    nameApplication();
    if (what == "hide")
        settings::setShowSplash(false);
    else
        return runProgram(application);
    return 0;
}
