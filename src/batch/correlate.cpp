// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// The commands that make a correlation file of data that need not fit into memory. "correlate"
// gives the same bits as "sums" of every file and then "merge".

#include "batch/arguments.h"
#include "batch/commands.h"
#include "batch/console.h"
#include "batch/correlationfile.h"
#include "batch/gathering.h"
#include "input/rowstream.h"

#include <QFile>

#include <algorithm>
#include <cstdio>

namespace batch {

namespace {

bool endsInCor(const QString& path)
{
    return path.endsWith(u".cor");
}

/// Messages about a table are about its only file, or about what it would become.
QString nameOfTable(const QStringList& files, const QString& output)
{
    return files.size() == 1 ? files.first() : output;
}

/// What is wrong with the files and the output of a command; empty: nothing.
/// @param endings  that the output may have; none: any
QString faultOf(const Arguments& arguments, const QStringList& endings)
{
    const QString output = arguments.option("-o");
    const bool fits = endings.isEmpty() ||
                      std::any_of(endings.begin(), endings.end(),
                                  [&](const QString& ending) { return output.endsWith(ending); });
    if (!arguments.fault.isEmpty())
        return arguments.fault;
    if (arguments.files.isEmpty())
        return tr("a file is missing");
    if (arguments.files.count(QStringLiteral("-")) > 1)
        return tr("standard input can be read once only");
    if (output.isEmpty())
        return tr("an output is missing: -o FILE");
    if (!fits)
        return tr("\"%1\" does not end in %2").arg(output, endings.join(QStringLiteral(" or ")));
    for (const QString& file : arguments.files)
        if (isSameFile(file, output))
            return tr("the output %1 is an input").arg(output);
    return {};
}

int writeSumsTo(const Sums& sums, const QString& path)
{
    return streamOutput(path, [&sums](std::ostream& out) { writeSums(out, sums); });
}

bool openSums(QFile& file)
{
    constexpr auto mode = QIODevice::ReadOnly | QIODevice::Unbuffered;
    return file.fileName() == u"-" ? file.open(fileno(stdin), mode) : file.open(mode);
}

/// Merges the sums in @p path into @p sums; false after a message.
bool mergeFile(const QString& path, Sums& sums)
{
    QFile file(path);
    if (!openSums(file)) {
        tell(path, tr("Cannot open file %1").arg(path));
        return false;
    }
    const auto next = readSums(file);
    if (!next) {
        tell(path, tr("This is not a whole file of sums."));
        return false;
    }
    const auto columns = sums.moments.shift.size();
    const auto nextColumns = next->moments.shift.size();
    if (columns != nextColumns && sums.dataLines > 0 && next->dataLines > 0) {
        tell(path, tr("There are %1 columns, but %2 before them.").arg(nextColumns).arg(columns));
        return false;
    }
    sums.merge(*next);
    return true;
}

} // namespace

int sums(const QStringList& given)
{
    Arguments arguments =
        takeApart(given, {QStringLiteral("-o"), QStringLiteral("--from"), QStringLiteral("--to"),
                          QStringLiteral("--columns"), QStringLiteral("--lines-before")});
    if (arguments.help)
        return print(
            tr("Usage: pelmora-batch sums FILE [--from BYTE] [--to BYTE] [-o SUMS]\n\n"
               "Writes what FILE, or the lines that begin in a range of its bytes, brings to a\n"
               "table's correlations, for \"merge\"; to standard output without -o.\n\n"
               "  --columns P        as many entries every line must have\n"
               "  --lines-before N   data lines of FILE before the range, for messages\n"));
    std::uint64_t from = 0;
    std::uint64_t to = pelmora::RowStream::unlimited;
    std::uint64_t columns = 0;
    std::uint64_t linesBefore = 0;
    takeNumber(arguments, "--from", from);
    takeNumber(arguments, "--to", to);
    takeNumber(arguments, "--columns", columns);
    takeNumber(arguments, "--lines-before", linesBefore);
    const QString output = arguments.options.value(QStringLiteral("-o"), QStringLiteral("-"));
    arguments.options[QStringLiteral("-o")] = output;
    QString fault = faultOf(arguments, {});
    if (fault.isEmpty() && arguments.files.size() > 1)
        fault = tr("one file is enough");
    const bool isContinued = arguments.options.contains(QStringLiteral("--columns"));
    if (fault.isEmpty() && linesBefore > 0 && !isContinued)
        fault = tr("--lines-before needs --columns");
    if (!fault.isEmpty())
        return refuseUsage(QStringLiteral("sums"), fault);

    pelmora::RowStream stream(arguments.files.first());
    stream.setRange(from, to);
    if (isContinued)
        stream.continueBehind(linesBefore, columns);
    Sums sums;
    if (!gatherSums(stream, arguments.files.first(), sums))
        return InputRefused;
    return writeSumsTo(sums, output);
}

int merge(const QStringList& given)
{
    const Arguments arguments = takeApart(given, {QStringLiteral("-o")});
    if (arguments.help)
        return print(tr("Usage: pelmora-batch merge SUMS... -o OUT.cor|OUT.sums\n\n"
                        "Merges files that \"sums\" wrote, in the order given.\n"));
    const QString output = arguments.option("-o");
    const QString fault = faultOf(arguments, {QStringLiteral(".cor"), QStringLiteral(".sums")});
    if (!fault.isEmpty())
        return refuseUsage(QStringLiteral("merge"), fault);
    Sums sums;
    for (const QString& file : arguments.files)
        if (!mergeFile(file, sums))
            return InputRefused;
    return endsInCor(output) ? writeExactCorrelations(sums, output, output)
                             : writeSumsTo(sums, output);
}

int correlate(const QStringList& given)
{
    const Arguments arguments = takeApart(given, {QStringLiteral("-o")});
    if (arguments.help)
        return print(tr("Usage: pelmora-batch correlate FILE... -o OUT.cor\n\n"
                        "Correlates the columns of files that make one table, in one pass and in\n"
                        "little memory. \"-\" is standard input.\n"));
    const QString output = arguments.option("-o");
    const QString fault = faultOf(arguments, {QStringLiteral(".cor")});
    if (!fault.isEmpty())
        return refuseUsage(QStringLiteral("correlate"), fault);
    Sums total;
    for (const QString& file : arguments.files) {
        pelmora::RowStream stream(file);
        if (total.dataLines > 0)
            stream.continueBehind(0, total.moments.shift.size());
        Sums next;
        if (!gatherSums(stream, file, next))
            return InputRefused;
        total.merge(next);
    }
    return writeExactCorrelations(total, nameOfTable(arguments.files, output), output);
}

} // namespace batch
