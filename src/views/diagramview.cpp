// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/diagramview.h"

#include "views/drawingprogress.h"
#include "views/factormodel.h"
#include "views/zarneldelegate.h"

#include <QHeaderView>
#include <QLayout>
#include <QPixmap>
#include <QTableView>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <ostream>

namespace {

/// Black on white: the circles' greys and the black texts are made for it, whatever the desktop.
QPalette lightPalette()
{
    QPalette palette(QColor(239, 239, 239), QColor(239, 239, 239));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

void copyRows(const QImage& strip, QImage& image, int firstRow)
{
    for (int row = 0; row < strip.height(); ++row)
        std::memcpy(image.scanLine(firstRow + row), strip.constScanLine(row),
                    static_cast<std::size_t>(strip.bytesPerLine()));
}

/// Where the next strip ends: between two rows, since a circle that is cut has other edges. A strip
/// needs whole pixels, which only whole pixel ratios are sure to give.
int stripEnd(const QTableView& view, int top)
{
    constexpr int least = 256;
    const double ratio = view.devicePixelRatioF();
    const auto* rows = view.verticalHeader();
    const int headerHeight = view.horizontalHeader()->height();
    const int row = rows->visualIndexAt(top + least - headerHeight);
    if (row < 0 || ratio != std::floor(ratio))
        return view.height();
    return headerHeight + rows->sectionViewportPosition(rows->logicalIndex(row)) +
           rows->sectionSize(rows->logicalIndex(row));
}

/// A picture of the whole view, strip by strip, so that it can be watched and cancelled; then it is
/// null.
QImage grabbed(QTableView& view)
{
    // The first picture only forces layout and painting.
    view.grab(QRect(0, 0, 1, 1));
    QImage image;
    int firstRow = 0;
    for (int top = 0, end = 0; top < view.height(); top = end) {
        end = stripEnd(view, top);
        const QImage strip = view.grab(QRect(0, top, view.width(), end - top)).toImage();
        if (top == 0) {
            const double ratio = strip.devicePixelRatio();
            image = QImage((QSizeF(view.size()) * ratio).toSize(), strip.format());
            image.setDevicePixelRatio(ratio);
        }
        if (image.isNull() || strip.isNull())
            return {};
        copyRows(strip, image, firstRow);
        firstRow += strip.height();
        if (!pelmora::goOn(
                {.work = pelmora::Progress::Work::Drawing, .done = double(end) / view.height()}))
            return {};
    }
    return image;
}

/// The picture without colours if it has none, which makes a file of half the bytes in a third of
/// the time. Null when the memory does not suffice or the user cancels.
QImage inGreys(const QImage& image)
{
    constexpr int stripHeight = 256;
    QImage greys(image.size(), QImage::Format_Grayscale8);
    for (int top = 0; top < image.height(); top += stripHeight) {
        const int height = std::min(stripHeight, image.height() - top);
        const QImage strip = image.copy(0, top, image.width(), height);
        if (!strip.allGray())
            return image;
        const QImage greyStrip = strip.convertToFormat(QImage::Format_Grayscale8);
        if (greys.isNull() || greyStrip.isNull() ||
            !pelmora::goOn({.work = pelmora::Progress::Work::Drawing}))
            return {};
        copyRows(greyStrip, greys, top);
    }
    greys.setDotsPerMeterX(image.dotsPerMeterX());
    greys.setDotsPerMeterY(image.dotsPerMeterY());
    return greys;
}

} // namespace

void setUpDiagramView(QTableView* view, factorModel* model)
{
    view->setPalette(lightPalette());
    view->setModel(model);
    view->setItemDelegate(new zarnelDelegate(view));
    // A column asks for the same width in each of its loading cells, and a row for the same height:
    // next to the summary cell one of them will do.
    view->horizontalHeader()->setResizeContentsPrecision(2);
    view->verticalHeader()->setResizeContentsPrecision(2);
    adjustDiagramView(view);
}

void adjustDiagramView(QTableView* view)
{
    auto* delegate = qobject_cast<zarnelDelegate*>(view->itemDelegate());
    const auto* model = qobject_cast<const factorModel*>(view->model());
    if (delegate && model)
        delegate->rehearse(*model);
    view->adjustSize();
    view->resizeColumnsToContents();
    view->resizeRowsToContents();
    view->updateGeometry();
    // Without it the view would be painted once at the size that adjustSize() gave it.
    if (view->parentWidget() && view->parentWidget()->layout())
        view->parentWidget()->layout()->activate();
}

void layOutWholeDiagram(QTableView* view, factorModel* model)
{
    view->setAttribute(Qt::WA_DontShowOnScreen);
    // A frame would cover the last pixels of the last row and column.
    view->setFrameShape(QFrame::NoFrame);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUpDiagramView(view, model);
    view->setFixedSize(view->verticalHeader()->width() + view->horizontalHeader()->length(),
                       view->horizontalHeader()->height() + view->verticalHeader()->length());
}

QImage diagramImage(factorModel* model)
{
    QTableView view;
    layOutWholeDiagram(&view, model);
    QImage image = grabbed(view);
    // 96 dots per inch of the screen's unscaled pixels, so that it prints at one size everywhere.
    const int dotsPerMeter = qRound(3780 * image.devicePixelRatio());
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
}

void writePng(std::ostream& out, const QImage& image)
{
    // The compressing library also prints a message when it is refused.
    WatchedBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!inGreys(image).save(&buffer, "PNG"))
        throw std::bad_alloc();
    out.write(buffer.data().constData(), buffer.size());
}
