// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QRectF>
#include <QString>

/// A height on a page: pages count from 0, heights in points from the lower edge.
struct PdfPlace
{
    int page;
    qreal top;
};

struct PdfBookmark
{
    QString title;
    /// Bookmarks are nested below the last one before them of a smaller level.
    int level;
    PdfPlace target;
};

/// A part of a page, in points from its lower left corner, that leads elsewhere in the document.
struct PdfLink
{
    int page;
    QRectF area;
    PdfPlace target;
};

/// Adds bookmarks and links, which QPdfWriter cannot write, to the end of a document that it wrote.
/// @return the document with them, or nothing where it is not built as QPdfWriter builds it
QByteArray withNavigation(const QByteArray& document, const QList<PdfBookmark>& bookmarks,
                          const QList<PdfLink>& links);
