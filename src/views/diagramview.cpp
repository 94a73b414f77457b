// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/diagramview.h"

#include "views/factormodel.h"
#include "views/zarneldelegate.h"

#include <QHeaderView>
#include <QLayout>
#include <QPixmap>
#include <QTableView>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

/// Black on white: the circles' greys and the black texts are made for it, whatever the desktop.
QPalette lightPalette()
{
    QPalette palette(QColor(239, 239, 239), QColor(239, 239, 239));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
}

/// Copies @p band into @p image from line @p top on; both have the same width and format.
void copyLines(QImage& image, int top, const QImage& band)
{
    const int lines = std::min(band.height(), image.height() - top);
    for (int line = 0; line < lines; ++line)
        std::memcpy(image.scanLine(top + line), band.constScanLine(line),
                    static_cast<std::size_t>(band.bytesPerLine()));
}

/// A picture of @p view put together from bands, since painting ends at line 32767 of a picture.
QImage grabInBands(QTableView& view)
{
    constexpr int bandHeight = 8192;
    QImage image;
    for (int top = 0; top < view.height(); top += bandHeight) {
        const QRect part(0, top, view.width(), std::min(bandHeight, view.height() - top));
        const QPixmap pixmap = view.grab(part);
        const qreal ratio = pixmap.devicePixelRatio();
        const QImage band = pixmap.toImage().convertToFormat(QImage::Format_RGB32);
        if (image.isNull()) {
            image = QImage(band.width(), qRound(view.height() * ratio), QImage::Format_RGB32);
            image.setDevicePixelRatio(ratio);
        }
        if (band.isNull() || image.isNull())
            return QImage();
        copyLines(image, qRound(top * ratio), band);
    }
    return image;
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

QImage diagramImage(factorModel* model)
{
    QTableView view;
    view.setAttribute(Qt::WA_DontShowOnScreen);
    // A frame would cover the last pixels of the last row and column.
    view.setFrameShape(QFrame::NoFrame);
    view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setUpDiagramView(&view, model);
    view.setFixedSize(view.verticalHeader()->width() + view.horizontalHeader()->length(),
                      view.horizontalHeader()->height() + view.verticalHeader()->length());
    // The first picture only forces layout and painting.
    grabInBands(view);
    QImage image = grabInBands(view);
    // 96 dots per inch of the screen's unscaled pixels, so that it prints at one size everywhere.
    const int dotsPerMeter = qRound(3780 * image.devicePixelRatio());
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
}
