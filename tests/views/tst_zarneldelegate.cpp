// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/diagramgeometry.h"
#include "views/diagramview.h"
#include "views/factormodel.h"
#include "views/loadings.h"
#include "views/viewtest.h"
#include "views/zarneldelegate.h"

#include <QApplication>
#include <QPainter>
#include <QTableView>

#include <climits>
#include <cmath>

namespace {

const QColor white = Qt::white;
const QColor positive(150, 150, 150);
const QColor negative(230, 230, 230);

QSize hint(const zarnelDelegate& delegate, const factorModel& model, int row, int column)
{
    return delegate.sizeHint({}, model.index(row, column));
}

/// One cell painted into a white square of 200 pixels.
QImage painted(const zarnelDelegate& delegate, const QModelIndex& index)
{
    QImage image(200, 200, QImage::Format_RGB32);
    image.fill(white);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    delegate.paint(&painter, option, index);
    return image;
}

/// Colour at a point in pixels of the unscaled screen.
QColor colourAt(const QImage& image, int x, int y)
{
    const qreal ratio = image.devicePixelRatio();
    return image.pixelColor(qRound(x * ratio), qRound(y * ratio));
}

bool isBlank(const QImage& image)
{
    QImage blank(image.size(), image.format());
    blank.fill(white);
    return image == blank;
}

} // namespace

class TestZarnelDelegate : public ViewTest
{
    Q_OBJECT

private slots:
    void fontGrowsWithTheDiagram()
    {
        QCOMPARE(DiagramGeometry{.size = 25}.fontSize(), 7);
        QCOMPARE(DiagramGeometry{.size = 45}.fontSize(), 8);
        QCOMPARE(DiagramGeometry{.size = 50}.fontSize(), 8);
        QCOMPARE(DiagramGeometry{.size = 125}.fontSize(), 20);
    }

    void circlesAreCentredInTheBoxOfTheLargest()
    {
        DiagramGeometry geometry{.edgeY = 5};
        QCOMPARE(geometry.diameter(-0.25), 25.0);
        // The box is 50 wide and 25 high: (50 - 12.5) / 2 = 18.75 and (25 - 12.5) / 2 = 6.25.
        QCOMPARE(geometry.circle(0.0625, 0.25, 1.0, {100, 200}), QRect(122, 211, 12, 12));
        QCOMPARE(geometry.circle(1.0, 1.0, 1.0, {100, 200}), QRect(104, 205, 50, 50));
        QCOMPARE(geometry.circle(0.0, 1.0, 1.0, {0, 0}).size(), QSize(0, 0));
        QCOMPARE(geometry.textOrigin(0.25, 1.0, {100, 200}), QPoint(164, 230));
        QCOMPARE(geometry.cellSize(0.25, 1.0), QSize(72, 35));
        QCOMPARE(geometry.cellSize(0.0, 0.0), QSize(22, 31));

        geometry.proportionalArea = false;
        QCOMPARE(geometry.diameter(-0.25), 12.5);
        QCOMPARE(geometry.cellSize(1.0, 0.25), QSize(34, 60));
    }

    void geometryOfBadNumbersIsBounded()
    {
        const DiagramGeometry geometry;
        constexpr int bound = 1000000;
        QCOMPARE(geometry.cellSize(NAN, NAN), QSize(0, 31));
        QCOMPARE(geometry.cellSize(INFINITY, 1e300), QSize(bound, bound));
        QCOMPARE(DiagramGeometry{.edgeX = INT_MAX}.cellSize(0.0, 0.0).width(), bound);
        QCOMPARE(geometry.circle(1e300, 1.0, 1.0, {0, 0}).size(), QSize(bound, bound));
        QCOMPARE(geometry.textOrigin(1e300, 1e300, {0, 0}), QPoint(bound, bound));
    }

    void settingsAreReadOnce()
    {
        m_settings.set("Zarnel/edge.x", 10);
        m_settings.set("Zarnel/edge.y", 20);
        m_settings.set("Zarnel/textCircleOffset", 5);
        m_settings.set("Zarnel/circel", "diameter");
        const factorModel model(loadingsOf({{1.0, 0.25}}, {"a"}), 2, nullptr);
        const zarnelDelegate delegate;
        m_settings.clear();
        QCOMPARE(hint(delegate, model, 1, 1), QSize(20 + 4 + 8 + 5 + 50, 40 + 50));
        QCOMPARE(hint(delegate, model, 1, 2), QSize(20 + 4 + 8 + 5 + 12, 40 + 50));
        for (const auto& summary : {model.index(0, 0), model.index(0, 1), model.index(1, 0)})
            QCOMPARE(delegate.sizeHint({}, summary), QSize(1, 1));
    }

    void hintsFollowTheModelAfterAPaint()
    {
        factorModel model(loadingsOf({{1.0, 0.01}, {-0.11, 0.2}}, {"a", "b"}), 2, nullptr);
        const zarnelDelegate delegate;
        model.setDiagramSize(125);
        painted(delegate, model.index(1, 0));
        QCOMPARE(hint(delegate, model, 1, 1).height(), 2 * 4 + 50);
        painted(delegate, model.index(1, 1));
        QCOMPARE(hint(delegate, model, 1, 1).height(), 2 * 4 + 125);
        // After a rehearsal there is room for the widest text at once.
        zarnelDelegate rehearsed;
        rehearsed.rehearse(model);
        const QFont font("Helvetica [Cronyx]", 20, QFont::Normal);
        QCOMPARE(hint(rehearsed, model, 2, 1).height(),
                 QFontMetrics(font).horizontalAdvance("-0.11") + 4);
    }

    void circlesTellTheSignAndWhatHasNoSizeIsWritten()
    {
        const factorModel model(loadingsOf({{1.0, -1.0}, {0.0, NAN}}, {"a", "b"}), 2, nullptr);
        const zarnelDelegate delegate;
        const QImage above = painted(delegate, model.index(1, 1));
        QCOMPARE(above.pixelColor(29, 29), positive);
        QCOMPARE(above.pixelColor(29, 8), positive);
        QCOMPARE(above.pixelColor(8, 8), white);
        QCOMPARE(painted(delegate, model.index(1, 2)).pixelColor(29, 29), negative);
        const QImage dot = painted(delegate, model.index(2, 1));
        QVERIFY(!isBlank(dot.copy(27, 2, 4, 4)));
        QVERIFY(isBlank(dot.copy(0, 8, 50, 192)));
        const QImage notANumber = painted(delegate, model.index(2, 2));
        QVERIFY(isBlank(notANumber.copy(0, 0, 50, 200)));
        QVERIFY(!isBlank(notANumber));
    }

    void picturesAreCompleteAtEverySize()
    {
        constexpr int variables = 400; // up to 53,000 lines
        NamedMatrix loadings{pelmora::Matrix(variables, 1), VariableNames(variables)};
        for (int i = 0; i < variables; ++i)
            loadings.values[i][0] = i % 2 ? 1.0 : -1.0;
        factorModel model(loadings, 1, nullptr);
        const QPalette palette = qApp->palette();
        for (const int size : {25, 50, 125}) {
            model.setDiagramSize(size);
            qApp->setPalette(QPalette(Qt::black)); // a dark desktop changes nothing
            const QImage image = diagramImage(&model);
            if (size == 25) {
                QTableView whole;
                layOutWholeDiagram(&whole, &model);
                QVERIFY(image == whole.grab().toImage());
            }
            qApp->setPalette(palette);
            QCOMPARE(image.dotsPerMeterX(), qRound(3780 * image.devicePixelRatio()));
            // Right of the circle there are the text and maybe room for the header.
            const QSize all = image.deviceIndependentSize().toSize();
            const int bottom = all.height() - 1 - 1 - 4;
            int right = all.width() - 2;
            while (right > 0 && colourAt(image, right, bottom - size / 2) != positive)
                --right;
            const int middle = right - size / 2;
            QCOMPARE(colourAt(image, middle, bottom - 3), positive);
            QCOMPARE(colourAt(image, middle, bottom - size + 4), positive);
            QCOMPARE(colourAt(image, middle, bottom + 3), white);
            for (int i : {0, 60, 61, 244}) {
                const int above = (variables - 1 - i) * (2 * 4 + size + 1);
                QCOMPARE(colourAt(image, middle, bottom - size / 2 - above),
                         i % 2 ? positive : negative);
            }
        }
    }
};

QTEST_MAIN(TestZarnelDelegate)
#include "tst_zarneldelegate.moc"
