// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/drawingfile.h"

#include "output/pdfstamp.h"
#include "views/diagramdrawing.h"
#include "views/drawingprogress.h"

#include <QDateTime>
#include <QFontInfo>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QScopeGuard>
#include <QXmlStreamWriter>

#include <algorithm>
#include <new>

namespace {

constexpr double pointsPerInch = 72.0;
constexpr double longestPage = 200.0 * pointsPerInch;
const QColor ruleColour(210, 210, 210);
/// A rule fills one row or column of pixels, so it runs along their middle.
constexpr double halfPixel = 0.5;
/// Of the dot for a loading of 0, which is nearly all outline.
constexpr double leastRadius = 0.25;

double radiusOf(const QRect& square)
{
    return std::max(square.width() / 2.0, leastRadius);
}

QPointF centreOf(const QRect& square)
{
    return QPointF(square.topLeft()) + QPointF(square.width(), square.height()) / 2.0;
}

/// The place in coordinates rotated by 270 degrees, in which upright texts are horizontal.
QPointF turned(QPoint place)
{
    return QPointF(-place.y(), place.x());
}

std::size_t marksOf(const DiagramDrawing& drawing)
{
    std::size_t marks = 0;
    for (const auto& circles : drawing.circles)
        marks += circles.squares.size();
    for (const auto& texts : drawing.texts)
        marks += texts.texts.size();
    return marks;
}

void paintTexts(QPainter& painter, const DiagramDrawing::Texts& texts, DrawingMeter& meter)
{
    painter.save();
    const auto restore = qScopeGuard([&painter] { painter.restore(); });
    // Hinting fits outlines to pixels, and the file has none.
    QFont font = texts.font;
    font.setHintingPreference(QFont::PreferNoHinting);
    painter.setFont(font);
    if (texts.upright)
        painter.rotate(270.0);
    for (const auto& [origin, width, text] : texts.texts) {
        painter.drawText(texts.upright ? turned(origin) : QPointF(origin), text);
        meter.count();
    }
}

void paint(QPainter& painter, const DiagramDrawing& drawing)
{
    DrawingMeter meter(marksOf(drawing));
    painter.setPen(QPen(ruleColour, 1.0));
    for (const QLine& rule : drawing.rules)
        painter.drawLine(QLineF(rule).translated(halfPixel, halfPixel));
    painter.setPen(QPen(Qt::black, 1.0));
    for (const auto& [fill, squares] : drawing.circles) {
        painter.setBrush(fill);
        for (const QRect& square : squares) {
            painter.drawEllipse(centreOf(square), radiusOf(square), radiusOf(square));
            meter.count();
        }
    }
    for (const auto& texts : drawing.texts)
        paintTexts(painter, texts, meter);
}

QString fontFamilies(const QFont& font)
{
    return QStringLiteral("'%1', Helvetica, Arial, sans-serif").arg(QFontInfo(font).family());
}

/// XML 1.0 allows no control characters, not even escaped.
QString allowedText(QString text)
{
    for (QChar& c : text)
        if (c.unicode() < 0x20)
            c = QChar::ReplacementCharacter;
    return text;
}

class SvgWriter
{
public:
    SvgWriter(QByteArray* file, const DiagramDrawing& drawing)
        : m_xml(file)
        , m_drawing(drawing)
        , m_meter(marksOf(drawing))
    {
        m_xml.setAutoFormatting(true);
    }

    void write(const QString& title)
    {
        const QSize size = m_drawing.size;
        m_xml.writeStartDocument();
        m_xml.writeStartElement(QStringLiteral("svg"));
        m_xml.writeDefaultNamespace(QStringLiteral("http://www.w3.org/2000/svg"));
        attribute("width", size.width());
        attribute("height", size.height());
        attribute("viewBox", QStringLiteral("0 0 %1 %2").arg(size.width()).arg(size.height()));
        m_xml.writeTextElement(QStringLiteral("title"), allowedText(title));
        writeRules();
        for (const auto& circles : m_drawing.circles)
            writeCircles(circles);
        for (const auto& texts : m_drawing.texts)
            writeTexts(texts);
        m_xml.writeEndDocument();
    }

private:
    void attribute(const char* name, const QString& value)
    {
        m_xml.writeAttribute(QLatin1String(name), value);
    }
    void attribute(const char* name, double value) { attribute(name, QString::number(value)); }

    void beginGroup() { m_xml.writeStartElement(QStringLiteral("g")); }

    void writeRules()
    {
        beginGroup();
        attribute("stroke", ruleColour.name());
        for (const QLine& rule : m_drawing.rules) {
            m_xml.writeEmptyElement(QStringLiteral("line"));
            attribute("x1", rule.x1() + halfPixel);
            attribute("y1", rule.y1() + halfPixel);
            attribute("x2", rule.x2() + halfPixel);
            attribute("y2", rule.y2() + halfPixel);
        }
        m_xml.writeEndElement();
    }

    void writeCircles(const DiagramDrawing::Circles& circles)
    {
        beginGroup();
        attribute("fill", circles.fill.name());
        attribute("stroke", QStringLiteral("#000000"));
        for (const QRect& square : circles.squares) {
            const QPointF centre = centreOf(square);
            m_xml.writeEmptyElement(QStringLiteral("circle"));
            attribute("cx", centre.x());
            attribute("cy", centre.y());
            attribute("r", radiusOf(square));
            m_meter.count();
        }
        m_xml.writeEndElement();
    }

    void writeTexts(const DiagramDrawing::Texts& texts)
    {
        const QFontInfo info(texts.font);
        beginGroup();
        attribute("font-family", fontFamilies(texts.font));
        attribute("font-size", info.pointSizeF() * m_drawing.dotsPerInch / pointsPerInch);
        if (info.bold())
            attribute("font-weight", QStringLiteral("bold"));
        if (texts.centred)
            attribute("text-anchor", QStringLiteral("middle"));
        if (texts.upright)
            attribute("transform", QStringLiteral("rotate(270)"));
        for (const auto& [origin, width, text] : texts.texts) {
            const QPointF begin = texts.upright ? turned(origin) : QPointF(origin);
            m_xml.writeStartElement(QStringLiteral("text"));
            attribute("x", begin.x() + (texts.centred ? width / 2.0 : 0.0));
            attribute("y", begin.y());
            m_xml.writeCharacters(allowedText(text));
            m_xml.writeEndElement();
            m_meter.count();
        }
        m_xml.writeEndElement();
    }

    QXmlStreamWriter m_xml;
    const DiagramDrawing& m_drawing;
    DrawingMeter m_meter;
};

} // namespace

DrawingFormat drawingFormat(const QString& path, const QString& filter)
{
    const bool isSvg = path.endsWith(u".svg", Qt::CaseInsensitive) ||
                       (!path.endsWith(u".pdf", Qt::CaseInsensitive) && filter.contains(u"*.svg"));
    return isSvg ? DrawingFormat::Svg : DrawingFormat::Pdf;
}

QByteArray pdfFile(const DiagramDrawing& drawing, const QString& title, const QDateTime& created)
{
    const QSizeF points = QSizeF(drawing.size) * pointsPerInch / drawing.dotsPerInch;
    const double scale = std::min(1.0, longestPage / std::max(points.width(), points.height()));
    QByteArray file;
    {
        WatchedBuffer buffer(&file);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter paper(&buffer);
        paper.setTitle(title);
        paper.setResolution(drawing.dotsPerInch);
        paper.setPageLayout(QPageLayout(
            QPageSize(points * scale, QPageSize::Point, QString(), QPageSize::ExactMatch),
            QPageLayout::Portrait, QMarginsF()));
        QPainter painter;
        if (!painter.begin(&paper))
            throw std::bad_alloc();
        painter.scale(scale, scale);
        paint(painter, drawing);
    }
    // The writer does not tell that pieces were refused. It packs what has been painted anyway, ten
    // megabytes in a row.
    if (pelmora::isCancelled())
        throw std::bad_alloc();
    stampPdf(file, created);
    return file;
}

QByteArray svgFile(const DiagramDrawing& drawing, const QString& title)
{
    QByteArray file;
    SvgWriter(&file, drawing).write(title);
    return file;
}
