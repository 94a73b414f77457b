// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "support/answers.h"
#include "support/datarows.h"
#include "views/diagramdrawing.h"
#include "views/diagramview.h"
#include "views/drawingfile.h"
#include "views/factormodel.h"
#include "views/loadings.h"
#include "views/viewtest.h"

#include <QDateTime>
#include <QXmlStreamReader>

#include <cmath>
#include <new>

namespace {

const QDateTime epoch = QDateTime::fromSecsSinceEpoch(1000000000);

NamedMatrix loadings()
{
    return loadingsOf({{0.9, -0.5, 0.07}, {-0.3, 0.8, 0.0}, {0.2, NAN, -1.0}},
                      {"a <b> & c", "\u00b5 \u00df", "one\ttwo"});
}

/// Whether @p image shows a circle in @p square: filled to its edge, and nothing two pixels beyond.
bool showsCircle(const QImage& image, const QRect& square, const QColor& fill)
{
    const QPoint centre = square.center();
    const auto colour = [&](int x, int y) { return image.pixelColor(x, y); };
    const auto isDark = [&](int x, int y) { return colour(x, y).lightness() < 140; };
    return colour(centre.x(), centre.y()) == fill &&
           colour(square.left() + 2, centre.y()) == fill &&
           colour(centre.x(), square.bottom() - 1) == fill &&
           colour(square.left() - 2, centre.y()) == Qt::white &&
           colour(centre.x(), square.bottom() + 3) == Qt::white &&
           isDark(square.left(), centre.y()) && isDark(square.right(), centre.y()) &&
           isDark(centre.x(), square.top()) && isDark(centre.x(), square.bottom());
}

/// Size of the page in points.
QSize pageOf(const QByteArray& pdf)
{
    const auto at = pdf.indexOf("/MediaBox [0 0 ");
    const QList<QByteArray> numbers = pdf.mid(at + 15, 40).split(']').value(0).split(' ');
    return QSizeF(numbers.value(0).toDouble(), numbers.value(1).toDouble()).toSize();
}

QStringList textsOf(const DiagramDrawing& drawing)
{
    QStringList all;
    for (const auto& texts : drawing.texts)
        for (const auto& text : texts.texts)
            all << text.text;
    return all;
}

} // namespace

class TestDiagramDrawing : public ViewTest
{
    Q_OBJECT

private slots:
    void circlesStandWhereThePageShowsThem()
    {
        factorModel model(loadings(), 3, nullptr);
        for (const int size : {25, 50, 125}) {
            model.setDiagramSize(size);
            const QImage image = diagramImage(&model);
            QCOMPARE(image.devicePixelRatio(), 1.0);
            int probed = 0;
            int all = 0;
            for (const auto& [fill, squares] : drawDiagram(&model).circles) {
                for (const QRect& square : squares) {
                    ++all;
                    if (square.width() < 12)
                        continue;
                    ++probed;
                    QVERIFY2(showsCircle(image, square, fill),
                             qPrintable(QStringLiteral("size %1: circle at %2, %3 of diameter %4")
                                            .arg(size)
                                            .arg(square.x())
                                            .arg(square.y())
                                            .arg(square.width())));
                }
            }
            QCOMPARE(all, 8); // all but the one that is not a number
            QVERIFY(probed >= 5);
        }
    }

    void everyTextIsThereAndTheNoteSaysWhatCirclesMean()
    {
        m_settings.set("Precision", 1);
        factorModel model(loadings(), 3, nullptr);
        const QStringList texts = textsOf(drawDiagram(&model));
        for (const char* text : {"Communality", "Factor F3", "Explained", "variance:", "a", "<b>",
                                 "\u00b5", "two", "1.1", "31.3", "-0.5", "0.1", "0", "nan"})
            QVERIFY2(texts.contains(text), text);
        QVERIFY(texts.join(u' ').endsWith("Area of a circle: absolute value of the loading. "
                                          "Grey: positive, light grey: negative."));
        m_settings.set("Zarnel/circel", "diameter");
        QVERIFY(textsOf(drawDiagram(&model)).join(u' ').contains("Diameter of a circle"));
    }

    void svgHoldsTheDrawingAsItIs()
    {
        factorModel model(loadings(), 3, nullptr);
        const DiagramDrawing drawing = drawDiagram(&model);
        QStringList circles;
        for (const auto& [fill, squares] : drawing.circles)
            for (const QRect& square : squares)
                circles << QStringLiteral("%1 %2 %3")
                               .arg(square.x() + square.width() / 2.0)
                               .arg(square.y() + square.height() / 2.0)
                               .arg(std::max(square.width() / 2.0, 0.25));

        QXmlStreamReader xml(svgFile(drawing, "a \x01 & <title>"));
        QStringList readCircles;
        QStringList readTexts;
        while (!xml.atEnd()) {
            xml.readNext();
            const QXmlStreamAttributes attributes = xml.attributes();
            if (xml.isStartElement() && xml.name() == QLatin1String("circle"))
                readCircles << QStringList{attributes.value("cx").toString(),
                                           attributes.value("cy").toString(),
                                           attributes.value("r").toString()}
                                   .join(u' ');
            else if (xml.isStartElement() && xml.name() == QLatin1String("text"))
                readTexts << xml.readElementText();
            QVERIFY(!xml.isStartElement() || xml.name() != QLatin1String("image"));
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QCOMPARE(readCircles, circles);
        QCOMPARE(readTexts, textsOf(drawing));
    }

    void pdfIsOnePageWithoutBitmap()
    {
        factorModel model(loadings(), 3, nullptr);
        const DiagramDrawing drawing = drawDiagram(&model);
        const QByteArray pdf = pdfFile(drawing, "title", epoch);
        QVERIFY(pdf.startsWith("%PDF-"));
        QCOMPARE(pdf.count("/Type /Page\n"), 1);
        QCOMPARE(pdf.count("/Subtype /Image"), 0);
        QVERIFY(pdf.count("/ToUnicode") > 0); // so that texts can be selected
        QVERIFY(pdf.contains("/CreationDate (D:20010909014640Z)"));
        QCOMPARE(pdfFile(drawing, "title", epoch), pdf);
        const QSizeF points = QSizeF(drawing.size) * 72.0 / drawing.dotsPerInch;
        QCOMPARE(pageOf(pdf), points.toSize());
    }

    void pagesKeepToTheBoundOfTheFormat()
    {
        NamedMatrix many{pelmora::Matrix(200, 1), VariableNames(200)};
        for (int i = 0; i < 200; ++i)
            many.values[i][0] = 1.0;
        factorModel model(many, 1, nullptr);
        model.setDiagramSize(125);
        const QByteArray pdf = pdfFile(drawDiagram(&model), "title", epoch);
        QCOMPARE(pageOf(pdf).height(), 14400);
    }

    void filesCanBeCancelledUntilTheEnd_data()
    {
        const DataRows<std::function<QByteArray(const DiagramDrawing&)>> row("file");
        row("pdf", [](const DiagramDrawing& drawing) { return pdfFile(drawing, "title", epoch); });
        row("svg", [](const DiagramDrawing& drawing) { return svgFile(drawing, "title"); });
    }

    void filesCanBeCancelledUntilTheEnd()
    {
        QFETCH(std::function<QByteArray(const DiagramDrawing&)>, file);
        NamedMatrix many{pelmora::Matrix(60, 40), VariableNames(60)};
        for (int i = 0; i < 60; ++i)
            std::fill_n(many.values[i], 40, 0.5);
        factorModel model(many, 40, nullptr);
        const QByteArray complete = file(drawDiagram(&model));

        std::size_t drawing = 0;
        std::size_t all = 0;
        {
            const Answers answers(Answers::always);
            const DiagramDrawing drawn = drawDiagram(&model);
            drawing = Answers::asked.size();
            QVERIFY(file(drawn) == complete);
            all = Answers::asked.size();
        }
        QVERIFY2(0 < drawing && drawing < all,
                 qPrintable(QString("%1 of %2").arg(drawing).arg(all)));
        for (const std::size_t yes : {std::size_t(0), drawing - 1, drawing, all - 1}) {
            const Answers answers(static_cast<int>(yes));
            QVERIFY_THROWS_EXCEPTION(std::bad_alloc, file(drawDiagram(&model)));
            QCOMPARE(Answers::asked.size(), yes + 1);
        }
    }
};

QTEST_MAIN(TestDiagramDrawing)
#include "tst_diagramdrawing.moc"
