// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "guide/guidedocument.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextTable>
#include <QUrl>

namespace {

const QString textFamily = QStringLiteral("DejaVu Sans");
const QString codeFamily = QStringLiteral("DejaVu Sans Mono");
constexpr qreal textPoints = 9.5;
constexpr qreal codePoints = 8.5;
constexpr qreal headingPoints[] = {textPoints, 26, 16, 12, 10};
constexpr int deepestInContents = 3;
constexpr qreal largestScale = 0.52; // of pictures
/// Formats count in the pixels of a screen of 96 dots per inch; the layout scales them to the
/// paper.
constexpr qreal screenPixelsPerInch = 96;
constexpr qreal pointsPerInch = 72;
/// Of characters: the heading that they lead to. Not an anchor, which Qt would write as an address.
constexpr int targetProperty = QTextFormat::UserProperty + 1;

int headingLevel(const QTextBlock& block)
{
    return block.blockFormat().headingLevel();
}

bool isCode(const QTextBlock& block)
{
    return block.blockFormat().hasProperty(QTextFormat::BlockCodeFence);
}

/// The top of a block's first line. A line that does not fit moves to the next page, while its
/// block's corner may stay on this one.
qreal topOf(const QTextBlock& block)
{
    const QTextLayout* layout = block.layout();
    return block.document()->documentLayout()->blockBoundingRect(block).top() +
           (layout->lineCount() > 0 ? layout->lineAt(0).y() : 0);
}

/// The areas of some of a block's characters, one for each line.
QList<QRectF> areasOf(const QTextFragment& fragment, const QTextBlock& block)
{
    const QPointF corner = block.document()->documentLayout()->blockBoundingRect(block).topLeft();
    const int start = fragment.position() - block.position();
    QList<QRectF> areas;
    for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QTextLine line = block.layout()->lineAt(i);
        const int from = qMax(start, line.textStart());
        const int to = qMin(start + fragment.length(), line.textStart() + line.textLength());
        if (from >= to)
            continue;
        const qreal left = line.cursorToX(from);
        areas.append(
            QRectF(left, line.y(), line.cursorToX(to) - left, line.height()).translated(corner));
    }
    return areas;
}

QList<QTextTable*> tablesOf(const QTextDocument& document)
{
    QList<QTextTable*> tables;
    for (QTextFrame* frame : document.rootFrame()->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(frame))
            tables.append(table);
    }
    return tables;
}

} // namespace

GuideDocument::GuideDocument(const QString& markdown, const QDir& pictureFolder, QPdfWriter& paper)
    : m_pictureFolder(pictureFolder)
    , m_paper(paper)
{
    documentLayout()->setPaintDevice(&paper);
    setDefaultFont(QFont(textFamily, 9));
    setMarkdown(markdown);
    setDocumentMargin(0);
    setPageSize(QSizeF(paper.width(), paper.height()));
    styleBlocks();
    styleCharacters();
    styleTables();
    sizePictures();
    insertContents();
    keepHeadingsWithText();
    numberContents();
}

QVariant GuideDocument::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource)
        return {};
    const QImage picture(m_pictureFolder.filePath(name.toString()));
    if (picture.isNull() && !m_missingPictures.contains(name.toString()))
        m_missingPictures.append(name.toString());
    // Every layout asks for every picture; without this each would be decoded hundreds of times.
    addResource(type, name, picture);
    return picture;
}

qreal GuideDocument::onPaper(qreal pixels) const
{
    return pixels * m_paper.resolution() / screenPixelsPerInch;
}

void GuideDocument::styleBlocks()
{
    bool firstChapter = true;
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        format.setLineHeight(115, QTextBlockFormat::ProportionalHeight);
        const int level = headingLevel(block);
        if (level > 0) {
            format.setTopMargin(level == 1 ? 60 : 22 - 3 * level);
            format.setBottomMargin(level == 1 ? 20 : 5);
        } else if (isCode(block)) {
            format.setBackground(QColor(0xf2, 0xf2, 0xf2));
            format.setLeftMargin(onPaper(10));
            format.setTopMargin(isCode(block.previous()) ? 0 : 4);
            format.setBottomMargin(isCode(block.next()) ? 0 : 8);
        } else {
            format.setTopMargin(0);
            format.setBottomMargin(QTextCursor(block).currentTable() ? 0
                                   : block.textList()                ? 3
                                                                     : 7);
        }
        if (level == 2 && firstChapter) {
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
            firstChapter = false;
        }
        QTextCursor(block).setBlockFormat(format);
    }
}

void GuideDocument::styleCharacters()
{
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        const int level = headingLevel(block);
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            QTextCursor cursor(this);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            const bool code = fragment.charFormat().fontFixedPitch() || isCode(block);
            QTextCharFormat format = fragment.charFormat();
            format.setFontFamilies({code ? codeFamily : textFamily});
            format.setFontPointSize(level > 0 ? headingPoints[qMin(level, 4)]
                                    : code    ? codePoints
                                              : textPoints);
            const QString address = format.anchorHref();
            if (address.startsWith(u'#')) {
                format.clearProperty(QTextFormat::IsAnchor);
                format.clearProperty(QTextFormat::AnchorHref);
                format.setProperty(targetProperty, address.mid(1));
            }
            cursor.setCharFormat(format);
        }
    }
}

void GuideDocument::styleTables()
{
    for (QTextTable* table : tablesOf(*this)) {
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(1);
        format.setBorderBrush(QColor(0x96, 0x96, 0x96));
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setCellPadding(3);
        format.setCellSpacing(0);
        format.setTopMargin(2);
        format.setBottomMargin(10);
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        table->setFormat(format);
    }
}

void GuideDocument::sizePictures()
{
    const qreal widest = m_paper.width() * screenPixelsPerInch / m_paper.resolution();
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            QTextImageFormat format = fragment.charFormat().toImageFormat();
            if (!format.isValid())
                continue;
            const auto picture = resource(ImageResource, QUrl(format.name())).value<QImage>();
            if (picture.isNull())
                continue;
            const qreal scale = qMin(largestScale, widest / picture.width());
            format.setWidth(picture.width() * scale);
            format.setHeight(picture.height() * scale);
            QTextCursor cursor(this);
            cursor.setPosition(fragment.position());
            cursor.setPosition(fragment.position() + fragment.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
            // A proportional height would count in the picture.
            QTextBlockFormat single = block.blockFormat();
            single.setLineHeight(0, QTextBlockFormat::SingleHeight);
            cursor.setBlockFormat(single);
        }
    }
}

QList<QTextBlock> GuideDocument::headings() const
{
    QList<QTextBlock> found;
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        if (headingLevel(block) >= 2 && headingLevel(block) <= deepestInContents)
            found.append(block);
    }
    return found;
}

QMap<QString, QTextBlock> GuideDocument::targets() const
{
    static const QRegularExpression dropped(QStringLiteral("[^\\w -]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    QMap<QString, QTextBlock> found;
    for (const QTextBlock& heading : headings()) {
        // The names that sites give to headings in Markdown.
        const QString name = heading.text().toLower().remove(dropped).replace(u' ', u'-');
        QString target = name;
        for (int again = 1; found.contains(target); ++again)
            target = QStringLiteral("%1-%2").arg(name).arg(again);
        found.insert(target, heading);
    }
    return found;
}

void GuideDocument::insertContents()
{
    const QList<QTextBlock> entries = headings();
    const QMap<QString, QTextBlock> targets = this->targets();
    if (entries.isEmpty())
        return;
    QTextCursor cursor(entries.first().previous());
    cursor.movePosition(QTextCursor::EndOfBlock);
    QTextTableFormat format;
    format.setBorder(0);
    format.setCellSpacing(0);
    format.setCellPadding(1);
    format.setTopMargin(24);
    format.setColumnWidthConstraints({QTextLength(QTextLength::PercentageLength, 92),
                                      QTextLength(QTextLength::PercentageLength, 8)});
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    m_contents = cursor.insertTable(int(entries.size()), 2, format);
    for (int row = 0; row < entries.size(); ++row) {
        const bool chapter = headingLevel(entries[row]) == 2;
        QTextCharFormat text;
        text.setFontFamilies({textFamily});
        text.setFontPointSize(textPoints);
        text.setFontWeight(chapter ? QFont::Bold : QFont::Normal);
        text.setProperty(targetProperty, targets.key(entries[row]));
        QTextCursor title = m_contents->cellAt(row, 0).firstCursorPosition();
        QTextBlockFormat indented;
        indented.setLeftMargin(chapter ? 0 : onPaper(16));
        indented.setTopMargin(chapter ? 4 : 0);
        title.setBlockFormat(indented);
        title.insertText(entries[row].text(), text);
        QTextCursor number = m_contents->cellAt(row, 1).firstCursorPosition();
        QTextBlockFormat right;
        right.setAlignment(Qt::AlignRight);
        right.setTopMargin(indented.topMargin());
        number.setBlockFormat(right);
        number.insertText(QStringLiteral("00"), text);
    }
}

void GuideDocument::numberContents()
{
    const QList<QTextBlock> entries = headings();
    for (int row = 0; row < entries.size(); ++row) {
        QTextCursor number = m_contents->cellAt(row, 1).firstCursorPosition();
        number.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        number.insertText(QString::number(pageOf(entries[row])), number.charFormat());
    }
}

int GuideDocument::pageOf(const QTextBlock& block) const
{
    return placeOf(topOf(block)).page + 1;
}

PdfPlace GuideDocument::placeOf(qreal height) const
{
    const int page = int(height / pageSize().height());
    const QPageLayout layout = m_paper.pageLayout();
    const qreal fromEdge =
        layout.paintRectPixels(m_paper.resolution()).top() + height - page * pageSize().height();
    return {page,
            layout.fullRectPoints().height() - fromEdge * pointsPerInch / m_paper.resolution()};
}

void GuideDocument::keepHeadingsWithText()
{
    for (const QTextBlock& heading : headings()) {
        const QTextBlock text = heading.next();
        if (!text.isValid() || pageOf(text) == pageOf(heading))
            continue;
        QTextBlockFormat format = heading.blockFormat();
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(heading).setBlockFormat(format);
    }
}

void GuideDocument::print()
{
    QPainter painter(&m_paper);
    const QRectF page(QPointF(0, 0), pageSize());
    const QFont footFont(textFamily, 8);
    for (int number = 1; number <= pageCount(); ++number) {
        if (number > 1)
            m_paper.newPage();
        painter.save();
        painter.translate(0, -(number - 1) * page.height());
        QAbstractTextDocumentLayout::PaintContext context;
        // A hair less than the page: a picture on top of the next one may begin on this one.
        context.clip = page.translated(0, (number - 1) * page.height())
                           .adjusted(0, 0, 0, -m_paper.resolution() / 50.0);
        context.palette.setColor(QPalette::Text, Qt::black);
        painter.setClipRect(context.clip);
        documentLayout()->draw(&painter, context);
        painter.restore();
        painter.setFont(footFont);
        painter.drawText(page.adjusted(0, 0, 0, m_paper.resolution() / 2.0),
                         Qt::AlignHCenter | Qt::AlignBottom, QString::number(number));
    }
}

QList<PdfBookmark> GuideDocument::bookmarks() const
{
    QList<PdfBookmark> bookmarks;
    for (const QTextBlock& heading : headings())
        bookmarks.append({heading.text(), headingLevel(heading), placeOf(topOf(heading))});
    return bookmarks;
}

PdfLink GuideDocument::linkOf(const QRectF& area, const QTextBlock& heading) const
{
    const PdfPlace place = placeOf(area.top());
    const qreal scale = pointsPerInch / m_paper.resolution();
    const int margin = m_paper.pageLayout().paintRectPixels(m_paper.resolution()).left();
    return {place.page,
            QRectF((margin + area.left()) * scale, place.top - area.height() * scale,
                   area.width() * scale, area.height() * scale),
            placeOf(topOf(heading))};
}

QList<PdfLink> GuideDocument::links() const
{
    const QMap<QString, QTextBlock> targets = this->targets();
    QList<PdfLink> links;
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            const QTextBlock heading =
                targets.value(fragment.charFormat().stringProperty(targetProperty));
            if (!heading.isValid())
                continue;
            for (const QRectF& area : areasOf(fragment, block))
                links.append(linkOf(area, heading));
        }
    }
    return links;
}

QStringList GuideDocument::missingTargets() const
{
    const QMap<QString, QTextBlock> targets = this->targets();
    QStringList missing;
    for (QTextBlock block = begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextCharFormat format = part.fragment().charFormat();
            const QString target = format.stringProperty(targetProperty);
            if (format.hasProperty(targetProperty) && !targets.contains(target))
                missing.append(target);
        }
    }
    return missing;
}
