// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/arguments.h"

#include "batch/console.h"

#include <QFileInfo>

#include <algorithm>
#include <limits>

namespace batch {

namespace {

/// Takes the option at the head of @p arguments.
void takeOption(QStringList& arguments, const QStringList& names, Arguments& result)
{
    const QString argument = arguments.takeFirst();
    const qsizetype equals = argument.startsWith(u"--") ? argument.indexOf(u'=') : -1;
    const QString name = equals < 0 ? argument : argument.first(equals);
    if (argument == u"--help" || argument == u"-h")
        result.help = true;
    else if (!names.contains(name))
        result.fault = tr("there is no option \"%1\"").arg(argument);
    else if (equals < 0 && arguments.isEmpty())
        result.fault = tr("%1 needs a value").arg(name);
    else
        result.options[name] = equals < 0 ? arguments.takeFirst() : argument.sliced(equals + 1);
}

} // namespace

Arguments takeApart(QStringList arguments, const QStringList& names)
{
    Arguments result;
    while (result.fault.isEmpty() && !arguments.isEmpty()) {
        const QString& next = arguments.first();
        if (next == u"--") {
            result.files += arguments.sliced(1);
            arguments.clear();
        } else if (next == u"-" || !next.startsWith(u'-')) {
            result.files.append(arguments.takeFirst());
        } else {
            takeOption(arguments, names, result);
        }
    }
    return result;
}

bool isSameFile(const QString& one, const QString& other)
{
    const QString path = QFileInfo(one).canonicalFilePath();
    return !path.isEmpty() && path == QFileInfo(other).canonicalFilePath();
}

std::optional<std::uint64_t> wholeNumber(const QString& text, std::uint64_t least,
                                         std::uint64_t most)
{
    const bool digits =
        std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    bool ok = false;
    const std::uint64_t number = text.toULongLong(&ok);
    return digits && ok && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

void takeNumber(Arguments& arguments, const char* option, std::uint64_t& number)
{
    const QString name = QLatin1String(option);
    if (!arguments.options.contains(name))
        return;
    const QString text = arguments.options.value(name);
    const auto value = wholeNumber(text, 0, std::numeric_limits<std::int64_t>::max());
    if (value)
        number = *value;
    else
        arguments.fault = tr("%1 cannot be \"%2\"").arg(name, text);
}

} // namespace batch
