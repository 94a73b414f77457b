// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/errorbox.h"
#include "app/startup.h"
#include "settings/settings.h"
#include "tour/tour.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

QtMessageHandler showMessage = nullptr;

/// Drops the toolkit's remarks on a machine without display and desktop.
void leaveOutNoise(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const bool ofThePlace =
        text.contains(QLatin1String("propagateSizeHints")) || text.contains(QLatin1String("XDG_"));
    if (type != QtDebugMsg && !ofThePlace)
        showMessage(type, context, text);
}

} // namespace

/// Usage: pelmora_tour [output folder [folder of the samples]]
int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    showMessage = qInstallMessageHandler(leaveOutNoise);
    QApplication application(argc, argv);
    nameApplication();
    installErrorBox();

    // The tour leaves the user's own settings alone.
    const QTemporaryDir ownSettings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, ownSettings.path());
    settings::setOpenFolderAfterClosing(false);

    const QDir output(application.arguments().value(1, QStringLiteral("pelmora-tour")));
    if (!output.mkpath(QStringLiteral("."))) {
        QTextStream(stderr) << "Cannot make the folder " << output.absolutePath() << Qt::endl;
        return 1;
    }
    const QDir samples(application.arguments().value(2, QStringLiteral(PELMORA_DATA_DIR)));
    const bool succeeded = Tour(output, samples).run();
    QTextStream(stdout) << "The exports and pictures are in " << output.absolutePath() << Qt::endl;
    return succeeded ? 0 : 1;
}
