// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/commandline.h"
#include "convert/converterwindow.h"
#include "convert/refusal.h"

#include <QApplication>
#include <QFile>
#include <QIcon>

#include <csignal>

namespace {

/// Without a screen the toolkit would abort.
bool hasScreen()
{
#ifdef Q_OS_LINUX
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"})
        if (!qEnvironmentVariableIsEmpty(name))
            return true;
    return false;
#else
    return true;
#endif
}

int showWindow(int& argc, char** argv, const QString& file)
{
    if (!hasScreen())
        return convert::refuseUsage(
            convert::tr("there is no screen for a window; with -o none is needed"));
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Pelmora Convert"));
    QGuiApplication::setDesktopFileName(QStringLiteral("example.pelmora.Pelmora.Convert"));
    QGuiApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("example.pelmora.Pelmora")));
    ConverterWindow window(nullptr);
    window.show();
    if (!file.isEmpty())
        window.openFile(file);
    return application.exec();
}

} // namespace

int main(int argc, char* argv[])
{
    // Writing to a closed pipe is to fail like any other write.
    std::signal(SIGPIPE, SIG_IGN);
    QStringList words;
    for (int i = 1; i < argc; ++i)
        words.append(QFile::decodeName(argv[i]));
    if (words.isEmpty())
        return showWindow(argc, argv, QString());
    QString error;
    const auto arguments = convert::parseArguments(words, error);
    if (!arguments)
        return convert::refuseUsage(error);
    if (arguments->help)
        return convert::print(convert::helpText());
    if (arguments->version)
        return convert::print(convert::versionText());
    if (arguments->output.isEmpty())
        return showWindow(argc, argv, arguments->input);
    const QCoreApplication application(argc, argv);
    return convert::run(*arguments);
}
