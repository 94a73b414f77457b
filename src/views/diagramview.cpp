// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/diagramview.h"

#include "views/factormodel.h"
#include "views/zarneldelegate.h"

#include <QHeaderView>
#include <QLayout>
#include <QPixmap>
#include <QTableView>

namespace {

/// Black on white: the circles' greys and the black texts are made for it, whatever the desktop.
QPalette lightPalette()
{
    QPalette palette(QColor(239, 239, 239), QColor(239, 239, 239));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    return palette;
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
    // The first picture only forces layout and painting.
    view.grab();
    QImage image = view.grab().toImage();
    // 96 dots per inch of the screen's unscaled pixels, so that it prints at one size everywhere.
    const int dotsPerMeter = qRound(3780 * image.devicePixelRatio());
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    return image;
}
