// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "guide/guidedocument.h"

#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPdfWriter>
#include <QTextStream>

namespace {

constexpr int dotsPerInch = 1200;
const QMarginsF marginsInMillimetres(22, 20, 22, 22);

int fail(const QString& message)
{
    QTextStream(stderr) << message << Qt::endl;
    return 1;
}

/// The writer stamps the time of the run. With SOURCE_DATE_EPOCH set that one takes its place, in
/// as many bytes, so that the file's table of positions stays true.
bool setCreationDate(const QString& path)
{
    bool given = false;
    const qint64 epoch = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&given);
    if (!given)
        return true;
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    QByteArray content = file.readAll();
    const QByteArray key("/CreationDate (D:");
    const QByteArray stamp =
        QDateTime::fromSecsSinceEpoch(epoch, Qt::UTC).toString(u"yyyyMMddHHmmss").toLatin1();
    const auto at = content.indexOf(key);
    if (at < 0)
        return false;
    content.replace(at + key.size(), stamp.size(), stamp);
    return file.seek(0) && file.write(content) == content.size();
}

} // namespace

/// Usage: pelmora_guide <Markdown file> <PDF file>
int main(int argc, char* argv[])
{
    // The order of objects in the PDF follows that of hashes.
    QHashSeed::setDeterministicGlobalSeed();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 3)
        return fail(QStringLiteral("usage: pelmora_guide <Markdown file> <PDF file>"));

    QFile source(arguments[1]);
    if (!source.open(QIODevice::ReadOnly))
        return fail(QStringLiteral("Cannot read %1").arg(source.fileName()));
    QStringList missing;
    {
        QPdfWriter paper(arguments[2]);
        paper.setTitle(QStringLiteral("Pelmora user guide"));
        paper.setCreator(QStringLiteral("The Pelmora Developers"));
        paper.setResolution(dotsPerInch);
        paper.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                        marginsInMillimetres, QPageLayout::Millimeter));
        GuideDocument guide(QString::fromUtf8(source.readAll()), QFileInfo(source).dir(), paper);
        guide.print();
        missing = guide.missingPictures();
    }
    if (!missing.isEmpty())
        return fail(
            QStringLiteral("Pictures are missing: %1").arg(missing.join(QLatin1String(", "))));
    if (!setCreationDate(arguments[2]))
        return fail(QStringLiteral("Cannot set the date in %1").arg(arguments[2]));
    return 0;
}
