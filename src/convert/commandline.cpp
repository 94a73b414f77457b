// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/commandline.h"

#include "convert/conversion.h"
#include "convert/refusal.h"
#include "convert/source.h"
#include "output/filewriter.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <filesystem>
#include <new>
#include <optional>
#include <ostream>
#include <system_error>

namespace convert {

namespace {

int tell(ExitCode code, const QString& file, const QString& text)
{
    const QString line = QDir::toNativeSeparators(file) + QLatin1String(": ") + text + u'\n';
    std::fputs(line.toUtf8().constData(), stderr);
    return code;
}

bool isThere(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

/// The exit code where the file must not be written, after a message; nothing where it may be.
std::optional<int> findObstacle(const QString& path, bool force)
{
    if (!isThere(path))
        return std::nullopt;
    if (QFileInfo(path).isDir())
        return tell(CannotReadOrWrite, path, tr("this is a folder"));
    if (!force)
        return tell(CannotReadOrWrite, path,
                    tr("there is such a file; it is replaced with --force only"));
    return std::nullopt;
}

std::optional<int> findObstacle(const Arguments& arguments)
{
    const QString& report = arguments.report;
    if (const auto obstacle = findObstacle(arguments.output, arguments.force))
        return obstacle;
    if (!report.isEmpty())
        if (const auto obstacle = findObstacle(report, arguments.force))
            return obstacle;
    if (isSameFile(arguments.input, arguments.output))
        return tell(Refused, arguments.output, tr("this is the file to be read; it is kept"));
    if (!report.isEmpty() && isSameFile(report, arguments.input))
        return tell(Refused, report, tr("this is the file to be read; it is kept"));
    if (!report.isEmpty() && isSameFile(report, arguments.output))
        return tell(Refused, report, tr("the report cannot go to the file of the numbers"));
    return std::nullopt;
}

int tellReasons(const QString& file, const QStringList& reasons)
{
    tell(Refused, file, tr("refused"));
    for (const QString& reason : reasons)
        std::fputs((reason + u'\n').toUtf8().constData(), stderr);
    return Refused;
}

int writeReport(const Arguments& arguments, const QStringList& lines)
{
    const QString text = lines.join(u'\n') + u'\n';
    if (arguments.report.isEmpty())
        return print(text);
    const auto failure = writeFile(
        arguments.report,
        [&text](std::ostream& out) {
            const QByteArray bytes = text.toUtf8();
            out.write(bytes.constData(), bytes.size());
        },
        LineEnds::OfThePlatform);
    return failure ? tell(CannotReadOrWrite, failure->path, failure->reason) : Written;
}

int convertText(const Arguments& arguments, const SourceText& text, const Options& options)
{
    const Conversion conversion(text, options);
    if (!conversion.isAccepted())
        return tellReasons(arguments.input, conversion.reasons());
    const auto failure = writeFile(
        arguments.output, [&conversion](std::ostream& out) { conversion.write(out); },
        LineEnds::AsWritten);
    if (failure)
        return tell(CannotReadOrWrite, failure->path, failure->reason);
    return writeReport(arguments,
                       QStringList(tr("%1 -> %2").arg(arguments.input, arguments.output)) +
                           reportOf(conversion));
}

} // namespace

bool isSameFile(const QString& a, const QString& b)
{
    std::error_code error;
    if (std::filesystem::equivalent(QFileInfo(a).filesystemFilePath(),
                                    QFileInfo(b).filesystemFilePath(), error) &&
        !error)
        return true;
    const auto place = [](const QString& path) {
        const QFileInfo info(QFileInfo(path).absoluteFilePath());
        return QDir(info.absolutePath()).canonicalPath() + u'/' + info.fileName();
    };
    return place(a) == place(b);
}

int run(const Arguments& arguments)
try {
    if (!isThere(arguments.input))
        return tell(CannotReadOrWrite, arguments.input, tr("there is no such file"));
    if (const auto obstacle = findObstacle(arguments))
        return *obstacle;
    Options options = arguments.options;
    const SourceText text = readSource(arguments.input, options);
    return convertText(arguments, text, options);
} catch (const ReadFailure& failure) {
    return tell(CannotReadOrWrite, arguments.input, failure.reason());
} catch (const Refusal& refusal) {
    return tellReasons(arguments.input, refusal.reasons());
} catch (const std::bad_alloc&) {
    return tell(Refused, arguments.input, tr("the memory does not suffice for this file"));
}

int refuseUsage(const QString& error)
{
    return tell(WrongUsage, QStringLiteral("pelmora-convert"),
                error + u'\n' + tr("\"pelmora-convert --help\" tells more."));
}

int print(const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    const auto size = static_cast<std::size_t>(bytes.size());
    if (std::fwrite(bytes.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0)
        return Written;
    return tell(CannotReadOrWrite, tr("standard output"), tr("cannot be written"));
}

} // namespace convert
