// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "guide/pdfnavigation.h"

#include <QMap>
#include <QRegularExpression>

namespace {

QByteArray reference(int object)
{
    return QByteArray::number(object) + " 0 R";
}

QByteArray number(qreal points)
{
    return QByteArray::number(points, 'f', 2);
}

QByteArray textString(const QString& text)
{
    QByteArray hex("<FEFF");
    for (const QChar unit : text)
        hex += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
    return hex + '>';
}

/// The document's own objects, and those that an update appended to it replaces or adds
/// (ISO 32000-1, section 7.5.6).
class PdfUpdate
{
public:
    explicit PdfUpdate(const QByteArray& document)
        : m_document(document)
        , m_trailer(document.mid(document.lastIndexOf("\ntrailer\n") + 1))
        , m_size(intAfter(m_trailer, "/Size "))
        , m_tableStart(intAfter(m_trailer, "startxref\n"))
    {
    }

    bool isWhole() const { return m_size > 0 && m_tableStart > 0; }
    int root() const { return intAfter(m_trailer, "/Root "); }

    /// The text between "obj" and "endobj"; empty without such an object.
    QByteArray object(int id) const
    {
        const QByteArray head = "\n" + QByteArray::number(id) + " 0 obj\n";
        // Entries of the table have 20 bytes each, after two lines.
        const auto entries = m_document.indexOf('\n', m_document.indexOf("0 ", m_tableStart)) + 1;
        const auto start = m_document.mid(entries + 20 * qsizetype(id), 10).toLongLong() - 1;
        if (id <= 0 || id >= m_size || start <= 0 || m_document.mid(start, head.size()) != head)
            return {};
        const auto content = start + head.size();
        return m_document.mid(content, m_document.indexOf("\nendobj", content) - content);
    }

    int newId() { return m_size++; }
    void set(int id, const QByteArray& content) { m_objects.insert(id, content); }
    int add(const QByteArray& content)
    {
        const int id = newId();
        set(id, content);
        return id;
    }

    QByteArray result() const
    {
        QByteArray result = m_document;
        QByteArray table("xref\n");
        for (auto it = m_objects.begin(); it != m_objects.end(); ++it) {
            table += QByteArray::number(it.key()) + " 1\n";
            table += QByteArray::number(result.size()).rightJustified(10, '0') + " 00000 n \n";
            result += QByteArray::number(it.key()) + " 0 obj\n" + it.value() + "\nendobj\n";
        }
        QByteArray trailer = m_trailer.left(m_trailer.lastIndexOf(">>"));
        const auto size = trailer.indexOf("/Size ");
        trailer.replace(size, trailer.indexOf('\n', size) - size,
                        "/Size " + QByteArray::number(m_size) + "\n/Prev " +
                            QByteArray::number(m_tableStart));
        const QByteArray start = QByteArray::number(result.size());
        return result + table + trailer + ">>\nstartxref\n" + start + "\n%%EOF\n";
    }

    static int intAfter(const QByteArray& text, const QByteArray& key)
    {
        const auto at = text.indexOf(key);
        if (at < 0)
            return 0;
        const auto start = at + key.size();
        auto end = start;
        while (end < text.size() && text[end] >= '0' && text[end] <= '9')
            ++end;
        return text.mid(start, end - start).toInt();
    }

private:
    QByteArray m_document;
    QByteArray m_trailer;
    int m_size;
    int m_tableStart;
    QMap<int, QByteArray> m_objects;
};

QList<int> pagesOf(const PdfUpdate& update)
{
    const QByteArray pages =
        update.object(PdfUpdate::intAfter(update.object(update.root()), "/Pages "));
    const auto start = pages.indexOf('[', pages.indexOf("/Kids"));
    const QString kids = QString::fromLatin1(pages.mid(start, pages.indexOf(']', start) - start));
    static const QRegularExpression pattern(QStringLiteral("(\\d+) 0 R"));
    QList<int> ids;
    for (const QRegularExpressionMatch& match : pattern.globalMatch(kids))
        ids.append(match.captured(1).toInt());
    return ids;
}

QByteArray destination(const QList<int>& pages, const PdfPlace& place)
{
    return "/Dest [" + reference(pages[place.page]) + " /XYZ null " + number(place.top) + " null]";
}

/// For every bookmark the one above it, -1 at the top.
QList<int> parentsOf(const QList<PdfBookmark>& bookmarks)
{
    QList<int> parents;
    for (int i = 0; i < bookmarks.size(); ++i) {
        int above = i - 1;
        while (above >= 0 && bookmarks[above].level >= bookmarks[i].level)
            above = parents[above];
        parents.append(above);
    }
    return parents;
}

/// The tree of bookmarks, all unfolded. @return the id of its root
int addOutline(PdfUpdate& update, const QList<int>& pages, const QList<PdfBookmark>& bookmarks)
{
    const QList<int> parents = parentsOf(bookmarks);
    const int root = update.newId();
    QList<int> ids;
    for (int i = 0; i < bookmarks.size(); ++i)
        ids.append(update.newId());
    const auto below = [&](int parent) {
        const auto first = parents.indexOf(parent);
        if (first < 0)
            return QByteArray();
        // Chapters fold with all that they hold.
        qsizetype count = bookmarks.size();
        if (parent >= 0) {
            count = 0;
            while (parent + 1 + count < bookmarks.size() &&
                   bookmarks[parent + 1 + count].level > bookmarks[parent].level)
                ++count;
        }
        return "/First " + reference(ids[first]) + "\n/Last " +
               reference(ids[parents.lastIndexOf(parent)]) + "\n/Count " +
               QByteArray::number(count) + "\n";
    };
    update.set(root, "<<\n/Type /Outlines\n" + below(-1) + ">>");
    for (int i = 0; i < bookmarks.size(); ++i) {
        QByteArray entry = "<<\n/Title " + textString(bookmarks[i].title) + "\n/Parent " +
                           reference(parents[i] < 0 ? root : ids[parents[i]]) + "\n";
        const auto previous = i > 0 ? parents.lastIndexOf(parents[i], i - 1) : -1;
        const auto next = parents.indexOf(parents[i], i + 1);
        if (previous >= 0)
            entry += "/Prev " + reference(ids[previous]) + "\n";
        if (next >= 0)
            entry += "/Next " + reference(ids[next]) + "\n";
        entry += below(i) + destination(pages, bookmarks[i].target) + "\n>>";
        update.set(ids[i], entry);
    }
    return root;
}

/// Every page has an array of annotations, which already has the links to addresses.
bool addLinks(PdfUpdate& update, const QList<int>& pages, const QList<PdfLink>& links)
{
    for (int page = 0; page < pages.size(); ++page) {
        const int arrayId = PdfUpdate::intAfter(update.object(pages[page]), "/Annots ");
        const QByteArray array = update.object(arrayId);
        QByteArray references;
        for (const PdfLink& link : links) {
            if (link.page != page)
                continue;
            const QRectF& area = link.area;
            references +=
                reference(update.add(
                    "<<\n/Type /Annot\n/Subtype /Link\n/Rect [" + number(area.left()) + ' ' +
                    number(area.top()) + ' ' + number(area.right()) + ' ' + number(area.bottom()) +
                    "]\n/Border [0 0 0]\n" + destination(pages, link.target) + "\n>>")) +
                ' ';
        }
        if (references.isEmpty())
            continue;
        if (!array.startsWith('['))
            return false;
        update.set(arrayId, "[ " + references + array.mid(1));
    }
    return true;
}

} // namespace

QByteArray withNavigation(const QByteArray& document, const QList<PdfBookmark>& bookmarks,
                          const QList<PdfLink>& links)
{
    PdfUpdate update(document);
    QByteArray catalog = update.isWhole() ? update.object(update.root()) : QByteArray();
    const QList<int> pages = pagesOf(update);
    const auto missing = [&pages](const PdfPlace& place) {
        return place.page < 0 || place.page >= pages.size();
    };
    for (const PdfBookmark& bookmark : bookmarks) {
        if (missing(bookmark.target))
            return {};
    }
    for (const PdfLink& link : links) {
        if (missing(link.target) || link.page < 0 || link.page >= pages.size())
            return {};
    }
    if (!catalog.startsWith("<<") || !addLinks(update, pages, links))
        return {};
    const int outline = addOutline(update, pages, bookmarks);
    update.set(update.root(),
               "<<\n/Outlines " + reference(outline) + "\n/PageMode /UseOutlines" + catalog.mid(2));
    return update.result();
}
