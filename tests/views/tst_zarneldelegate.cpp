// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/testsettings.h"
#include "views/diagramgeometry.h"
#include "views/diagramview.h"
#include "views/factormodel.h"
#include "views/loadings.h"
#include "views/zarneldelegate.h"

#include <QApplication>
#include <QHeaderView>
#include <QPainter>
#include <QStandardItemModel>
#include <QTableView>
#include <QTest>

#include <cmath>
#include <limits>

namespace {

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
    image.fill(Qt::white);
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
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) != Qt::white)
                return false;
    return true;
}

} // namespace

class tst_ZarnelDelegate : public QObject
{
    Q_OBJECT

private:
    TestSettings m_settings;

private slots:
    void init() { m_settings.clear(); }

    void fontGrowsWithTheDiagram_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("points");
        QTest::newRow("smallest") << 25 << 7;
        QTest::newRow("last of the floor") << 45 << 8;
        QTest::newRow("default") << 50 << 8;
        QTest::newRow("largest") << 125 << 20;
    }
    void fontGrowsWithTheDiagram()
    {
        QFETCH(int, size);
        DiagramGeometry geometry;
        geometry.size = size;
        QTEST(geometry.fontSize(), "points");
    }

    void circlesAreCentredInTheBoxOfTheLargest()
    {
        DiagramGeometry geometry;
        QCOMPARE(geometry.diameter(-0.25), 25.0);
        // The box is 50 wide and 25 high: (50 - 12.5) / 2 = 18.75 and (25 - 12.5) / 2 = 6.25.
        QCOMPARE(geometry.circle(0.0625, 0.25, 1.0, {100, 200}), QRect(122, 210, 12, 12));
        QCOMPARE(geometry.circle(1.0, 1.0, 1.0, {100, 200}), QRect(104, 204, 50, 50));
        QCOMPARE(geometry.circle(0.0, 1.0, 1.0, {0, 0}).size(), QSize(0, 0));
        QCOMPARE(geometry.textOrigin(0.25, 1.0, {100, 200}), QPoint(164, 229));
        QCOMPARE(geometry.cellSize(0.25, 1.0), QSize(72, 33));
        QCOMPARE(geometry.cellSize(0.0, 0.0), QSize(22, 31));

        geometry.proportionalArea = false;
        QCOMPARE(geometry.diameter(-0.25), 12.5);
        QCOMPARE(geometry.cellSize(1.0, 0.25), QSize(34, 58));
    }

    void geometryOfBadNumbersIsBounded()
    {
        const DiagramGeometry geometry;
        const double bad[] = {NAN, std::numeric_limits<double>::infinity(), 1e300};
        for (double value : bad) {
            QVERIFY(geometry.cellSize(value, value).width() <= 1000000);
            QVERIFY(geometry.circle(value, 1.0, 1.0, {0, 0}).width() <= 1000000);
            QVERIFY(geometry.textOrigin(value, value, {0, 0}).y() <= 1000000);
        }
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
        QCOMPARE(delegate.diameter(0.25), 12.5);
        QCOMPARE(hint(delegate, model, 1, 1), QSize(20 + 4 + 8 + 5 + 50, 40 + 50));
        QCOMPARE(hint(delegate, model, 1, 2), QSize(20 + 4 + 8 + 5 + 12, 40 + 50));
    }

    void summariesTakeNoRoom()
    {
        const factorModel model(loadingsOf({{1.0}}, {"a"}), 1, nullptr);
        const zarnelDelegate delegate;
        QCOMPARE(hint(delegate, model, 0, 0), QSize(1, 1));
        QCOMPARE(hint(delegate, model, 0, 1), QSize(1, 1));
        QCOMPARE(hint(delegate, model, 1, 0), QSize(1, 1));
    }

    void hintsFollowTheModelAfterAPaint()
    {
        factorModel model(loadingsOf({{1.0}}, {"a"}), 1, nullptr);
        const zarnelDelegate delegate;
        model.setDiagramSize(100);
        QCOMPARE(hint(delegate, model, 1, 1).height(), 58);
        painted(delegate, model.index(1, 0));
        QCOMPARE(hint(delegate, model, 1, 1).height(), 58);
        painted(delegate, model.index(1, 1));
        QCOMPARE(hint(delegate, model, 1, 1).height(), 108);
    }

    void rehearsalMakesRoomForTheWidestText()
    {
        factorModel model(loadingsOf({{0.1, 0.01}, {-0.11, 0.5}}, {"a", "b"}), 2, nullptr);
        zarnelDelegate delegate;
        model.setDiagramSize(125);
        const QFont font("Helvetica [Cronyx]", 20, QFont::Normal);
        const int widest = QFontMetrics(font).horizontalAdvance("-0.11");
        delegate.rehearse(model);
        QCOMPARE(hint(delegate, model, 1, 1).height(), widest + 4);
        painted(delegate, model.index(1, 1));
        delegate.rehearse(model);
        QCOMPARE(hint(delegate, model, 1, 1).height(), widest + 4);
    }

    void greysTellTheSign()
    {
        factorModel model(loadingsOf({{1.0, -1.0}}, {"a"}), 2, nullptr);
        model.setDiagramSize(100);
        const zarnelDelegate delegate;
        const QImage above = painted(delegate, model.index(1, 1));
        QCOMPARE(above.pixelColor(54, 54), positive);
        QCOMPARE(above.pixelColor(54, 12), positive);
        QCOMPARE(above.pixelColor(14, 14), QColor(Qt::white));
        QCOMPARE(painted(delegate, model.index(1, 2)).pixelColor(54, 54), negative);
    }

    void zeroIsADot()
    {
        factorModel model(loadingsOf({{0.0}, {1.0}}, {"a", "b"}), 1, nullptr);
        const QImage image = painted(zarnelDelegate(), model.index(1, 1));
        QVERIFY(!isBlank(image.copy(27, 2, 4, 4)));
        QVERIFY(isBlank(image.copy(0, 8, 50, 192)));
    }

    void notANumberIsWrittenWithoutACircle()
    {
        factorModel model(loadingsOf({{NAN}, {1.0}}, {"a", "b"}), 1, nullptr);
        const zarnelDelegate delegate;
        const QImage image = painted(delegate, model.index(1, 1));
        QVERIFY(isBlank(image.copy(0, 0, 50, 200)));
        QVERIFY(!isBlank(image));
    }

    void othersCellsAreLeftToTheBase()
    {
        QStandardItemModel words(1, 1);
        words.setItem(0, 0, new QStandardItem("word"));
        const zarnelDelegate delegate;
        const QStyledItemDelegate base;
        QCOMPARE(delegate.sizeHint({}, words.index(0, 0)), base.sizeHint({}, words.index(0, 0)));
        QVERIFY(!isBlank(painted(delegate, words.index(0, 0))));
    }

    void picturesHoldTheLastCircleAtEverySize_data()
    {
        QTest::addColumn<int>("size");
        for (int size : {25, 50, 125})
            QTest::addRow("%d", size) << size;
    }
    void picturesHoldTheLastCircleAtEverySize()
    {
        QFETCH(int, size);
        const QPalette palette = qApp->palette();
        qApp->setPalette(QPalette(Qt::black)); // a dark desktop changes nothing
        factorModel model(loadingsOf({{0.1, 0.2}, {-0.3, 1.0}}, {"a", "b"}), 2, nullptr);
        model.setDiagramSize(size);
        const QImage image = diagramImage(&model);
        qApp->setPalette(palette);

        QCOMPARE(image.dotsPerMeterX(), qRound(3780 * image.devicePixelRatio()));
        // Cell (2, 2) is as high as the largest circle, its margins and the grid; its width has the
        // text beside the circle and may have the header's.
        const QSize all = image.deviceIndependentSize().toSize();
        const int bottom = all.height() - 1 - 1 - 4;
        int right = all.width() - 2;
        while (right > 0 && colourAt(image, right, bottom - size / 2) != positive)
            --right;
        const int middle = right - size / 2;
        QCOMPARE(colourAt(image, middle, bottom - 3), positive);
        QCOMPARE(colourAt(image, middle, bottom - size + 4), positive);
        QCOMPARE(colourAt(image, middle, bottom + 3), QColor(Qt::white));
    }

    void veryTallPicturesAreComplete()
    {
        constexpr int variables = 400; // 53,000 lines
        NamedMatrix loadings{pelmora::Matrix(variables, 1), VariableNames(variables)};
        for (int i = 0; i < variables; ++i)
            loadings.values[i][0] = i % 2 ? 1.0 : -1.0;
        factorModel model(loadings, 1, nullptr);
        model.setDiagramSize(125);
        const QImage image = diagramImage(&model);
        const int rowHeight = 2 * 4 + 125 + 1;
        const QSize all = image.deviceIndependentSize().toSize();
        for (int i : {0, 60, 61, 244, 399}) {
            const int middle = all.height() - (variables - i) * rowHeight + rowHeight / 2;
            QCOMPARE(colourAt(image, all.width() - 100, middle), i % 2 ? positive : negative);
        }
    }
};

QTEST_MAIN(tst_ZarnelDelegate)
#include "tst_zarneldelegate.moc"
