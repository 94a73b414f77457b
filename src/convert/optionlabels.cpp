// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/optionlabels.h"

#include <QRegularExpression>

namespace convert {

QString withLabels(const QString& text, const OptionLabels& labels)
{
    // An option, and its value in quotes, to be filled in, or a word, perhaps of the sentence.
    static const QRegularExpression option(
        QStringLiteral(R"re((--[a-z]+)(?: (?:"([^"]*)"|(%\d)|([\w-]+)))?)re"));
    QString result;
    qsizetype end = 0;
    for (auto found = option.globalMatch(text); found.hasNext();) {
        const auto match = found.next();
        const QString name = match.captured(1);
        if (!labels.contains(name))
            continue;
        QString value = match.captured(2) + match.captured(3);
        const auto word = labels.constFind(name + u' ' + match.captured(4));
        if (word != labels.constEnd())
            value = *word;
        result += QStringView(text).mid(end, match.capturedStart() - end);
        result += u'"' + labels[name];
        if (!value.isEmpty())
            result += QStringLiteral(": ") + value;
        result += u'"';
        end = value.isEmpty() ? match.capturedEnd(1) : match.capturedEnd();
    }
    result += QStringView(text).mid(end);
    return result;
}

} // namespace convert
