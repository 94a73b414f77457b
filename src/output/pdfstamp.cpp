// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/pdfstamp.h"

#include <QByteArray>
#include <QDateTime>

#include <algorithm>
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

void clearIdentifiers(QByteArray& pdf)
{
    const QByteArray key("/ID [");
    for (auto at = pdf.indexOf(key, std::max<qsizetype>(pdf.lastIndexOf("trailer"), 0)); at >= 0;
         at = pdf.indexOf(key, at + 1))
        for (auto i = at + key.size(); i < pdf.size() && pdf[i] != ']'; ++i)
            if (std::isxdigit(static_cast<unsigned char>(pdf[i])))
                pdf[i] = '0';
}

} // namespace

void stampPdf(QByteArray& pdf, const QDateTime& created)
{
    const QByteArray time = created.toUTC().toString(u"yyyyMMddHHmmss").toLatin1();
    replaceTime(pdf, "/CreationDate (D:", time);
    replaceTime(pdf, "/ModDate (D:", time);
    clearIdentifiers(pdf);
}
