// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "guide/guidedocument.h"

#include <QBuffer>
#include <QPdfWriter>
#include <QRegularExpression>
#include <QTest>

namespace {

const char sample[] = "# Guide\n\nSee [both](#factors-1) and [more](https://example.org/a).\n\n"
                      "## Übung, λ\n\nText.\n\n### Factors\n\nText.\n\n### Plain\n\nText.\n\n"
                      "## Chapter\n\nText.\n\n### Factors\n\n[back](#übung-λ)\n";

QByteArray printed(const QByteArray& markdown)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QList<PdfBookmark> bookmarks;
    QList<PdfLink> links;
    {
        QPdfWriter paper(&buffer);
        paper.setResolution(1200);
        GuideDocument guide(QString::fromUtf8(markdown), QDir(), paper);
        guide.print();
        bookmarks = guide.bookmarks();
        links = guide.links();
    }
    return withNavigation(buffer.data(), bookmarks, links);
}

/// Reads objects by way of the tables of positions, the newest first, as viewers do.
class PdfReader
{
public:
    explicit PdfReader(const QByteArray& document) : m_document(document)
    {
        auto table = document.mid(document.lastIndexOf("startxref\n") + 10).split('\n')[0].toInt();
        while (table > 0) {
            const QByteArray text = document.mid(table, document.indexOf("%%EOF", table) - table);
            const QList<QByteArray> lines = text.split('\n');
            if (lines[0] != "xref")
                break;
            for (int i = 1; i < lines.size() && lines[i] != "trailer"; ++i) {
                const int first = lines[i].split(' ')[0].toInt();
                const int count = lines[i].split(' ')[1].toInt();
                for (int k = 0; k < count; ++k) {
                    const qint64 place = lines[++i].left(10).toLongLong();
                    if (!m_places.contains(first + k))
                        m_places.insert(first + k, place);
                }
            }
            if (m_root == 0)
                m_root = idIn(text, "Root");
            const auto earlier = text.indexOf("/Prev ");
            table = earlier < 0 ? 0 : text.mid(earlier + 6).split('\n')[0].toInt();
        }
    }

    int root() const { return m_root; }

    QByteArray object(int id) const
    {
        const QByteArray head = QByteArray::number(id) + " 0 obj\n";
        const auto place = m_places.value(id, -1);
        if (place < 0 || m_document.mid(place, head.size()) != head)
            return {};
        return m_document.mid(place, m_document.indexOf("endobj", place) - place);
    }

    static int idIn(const QByteArray& object, const char* key)
    {
        const QRegularExpression pattern(QStringLiteral("/%1 (\\d+) 0 R").arg(QLatin1String(key)));
        return pattern.match(QString::fromLatin1(object)).captured(1).toInt();
    }

    /// The titles of the tree, a dash before each for every level.
    QStringList titles(int parent, const QString& dashes = QString()) const
    {
        QStringList found;
        int previous = 0;
        int id = idIn(object(parent), "First");
        while (id > 0 && idIn(object(id), "Parent") == parent &&
               idIn(object(id), "Prev") == previous) {
            const QByteArray text = object(id);
            const auto start = text.indexOf("<FEFF") + 5;
            const QByteArray units =
                QByteArray::fromHex(text.mid(start, text.indexOf('>', start) - start));
            QString title = dashes;
            for (int i = 0; i + 1 < units.size(); i += 2)
                title += QChar(uchar(units[i + 1]), uchar(units[i]));
            found << title << titles(id, dashes + u'-');
            previous = id;
            id = idIn(text, "Next");
        }
        return previous == idIn(object(parent), "Last") ? found : QStringList();
    }

    /// Where links of a page lead: the ids of pages, and addresses.
    QStringList links(int page) const
    {
        QStringList found;
        const QString array = QString::fromLatin1(object(idIn(object(page), "Annots")));
        static const QRegularExpression references(QStringLiteral("(\\d+) 0 R"));
        static const QRegularExpression target(QStringLiteral("/Dest \\[(\\d+)|/URI \\(([^)]*)"));
        for (const auto& match : references.globalMatch(array)) {
            const QByteArray link = object(match.captured(1).toInt());
            found += target.match(QString::fromLatin1(link)).capturedTexts().mid(1).join(QString());
        }
        found.sort();
        return found;
    }

private:
    QByteArray m_document;
    QMap<int, qint64> m_places;
    int m_root = 0;
};

} // namespace

class TestGuideDocument : public QObject
{
    Q_OBJECT

private slots:
    void bookmarksAreTheHeadings();
    void linksLeadToPagesAndAddresses();
    void linksToNothingAreTold();
    void otherDocumentsAreRefused_data();
    void otherDocumentsAreRefused();
};

void TestGuideDocument::bookmarksAreTheHeadings()
{
    const PdfReader pdf(printed(sample));
    const int outline = PdfReader::idIn(pdf.object(pdf.root()), "Outlines");
    QCOMPARE(pdf.titles(outline),
             (QStringList{"Übung, λ", "-Factors", "-Plain", "Chapter", "-Factors"}));
    QVERIFY(pdf.object(outline).contains("/Count 5\n"));

    QFile guide(QStringLiteral(PELMORA_SOURCE_DIR "/docs/user-guide.md"));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    // Without the pictures: it is quicker, and the headings are the same.
    const QString text = QString::fromUtf8(guide.readAll());
    QStringList headings;
    bool code = false;
    for (const QString& line : text.split(u'\n')) {
        code ^= line.startsWith(QLatin1String("```"));
        if (!code && line.startsWith(QLatin1String("## ")))
            headings += line.mid(3);
        else if (!code && line.startsWith(QLatin1String("### ")))
            headings += u'-' + line.mid(4);
    }
    const PdfReader whole(printed(text.toUtf8()));
    QCOMPARE(whole.titles(PdfReader::idIn(whole.object(whole.root()), "Outlines")), headings);
}

void TestGuideDocument::linksLeadToPagesAndAddresses()
{
    const PdfReader pdf(printed(sample));
    const QByteArray pages = pdf.object(PdfReader::idIn(pdf.object(pdf.root()), "Pages"));
    QList<int> ids;
    static const QRegularExpression references(QStringLiteral("(\\d+) 0 R"));
    for (const auto& match : references.globalMatch(QString::fromLatin1(pages)))
        ids += match.captured(1).toInt();
    QCOMPARE(ids.size(), 2);
    // Five entries of the contents with a title and a number each, and one link in the text.
    QStringList expected(11, QString::number(ids[1]));
    expected += QStringLiteral("https://example.org/a");
    expected.sort();
    QCOMPARE(pdf.links(ids[0]), expected);
    QCOMPARE(pdf.links(ids[1]), QStringList{QString::number(ids[1])});
}

void TestGuideDocument::linksToNothingAreTold()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter paper(&buffer);
    const GuideDocument guide(QStringLiteral("## One\n\n[there](#one) [not](#two)\n"), QDir(),
                              paper);
    QCOMPARE(guide.missingTargets(), QStringList{"two"});
}

void TestGuideDocument::otherDocumentsAreRefused_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no PDF") << QByteArray("A text\n");
    QTest::newRow("a table that is not there")
        << QByteArray("%PDF-1.4\ntrailer\n<<\n/Size 4\n/Root 2 0 R\n>>\nstartxref\n900\n%%EOF\n");
}

void TestGuideDocument::otherDocumentsAreRefused()
{
    QFETCH(QByteArray, document);
    QCOMPARE(withNavigation(document, {{QStringLiteral("A"), 2, {0, 100}}}, {}), QByteArray());
}

QTEST_MAIN(TestGuideDocument)
#include "tst_guidedocument.moc"
