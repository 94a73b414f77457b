// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "fuzz/fuzzsupport.h"

#include "support/readerrecord.h"

#include <QFile>
#include <QTemporaryDir>

#include <bit>
#include <cstdio>
#include <cstdlib>

namespace {

ReaderRecord record;

} // namespace

void require(bool holds, const char* property)
{
    if (holds)
        return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

QString fileOf(const char* bytes, std::size_t size)
{
    // In memory where the system has such a folder.
    static const QTemporaryDir folder(QFile::exists(QStringLiteral("/dev/shm"))
                                          ? QStringLiteral("/dev/shm/fuzz-XXXXXX")
                                          : QString());
    const QString path = folder.filePath(QStringLiteral("input.txt"));
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) &&
                file.write(bytes, static_cast<qint64>(size)) == static_cast<qint64>(size),
            "the input can be written to a file");
    return path;
}

QStringList takeReports()
{
    return record.takeRecord();
}

bool sameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
