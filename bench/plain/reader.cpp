// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/reader.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <climits>

namespace pelmora::plain {

namespace {

// White space is spelled out: patterns and character classes of a toolkit disagree about it.
const QRegularExpression lineEnds(QStringLiteral("[\\r\\n]+"));
const QRegularExpression nonNumeric(QStringLiteral("[^+\\-0-9\\x09-\\x0D\\x20\\xA0.]"));
const QRegularExpression separators(QStringLiteral("[\\x09-\\x0D\\x20\\xA0,]+"));
const QRegularExpression blanks(QStringLiteral("[\\x09-\\x0D\\x20\\xA0]+"));
const QRegularExpression noInteger(QStringLiteral("[^+\\-0-9]"));
const QRegularExpression nameHeader(QStringLiteral(
    "[\\x09-\\x0D\\x20\\xA0]*vname[\\x09-\\x0D\\x20\\xA0]*[0-9]+[\\x09-\\x0D\\x20\\xA0]*"));

bool isBlank(QChar c)
{
    return (c >= u'\x09' && c <= u'\x0D') || c == u' ' || c == u'\xA0';
}

QString trimmed(QString line)
{
    while (!line.isEmpty() && isBlank(line.back()))
        line.chop(1);
    while (!line.isEmpty() && isBlank(line.front()))
        line.remove(0, 1);
    return line;
}

void classify(const QString& line, TextFile& file)
{
    if (line.startsWith(QStringLiteral("vname")))
        file.names.append(line);
    else if (line.contains(nonNumeric))
        file.other.append(line);
    else
        file.data.append(line);
}

QStringList entries(const QString& line)
{
    return line.split(separators, Qt::SkipEmptyParts);
}

} // namespace

bool readFile(const QString& fileName, TextFile& file)
{
    QFile input(fileName);
    if (!input.open(QIODevice::ReadOnly))
        return false;
    while (!input.atEnd()) {
        const QByteArray bytes = input.readLine();
        if (bytes.isEmpty())
            return false;
        const QString line =
            QString::fromLatin1(bytes.constData(), qsizetype(qstrlen(bytes.constData())));
        for (const QString& piece : line.split(lineEnds, Qt::SkipEmptyParts))
            classify(trimmed(piece), file);
    }
    return true;
}

int columnCount(const TextFile& file)
{
    return file.data.isEmpty() ? 0 : static_cast<int>(entries(file.data.first()).size());
}

QString firstFault(const TextFile& file)
{
    const int columns = columnCount(file);
    for (qsizetype i = 0; i < file.data.size(); ++i) {
        const QStringList line = entries(file.data[i]);
        if (line.size() != columns)
            return QStringLiteral("Line %1 has different number of entries compared to line no.1.")
                .arg(i);
        for (qsizetype c = 0; c < line.size(); ++c) {
            bool ok = false;
            line[c].toDouble(&ok);
            if (!ok)
                return QStringLiteral("Entry in line %1 and column %2 is not a number: %3")
                    .arg(i)
                    .arg(c)
                    .arg(line[c]);
        }
    }
    return {};
}

bool fillMatrix(const TextFile& file, double** matrix)
{
    const int columns = columnCount(file);
    for (qsizetype r = 0; r < file.data.size(); ++r) {
        const QStringList line = entries(file.data[r]);
        for (int c = 0; c < columns; ++c) {
            bool ok = false;
            const double value = line.value(c).toDouble(&ok);
            if (!ok)
                return false;
            matrix[r][c] = value;
        }
    }
    return !file.data.isEmpty() && columns > 0;
}

int parseNameLine(const QString& line, QString& name)
{
    name = line.split(nameHeader, Qt::SkipEmptyParts).value(0);
    const QString text = line.split(blanks, Qt::SkipEmptyParts).value(1);
    bool ok = false;
    const int number = text.toInt(&ok);
    // The toolkit would pass over a blank that is none here.
    if (!ok || text.contains(noInteger)) {
        name.clear();
        return -1;
    }
    return std::max(number, INT_MIN + 1) - 1;
}

std::vector<std::string> variableNames(const TextFile& file)
{
    const qsizetype count = std::max<qsizetype>(columnCount(file), file.data.size());
    std::vector<std::string> names;
    for (qsizetype k = 1; k <= count; ++k)
        names.push_back(std::to_string(k));
    for (const QString& line : file.names) {
        QString name;
        const int index = parseNameLine(line, name);
        if (index >= 0 && index < count)
            names[static_cast<std::size_t>(index)] = name.toLatin1().toStdString();
    }
    return names;
}

} // namespace pelmora::plain
