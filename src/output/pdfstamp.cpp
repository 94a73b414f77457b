// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/pdfstamp.h"

#include <QByteArray>
#include <QDateTime>

#include <cctype>

namespace {

void replaceTime(QByteArray& pdf, const QByteArray& key, const QByteArray& time)
{
    const auto begin = pdf.indexOf(key);
    const auto end = pdf.indexOf(')', begin) + 1;
    if (begin < 0 || end <= begin)
        return;
    const QByteArray stamp = key + time + "Z)";
    if (stamp.size() <= end - begin)
        pdf.replace(begin, end - begin, stamp.leftJustified(end - begin));
}

/// The metadata repeat the times, with a Z where the clock is that of UTC.
void replaceMetadataTime(QByteArray& pdf, const QByteArray& key, const QByteArray& time)
{
    const auto at = pdf.indexOf(key);
    const auto begin = at + key.size();
    const auto length = pdf.indexOf('"', begin) - begin;
    for (const char* zone : {"Z", "+00:00"})
        if (const QByteArray stamp = time + zone; at >= 0 && length == stamp.size())
            pdf.replace(begin, length, stamp);
}

/// Zeros for the hexadecimal digits between every @p key and @p end.
void clearIdentifiers(QByteArray& pdf, const QByteArray& key, char end)
{
    for (auto at = pdf.indexOf(key); at >= 0; at = pdf.indexOf(key, at + 1))
        for (auto i = at + key.size(); i < pdf.size() && pdf[i] != end; ++i)
            if (std::isxdigit(static_cast<unsigned char>(pdf[i])))
                pdf[i] = '0';
}

} // namespace

void stampPdf(QByteArray& pdf, const QDateTime& created)
{
    const QByteArray time = created.toUTC().toString(u"yyyyMMddHHmmss").toLatin1();
    replaceTime(pdf, "/CreationDate (D:", time);
    replaceTime(pdf, "/ModDate (D:", time);
    const QByteArray metadataTime = created.toUTC().toString(u"yyyy-MM-ddTHH:mm:ss").toLatin1();
    for (const char* key : {"xmp:CreateDate=\"", "xmp:ModifyDate=\"", "xmp:MetadataDate=\""})
        replaceMetadataTime(pdf, key, metadataTime);
    clearIdentifiers(pdf, "xmpMM:DocumentID=\"uuid:", '"');
    clearIdentifiers(pdf, "/ID [", ']');
}
