// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "convert/conversion.h"
#include "input/asciicorrreader.h"
#include "input/asciidata.h"
#include "input/asciidatareader.h"
#include "input/correlationdata.h"

#include <QString>

#include <bit>
#include <cstdint>
#include <optional>

/// What the program reads from a converted file, held against what the conversion says.
namespace readback {

/// The value of a field, by another road than the conversion's own: the toolkit's.
inline double sourceValue(std::string_view field)
{
    return QByteArray(field.data(), static_cast<qsizetype>(field.size()))
        .replace(',', '.')
        .toDouble();
}

template <typename Reader>
QString read(Reader&& reader, bool isRead, AsciiData& data)
{
    if (!isRead || !reader.checkConsistency() ||
        !data.allocate(reader.lineCount(), reader.columnCount()) || !reader.getData(data))
        return QStringLiteral("the program does not read the file");
    return QString();
}

inline QString readFile(const QString& path, const convert::Conversion& conversion,
                        CorrelationData& data)
{
    if (conversion.kind() == convert::Kind::Correlations) {
        AsciiCorrReader reader(path, nullptr);
        const bool isRead = reader.read();
        const QString fault = read(reader, isRead, data);
        return fault.isEmpty() && !data.testSymmetry() ? data.asymmetry() : fault;
    }
    AsciiDataReader reader(path, nullptr);
    const bool isRead = reader.readFile();
    return read(reader, isRead, data);
}

inline QString compareRow(const convert::Conversion& conversion, const AsciiData& data, int row,
                          std::size_t index)
{
    const bool square = conversion.kind() == convert::Kind::Correlations;
    for (int column = 0; column < static_cast<int>(data.cols()); ++column) {
        const auto place = static_cast<std::size_t>(column);
        const std::string_view field =
            square ? conversion.correlations()->field(index, place)
                   : conversion.table().field(conversion.layout().firstCase() + index,
                                              conversion.layout().kept[place]);
        const double expected = sourceValue(field);
        const double value = data.matrix()[row][column];
        if (std::bit_cast<std::uint64_t>(expected) != std::bit_cast<std::uint64_t>(value))
            return QStringLiteral("row %1, column %2: %3 instead of %4")
                .arg(row + 1)
                .arg(column + 1)
                .arg(value, 0, 'g', 17)
                .arg(expected, 0, 'g', 17);
    }
    return QString();
}

/// Nothing where rows, columns, doubles and names are those of the source; else what differs.
inline QString difference(const QString& path, const convert::Conversion& conversion)
{
    CorrelationData data;
    QString fault = readFile(path, conversion, data);
    if (!fault.isEmpty())
        return fault;
    if (data.rows() != conversion.rows() || data.cols() != conversion.columns())
        return QStringLiteral("%1 x %2 instead of %3 x %4")
            .arg(data.rows())
            .arg(data.cols())
            .arg(conversion.rows())
            .arg(conversion.columns());
    const bool square = conversion.kind() == convert::Kind::Correlations;
    std::size_t index = 0;
    for (int row = 0; row < static_cast<int>(data.rows()); ++row, ++index) {
        while (!square && !conversion.isKept(index))
            ++index;
        QString differs = compareRow(conversion, data, row, index);
        if (!differs.isEmpty())
            return differs;
    }
    for (std::size_t i = 0; i < conversion.names().size(); ++i)
        if (data.names()[i] != conversion.names().bytes(i))
            return QStringLiteral("name %1 is \"%2\"").arg(i + 1).arg(data.names().text(i));
    return QString();
}

} // namespace readback
