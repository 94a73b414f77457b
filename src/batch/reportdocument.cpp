// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/reportdocument.h"

#include "batch/diagrams.h"
#include "output/pdfstamp.h"
#include "output/tabletext.h"

#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPdfWriter>
#include <QTextDocument>
#include <QUrl>

namespace batch {

namespace {

/// Pictures that do not fit on a page are shown smaller.
constexpr QSize largestPicture(640, 920);

QString element(const QString& tag, const QString& text)
{
    return u'<' + tag + u'>' + text.toHtmlEscaped() + QStringLiteral("</") + tag + u'>';
}

} // namespace

void HtmlReport::heading(int level, const QString& text)
{
    m_body += element(QStringLiteral("h%1").arg(level), text) + u'\n';
}

void HtmlReport::paragraph(const QString& text)
{
    m_body += element(QStringLiteral("p"), text) + u'\n';
}

void HtmlReport::list(const QStringList& lines)
{
    m_body += QStringLiteral("<ul>\n");
    for (const QString& line : lines)
        m_body += element(QStringLiteral("li"), line) + u'\n';
    m_body += QStringLiteral("</ul>\n");
}

void HtmlReport::table(const TableGrid& grid)
{
    m_body += htmlTableElement(grid);
}

void HtmlReport::picture(const QByteArray& png, const QString&, const QString& description)
{
    QSize size = QImage::fromData(png).size();
    if (size.width() > largestPicture.width() || size.height() > largestPicture.height())
        size.scale(largestPicture, Qt::KeepAspectRatio);
    m_body += QStringLiteral("<p><img width=\"%1\" alt=\"").arg(size.width()) +
              description.toHtmlEscaped() + QStringLiteral("\" src=\"data:image/png;base64,") +
              QString::fromLatin1(png.toBase64()) + QStringLiteral("\"></p>\n");
}

QString HtmlReport::text() const
{
    return QStringLiteral("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n") +
           element(QStringLiteral("title"), m_title) +
           QStringLiteral("\n<style>\nbody { font-family: sans-serif; margin: 2em; }\n"
                          "table { border-collapse: collapse; }\n"
                          "th, td { padding: 1px 8px; }\n"
                          "tr:nth-child(even) { background: #f4f4f4; }\n</style>\n</head>\n"
                          "<body>\n") +
           m_body + QStringLiteral("</body>\n</html>\n");
}

void MarkdownReport::heading(int level, const QString& text)
{
    m_text += QString(level, u'#') + u' ' + markdownText(text) + QStringLiteral("\n\n");
}

void MarkdownReport::paragraph(const QString& text)
{
    m_text += markdownText(text) + QStringLiteral("\n\n");
}

void MarkdownReport::list(const QStringList& lines)
{
    for (const QString& line : lines)
        m_text += QStringLiteral("- ") + markdownText(line) + u'\n';
    m_text += u'\n';
}

void MarkdownReport::table(const TableGrid& grid)
{
    m_text += markdownTable(grid) + u'\n';
}

void MarkdownReport::picture(const QByteArray& png, const QString& file, const QString& description)
{
    m_pictures.append({file, png});
    const QByteArray name = QUrl::toPercentEncoding(QFileInfo(file).fileName());
    m_text += QStringLiteral("![") + markdownText(description) + QStringLiteral("](") +
              QString::fromLatin1(name) + QStringLiteral(")\n\n");
}

QByteArray paperOf(const QString& html, const QString& title)
{
    constexpr int margin = 15;
    QByteArray file;
    {
        QBuffer buffer(&file);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter paper(&buffer);
        paper.setTitle(title);
        paper.setPageSize(QPageSize(QPageSize::A4));
        paper.setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
        QTextDocument document;
        document.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 8));
        document.setHtml(html);
        document.print(&paper);
    }
    stampPdf(file, documentTime());
    return file;
}

} // namespace batch
