// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/asciidata.h"
#include "input/asciidatareader.h"
#include "plain/reader.h"
#include "support/difference.h"

#include <functional>

/// What the readers make of a file, against what the plain reader makes of it.
namespace plaincomparison {

namespace plain = pelmora::plain;

/// Hands over the boxes shown since the last call, each as "title|text".
using TakeReports = std::function<QStringList()>;

constexpr double untouched = 1234.5678;

inline bool prepare(AsciiData& data, unsigned rows, unsigned columns)
{
    return data.allocate(rows, columns) && data.forEachCell([](double* cell) {
        *cell = untouched;
        return true;
    });
}

/// What a reader keeps that converts its data lines.
inline bool sameShape(const AsciiReader& reader, const plain::TextFile& expected)
{
    return reader.nameLines() == expected.names &&
           reader.lineCount() == unsigned(expected.data.size()) &&
           reader.columnCount() == unsigned(plain::columnCount(expected));
}

inline bool sameFault(AsciiDataReader& reader, const QString& fault, const TakeReports& takeReports)
{
    const bool consistent = reader.checkConsistency();
    const QStringList reports = takeReports();
    if (fault.isEmpty())
        return consistent && reports.isEmpty();
    const QString text = reports.value(0).section(u'|', 1);
    const bool shortened =
        text.endsWith(QStringLiteral("...")) && fault.startsWith(text.chopped(3));
    return !consistent && reports.size() == 1 && (text == fault || shortened);
}

inline bool sameNames(const VariableNames& names, const std::vector<std::string>& expected)
{
    std::vector<std::string> read;
    for (std::size_t i = 0; i < names.size(); ++i)
        read.push_back(names[i]);
    return read == expected;
}

struct Outcome
{
    QString difference;  ///< the first; empty without any
    bool filled = false; ///< whether every place of the matrix has its number
};

/// Leaves the numbers and names of the file in @p data.
inline Outcome compare(const QString& path, const TakeReports& takeReports, AsciiData& data)
{
    plain::TextFile expected;
    AsciiReader text(path, nullptr);
    AsciiDataReader reader(path, nullptr);
    if (!plain::readFile(path, expected) || !text.readFile() || !reader.readFile())
        return {"not read"};
    if (text.dataLines() != expected.data || text.otherLines() != expected.other ||
        !sameShape(text, expected) || !sameShape(reader, expected))
        return {"other lines"};
    if (!sameFault(reader, plain::firstFault(expected), takeReports))
        return {"another fault"};
    AsciiData plainly;
    for (AsciiData* each : {&data, &plainly})
        if (!prepare(*each, reader.lineCount(), reader.columnCount()))
            return {"no memory"};
    const bool filled = plain::fillMatrix(expected, plainly.matrix().rowPointers());
    if (reader.getData(data) != filled)
        return {"other numbers"};
    const QString numbers = difference(data.matrix(), plainly.matrix());
    if (!numbers.isEmpty())
        return {numbers};
    return {sameNames(data.names(), plain::variableNames(expected)) ? "" : "other names", filled};
}

} // namespace plaincomparison
