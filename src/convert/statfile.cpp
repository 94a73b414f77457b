// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/statfile.h"

#include "convert/refusal.h"

#include <QFile>
#include <QFileInfo>

#include <array>

namespace convert {

namespace {

struct Format
{
    const char* suffix;
    const char* firstBytes; ///< empty where none are known
};

constexpr std::array<Format, 5> formats = {{{"sav", "$FL2"},
                                            {"zsav", "$FL3"},
                                            {"dta", "<stata_dta>"},
                                            {"por", ""},
                                            {"xpt", "HEADER RECORD*******LIB"}}};

} // namespace

QString statFormat(const QString& path)
{
    QByteArray first;
    if (QFile file(path); QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly))
        first = file.read(32);
    for (const Format& format : formats)
        if (*format.firstBytes != 0 && first.startsWith(format.firstBytes))
            return QString::fromLatin1(format.suffix);
    QString suffix = QFileInfo(path).suffix().toLower();
    for (const Format& format : formats)
        if (suffix == QLatin1String(format.suffix))
            return suffix;
    return QString();
}

#ifndef PELMORA_READSTAT
SourceText readStatFile(const QString& path, Options&)
{
    throw Refusal(tr("*.%1 files are not read by this build of pelmora-convert, which is without "
                     "ReadStat; save the data as CSV.")
                      .arg(statFormat(path)));
}
#endif

} // namespace convert
