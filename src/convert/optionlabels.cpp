// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/optionlabels.h"

#include <QRegularExpression>

namespace convert {

QString withLabels(const QString& text, const OptionLabels& labels)
{
    // An option, and its value: a known one, in quotes, or to be filled in.
    static const QRegularExpression option(
        QStringLiteral(R"re((--[a-z]+)(?: (?|"([^"]*)"|(%\d)|)re"
                       R"re(((?:data|correlations|point|comma|yes|no|none|utf-16[lb]e)\b)))?)re"));
    QString result;
    qsizetype end = 0;
    for (auto found = option.globalMatch(text); found.hasNext();) {
        const auto match = found.next();
        const QString name = match.captured(1);
        if (!labels.contains(name))
            continue;
        const QString value = match.captured(2);
        result += QStringView(text).mid(end, match.capturedStart() - end);
        result += u'"' + labels[name];
        if (!value.isEmpty())
            result += QStringLiteral(": ") + labels.value(name + u' ' + value, value);
        result += u'"';
        end = match.capturedEnd();
    }
    result += QStringView(text).mid(end);
    return result;
}

} // namespace convert
