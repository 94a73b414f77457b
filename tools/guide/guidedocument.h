// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "guide/pdfnavigation.h"

#include <QDir>
#include <QMap>
#include <QStringList>
#include <QTextBlock>
#include <QTextDocument>

class QPdfWriter;
class QTextTable;

/// The user guide as pages: Markdown with pictures, styled for paper, with a table of contents.
class GuideDocument : public QTextDocument
{
public:
    /// @param pictureFolder  the folder that the addresses of pictures in the Markdown are relative
    /// to
    GuideDocument(const QString& markdown, const QDir& pictureFolder, QPdfWriter& paper);

    /// Addresses of pictures that could not be read.
    QStringList missingPictures() const { return m_missingPictures; }

    /// Links in the text to headings that do not exist.
    QStringList missingTargets() const;

    /// Draws every page with its number at the foot.
    void print();

    /// The headings of the table of contents.
    QList<PdfBookmark> bookmarks() const;
    /// From the table of contents and from links in the text to "#heading"; Qt itself writes those
    /// to other addresses.
    QList<PdfLink> links() const;

protected:
    QVariant loadResource(int type, const QUrl& name) override;

private:
    /// The layout scales vertical margins by itself, but not the left ones.
    qreal onPaper(qreal pixels) const;
    void styleBlocks();
    void styleCharacters();
    void styleTables();
    void sizePictures();
    void insertContents();
    void numberContents();
    /// Moves headings that would stand alone at the foot of a page to the next one.
    void keepHeadingsWithText();
    QList<QTextBlock> headings() const;
    /// Headings by the targets of links to them.
    QMap<QString, QTextBlock> targets() const;
    int pageOf(const QTextBlock& block) const;
    /// The place on paper of a height of the layout.
    PdfPlace placeOf(qreal height) const;
    PdfLink linkOf(const QRectF& area, const QTextBlock& heading) const;

    QDir m_pictureFolder;
    QPdfWriter& m_paper;
    QStringList m_missingPictures;
    QTextTable* m_contents = nullptr;
};
