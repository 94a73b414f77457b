// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/source.h"

#include "convert/refusal.h"
#include "convert/statfile.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <new>
#include <system_error>
#include <utility>

namespace convert {

namespace {

/// Reading a device might never end.
void refuseDevices(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        throw ReadFailure(tr("there is no such file"));
    if (info.isDir())
        throw ReadFailure(tr("this is a folder"));
    std::error_code error;
    const auto type = std::filesystem::status(info.filesystemFilePath(), error).type();
    if (error ||
        (type != std::filesystem::file_type::regular && type != std::filesystem::file_type::fifo))
        throw ReadFailure(tr("this is no regular file"));
}

[[noreturn]] void fail(const QFile& file)
{
    throw ReadFailure(file.errorString());
}

/// For files that do not tell their size.
QByteArray readToTheEnd(QFile& file)
{
    const QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        fail(file);
    return bufferOf(content);
}

QByteArray readSized(QFile& file)
{
    const qint64 size = file.size();
    QByteArray buffer = bufferFor(static_cast<std::size_t>(size));
    qint64 taken = 0;
    while (taken < size) {
        const qint64 count = file.read(buffer.data() + 1 + taken, size - taken);
        if (count < 0)
            fail(file);
        if (count == 0)
            throw ReadFailure(tr("the file became shorter while it was read"));
        taken += count;
    }
    return buffer;
}

} // namespace

SourceText readSource(const QString& path, Options& options)
try {
    refuseDevices(path);
    if (!statFormat(path).isEmpty())
        return readStatFile(path, options);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        fail(file);
    QByteArray buffer =
        !file.isSequential() && file.size() > 0 ? readSized(file) : readToTheEnd(file);
    return decoded(std::move(buffer), options.encoding);
} catch (const std::bad_alloc&) {
    throw ReadFailure(tr("the memory does not suffice for this file"));
}

} // namespace convert
