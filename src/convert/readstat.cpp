// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/refusal.h"
#include "convert/source.h"
#include "convert/statfile.h"
#include "output/numbertext.h"

#include <QFile>

#include <readstat.h>

#include <memory>
#include <new>
#include <string>
#include <vector>

namespace convert {

namespace {

/// What the library's calls gather.
struct StatText
{
    bool labels = false;
    std::vector<std::string> names;
    std::vector<bool> isNumeric;
    std::string rows;
    int lastRow = -1;
    bool outOfMemory = false;
};

std::string quoted(const std::string& text)
{
    std::string quoted(1, '"');
    for (const char byte : text)
        quoted.append(byte == '"' ? 2 : 1, byte);
    return quoted += '"';
}

/// Exceptions must not pass through the library.
template <typename Step>
int guarded(void* context, Step step)
{
    auto& text = *static_cast<StatText*>(context);
    try {
        step(text);
        return READSTAT_HANDLER_OK;
    } catch (const std::bad_alloc&) {
        text.outOfMemory = true;
        return READSTAT_HANDLER_ABORT;
    }
}

int takeVariable(int, readstat_variable_t* variable, const char*, void* context)
{
    return guarded(context, [variable](StatText& text) {
        const char* name = readstat_variable_get_name(variable);
        const char* label = readstat_variable_get_label(variable);
        const bool hasLabel = text.labels && label && *label;
        text.names.emplace_back(hasLabel ? label : name ? name : "");
        text.isNumeric.push_back(readstat_variable_get_type_class(variable) ==
                                 READSTAT_TYPE_CLASS_NUMERIC);
    });
}

int takeValue(int row, readstat_variable_t* variable, readstat_value_t value, void* context)
{
    return guarded(context, [row, variable, value](StatText& text) {
        text.rows += row == text.lastRow ? '\t' : '\n';
        text.lastRow = row;
        if (readstat_value_type_class(value) == READSTAT_TYPE_CLASS_NUMERIC &&
            !readstat_value_is_missing(value, variable))
            text.rows += numbertext::shortest(readstat_double_value(value));
    });
}

readstat_error_t parse(readstat_parser_t* parser, const QString& path, StatText& text)
{
    const QString format = statFormat(path);
    const QByteArray name = QFile::encodeName(path);
    if (format == QLatin1String("dta"))
        return readstat_parse_dta(parser, name.constData(), &text);
    if (format == QLatin1String("por"))
        return readstat_parse_por(parser, name.constData(), &text);
    if (format == QLatin1String("xpt"))
        return readstat_parse_xport(parser, name.constData(), &text);
    return readstat_parse_sav(parser, name.constData(), &text);
}

void settleOptions(const StatText& text, Options& options)
{
    options.separator = Separator::Tab;
    options.decimal = Decimal::Point;
    options.header = Header::Yes;
    if (!options.columns.isEmpty() || options.transpose)
        return;
    for (std::size_t i = 0; i < text.isNumeric.size(); ++i)
        if (text.isNumeric[i])
            options.columns.add({i + 1, i + 1});
    if (options.columns.isEmpty())
        throw Refusal(tr("The file has no variable of numbers."));
}

SourceText sourceOf(const StatText& text)
{
    std::string content;
    for (const std::string& name : text.names)
        content.append(content.empty() ? "" : "\t").append(quoted(name));
    content += text.rows;
    content += '\n';
    return decoded(bufferOf(content), Encoding::Utf8);
}

} // namespace

SourceText readStatFile(const QString& path, Options& options)
{
    const std::unique_ptr<readstat_parser_t, decltype(&readstat_parser_free)> parser(
        readstat_parser_init(), &readstat_parser_free);
    if (!parser)
        throw std::bad_alloc();
    StatText text;
    text.labels = options.labels;
    readstat_set_variable_handler(parser.get(), takeVariable);
    readstat_set_value_handler(parser.get(), takeValue);
    if (options.encoding != Encoding::Unknown)
        readstat_set_file_character_encoding(parser.get(),
                                             nameOf(options.encoding).toLatin1().constData());
    const readstat_error_t error = parse(parser.get(), path, text);
    if (text.outOfMemory)
        throw std::bad_alloc();
    if (error == READSTAT_ERROR_OPEN || error == READSTAT_ERROR_READ)
        throw ReadFailure(QString::fromUtf8(readstat_error_message(error)));
    if (error != READSTAT_OK)
        throw Refusal(tr("The file is no readable *.%1 file: %2")
                          .arg(statFormat(path), QString::fromUtf8(readstat_error_message(error))));
    settleOptions(text, options);
    return sourceOf(text);
}

} // namespace convert
