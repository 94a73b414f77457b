// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/diagrams.h"

#include "batch/analysis.h"
#include "batch/console.h"
#include "batch/outputnames.h"
#include "settings/settings.h"
#include "views/diagramdrawing.h"
#include "views/diagramview.h"
#include "views/drawingfile.h"
#include "views/factormodel.h"

#include <QApplication>
#include <QFileInfo>

#include <new>
#include <ostream>
#include <sstream>

namespace batch {

namespace {

QByteArray pngFile(factorModel& model)
{
    const QImage image = diagramImage(&model);
    if (image.isNull())
        throw std::bad_alloc();
    std::ostringstream bytes;
    writePng(bytes, image);
    return QByteArray::fromStdString(bytes.str());
}

bool writeDiagram(const QString& path, const AnalysedPage& page, DrawingKind kind,
                  const QString& title)
{
    const auto write = [&](std::ostream& out) {
        const QByteArray bytes = diagramFile(page, kind, title);
        out.write(bytes.constData(), bytes.size());
    };
    return writeOutput(path, write, LineEnds::AsWritten);
}

} // namespace

DrawingRoom::DrawingRoom(unsigned decimals)
{
    static int argumentCount = 1;
    static char name[] = "pelmora-batch";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    settings::ignoreStore(decimals);
    m_application = std::make_unique<QApplication>(argumentCount, arguments);
}

DrawingRoom::~DrawingRoom() = default;

QByteArray diagramFile(const AnalysedPage& page, DrawingKind kind, const QString& title)
{
    factorModel model(page.loadings, page.loadings.values.columns(), nullptr);
    if (kind == DrawingKind::Png)
        return pngFile(model);
    const DiagramDrawing drawing = drawDiagram(&model);
    return kind == DrawingKind::Pdf ? pdfFile(drawing, title, documentTime())
                                    : svgFile(drawing, title);
}

int writeDiagrams(const Analysis& analysis, const AnalyseOptions& options)
{
    const OutputNames names(options, analysis.file);
    int failures = 0;
    for (const AnalysedPage& page : analysis.pages) {
        const QString path = names.pageFile(QString::number(analysis.factors), page.kind,
                                            drawingEnding(options.drawing));
        const QString title = QFileInfo(path).completeBaseName();
        if (!writeDiagram(path, page, options.drawing, title))
            ++failures;
    }
    return failures;
}

QDateTime documentTime()
{
    const qint64 seconds = qgetenv("SOURCE_DATE_EPOCH").toLongLong();
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
}

} // namespace batch
