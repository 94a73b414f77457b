// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "guide/guidedocument.h"
#include "output/pdfstamp.h"

#include <QBuffer>
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

/// The time in SOURCE_DATE_EPOCH takes the place of the run's.
void stamp(QByteArray& document)
{
    bool given = false;
    const qint64 epoch = qEnvironmentVariable("SOURCE_DATE_EPOCH").toLongLong(&given);
    if (given)
        stampPdf(document, QDateTime::fromSecsSinceEpoch(epoch, Qt::UTC));
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
    QBuffer pages;
    pages.open(QIODevice::WriteOnly);
    QList<PdfBookmark> bookmarks;
    QList<PdfLink> links;
    {
        QPdfWriter paper(&pages);
        paper.setTitle(QStringLiteral("Pelmora user guide"));
        paper.setCreator(QStringLiteral("The Pelmora Developers"));
        paper.setResolution(dotsPerInch);
        paper.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                        marginsInMillimetres, QPageLayout::Millimeter));
        GuideDocument guide(QString::fromUtf8(source.readAll()), QFileInfo(source).dir(), paper);
        const QString separator(QStringLiteral(", "));
        if (!guide.missingPictures().isEmpty())
            return fail(QStringLiteral("Pictures are missing: %1")
                            .arg(guide.missingPictures().join(separator)));
        if (!guide.missingTargets().isEmpty())
            return fail(QStringLiteral("Headings that links lead to are missing: %1")
                            .arg(guide.missingTargets().join(separator)));
        guide.print();
        bookmarks = guide.bookmarks();
        links = guide.links();
    }
    QByteArray document = withNavigation(pages.data(), bookmarks, links);
    if (document.isEmpty())
        return fail(QStringLiteral("Cannot add bookmarks and links"));
    stamp(document);
    QFile file(arguments[2]);
    if (!file.open(QIODevice::WriteOnly) || file.write(document) != document.size() ||
        !file.flush())
        return fail(QStringLiteral("Cannot write %1").arg(file.fileName()));
    return 0;
}
