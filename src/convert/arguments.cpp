// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/arguments.h"

#include "convert/encoding.h"
#include "convert/refusal.h"

#include <QCommandLineParser>

#include <utility>

namespace convert {

namespace {

template <typename Value>
using Choices = std::initializer_list<std::pair<const char*, Value>>;

/// Takes the value of an option that knows a few words.
template <typename Value>
bool choose(const QCommandLineParser& parser, const QString& option, Choices<Value> choices,
            Value& chosen, QString& error)
{
    if (!parser.isSet(option))
        return true;
    const QString word = parser.value(option);
    QStringList known;
    for (const auto& [name, value] : choices) {
        if (word == QLatin1String(name)) {
            chosen = value;
            return true;
        }
        known << QLatin1String(name);
    }
    error = tr("--%1 takes one of these: %2; not \"%3\"")
                .arg(option, known.join(QLatin1String(", ")), word);
    return false;
}

void addOptions(QCommandLineParser& parser)
{
    for (const char* name : {"kind", "separator", "decimal", "header", "missing", "columns", "skip",
                             "encoding", "report"})
        parser.addOption(
            QCommandLineOption(QString::fromLatin1(name), QString(), QString::fromLatin1(name)));
    for (const char* name : {"transpose", "labels", "force", "version"})
        parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
    parser.addOption(QCommandLineOption({QStringLiteral("o"), QStringLiteral("output")}, QString(),
                                        QStringLiteral("file")));
    parser.addOption(QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
}

bool takeWords(const QCommandLineParser& parser, Options& options, QString& error)
{
    return choose<Kind>(parser, QStringLiteral("kind"),
                        {{"data", Kind::Data}, {"correlations", Kind::Correlations}}, options.kind,
                        error) &&
           choose<Separator>(parser, QStringLiteral("separator"),
                             {{"tab", Separator::Tab},
                              {"semicolon", Separator::Semicolon},
                              {"comma", Separator::Comma},
                              {"blank", Separator::Blank}},
                             options.separator, error) &&
           choose<Decimal>(parser, QStringLiteral("decimal"),
                           {{"point", Decimal::Point}, {"comma", Decimal::Comma}}, options.decimal,
                           error) &&
           choose<Header>(parser, QStringLiteral("header"),
                          {{"yes", Header::Yes}, {"no", Header::No}}, options.header, error);
}

bool takeRanges(const QCommandLineParser& parser, const QString& option, Ranges& ranges,
                QString& error)
{
    if (!parser.isSet(option))
        return true;
    const auto parsed = parseRanges(parser.value(option));
    if (!parsed) {
        error = tr("--%1 takes numbers from 1 on, like 2-10,12; not \"%2\"")
                    .arg(option, parser.value(option));
        return false;
    }
    ranges = *parsed;
    return true;
}

bool takeLists(const QCommandLineParser& parser, Options& options, QString& error)
{
    if (!takeRanges(parser, QStringLiteral("columns"), options.columns, error) ||
        !takeRanges(parser, QStringLiteral("skip"), options.skip, error))
        return false;
    if (parser.isSet(QStringLiteral("missing")) &&
        !parseMissing(parser.value(QStringLiteral("missing")), options)) {
        error = tr("--missing takes codes parted by commas, or none");
        return false;
    }
    if (!parser.isSet(QStringLiteral("encoding")))
        return true;
    const QString encoding = parser.value(QStringLiteral("encoding"));
    options.encoding = encodingNamed(encoding);
    if (options.encoding == Encoding::Unknown)
        error = tr("--encoding takes utf-8, utf-16le, utf-16be, windows-1250, windows-1251, "
                   "windows-1252 or windows-1253; not \"%1\"")
                    .arg(encoding);
    return options.encoding != Encoding::Unknown;
}

bool takeFiles(const QCommandLineParser& parser, Arguments& arguments, QString& error)
{
    const QStringList files = parser.positionalArguments();
    arguments.input = files.value(0);
    arguments.output = parser.value(QStringLiteral("output"));
    arguments.report = parser.value(QStringLiteral("report"));
    if (files.size() > 1)
        error = tr("one file at a time, so what is \"%1\"?").arg(files[1]);
    else if (arguments.input.isEmpty())
        error = tr("the file to convert is missing");
    else if (arguments.output.isEmpty() && !parser.optionNames().isEmpty())
        error = tr("-o is missing: the file to write");
    else if (parser.isSet(QStringLiteral("report")) && arguments.report.isEmpty())
        error = tr("--report takes the name of a file");
    return error.isEmpty();
}

bool parseRange(const QString& text, Ranges& ranges)
{
    const QStringList ends = text.split(u'-');
    if (ends.size() > 2)
        return false;
    bool ok = true;
    const auto number = [&ok](const QString& digits) {
        bool isNumber = false;
        const quint64 value = digits.trimmed().toULongLong(&isNumber);
        ok = ok && isNumber && value > 0 && !digits.contains(u'+');
        return static_cast<std::size_t>(value);
    };
    const std::size_t first = number(ends.front());
    const std::size_t last = number(ends.back());
    ranges.add({first, last});
    return ok && first <= last;
}

} // namespace

std::optional<Ranges> parseRanges(const QString& text)
{
    Ranges ranges;
    for (const QString& part : text.split(u','))
        if (!parseRange(part, ranges))
            return std::nullopt;
    return ranges;
}

bool parseMissing(const QString& text, Options& options)
{
    options.noMissingCodes = text.trimmed() == QLatin1String("none");
    options.missing.clear();
    if (options.noMissingCodes)
        return true;
    for (const QString& code : text.split(u','))
        if (!code.trimmed().isEmpty())
            options.missing << code.trimmed();
    return !options.missing.isEmpty();
}

std::optional<Arguments> parseArguments(const QStringList& words, QString& error)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(QStringList(QStringLiteral("pelmora-convert")) + words)) {
        error = parser.errorText();
        return std::nullopt;
    }
    Arguments arguments;
    arguments.help = parser.isSet(QStringLiteral("help"));
    arguments.version = parser.isSet(QStringLiteral("version"));
    arguments.force = parser.isSet(QStringLiteral("force"));
    arguments.options.transpose = parser.isSet(QStringLiteral("transpose"));
    arguments.options.labels = parser.isSet(QStringLiteral("labels"));
    if (arguments.help || arguments.version)
        return arguments;
    if (!takeWords(parser, arguments.options, error) ||
        !takeLists(parser, arguments.options, error) || !takeFiles(parser, arguments, error))
        return std::nullopt;
    return arguments;
}

QString helpText()
{
    return tr(
        "Usage: pelmora-convert IN -o OUT [OPTIONS]\n"
        "       pelmora-convert [IN]\n\n"
        "Turns a table from a spreadsheet, SPSS or R into a file that Pelmora reads, and guesses\n"
        "no number. Without -o a window opens.\n\n"
        "  -o, --output OUT      the file to write: *.dat for data, *.cor for correlations\n"
        "  --kind KIND           data, correlations\n"
        "  --separator SIGN      tab, semicolon, comma, blank\n"
        "  --decimal SIGN        point, comma\n"
        "  --header ANSWER       yes, no: whether the first row names the variables\n"
        "  --missing CODES       codes of missing values such as \"NA,-99\", or none\n"
        "  --columns PLACES      columns to keep, such as 2-10,12\n"
        "  --skip LINES          lines to leave out, such as 2-3\n"
        "  --transpose           exchange rows and columns\n"
        "  --encoding NAME       utf-8, utf-16le, utf-16be, windows-1250, windows-1251,\n"
        "                        windows-1252, windows-1253\n"
        "  --labels              labels of variables instead of their names (SPSS, Stata, SAS)\n"
        "  --report FILE         write the report there, not to standard output\n"
        "  --force               replace files that are there\n"
        "  -h, --help            show this help\n"
        "  --version             show the version\n\n"
        "Exit status: 0 written, 1 refused, 2 wrong usage, 3 a file cannot be read or written.\n");
}

QString versionText()
{
    return QStringLiteral("pelmora-convert " PELMORA_VERSION "\n");
}

} // namespace convert
