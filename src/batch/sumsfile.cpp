// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/sumsfile.h"

#include "input/linetext.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <ostream>
#include <string_view>
#include <vector>

namespace batch {

namespace {

constexpr std::string_view magic = "PELMSUM1";

template <typename Number>
void writeNumber(std::ostream& out, Number number)
{
    std::array<char, sizeof(Number)> bytes;
    qToLittleEndian(number, bytes.data());
    out.write(bytes.data(), bytes.size());
}

void writeDoubles(std::ostream& out, const std::vector<double>& values)
{
    for (const double value : values)
        writeNumber(out, value);
}

/// False before all bytes are there; a pipe hands them out in pieces.
bool readBytes(QIODevice& device, char* bytes, std::size_t size)
{
    while (size > 0) {
        const qint64 count = device.read(bytes, static_cast<qint64>(size));
        if (count <= 0)
            return false;
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
    return true;
}

template <typename Number>
bool readNumber(QIODevice& device, Number& number)
{
    std::array<char, sizeof(Number)> bytes;
    if (!readBytes(device, bytes.data(), bytes.size()))
        return false;
    number = qFromLittleEndian<Number>(bytes.data());
    return true;
}

/// Memory is taken piece by piece, so that a damaged file cannot make it take much more than the
/// file holds.
bool readDoubles(QIODevice& device, std::vector<double>& values, std::size_t count)
{
    constexpr std::size_t piece = std::size_t(1) << 20;
    values.clear();
    while (values.size() < count) {
        const std::size_t from = values.size();
        const std::size_t size = std::min(count - from, piece);
        values.reserve(std::min(count, std::max(from + size, 2 * from)));
        values.resize(from + size);
        if (!readBytes(device, reinterpret_cast<char*>(values.data() + from),
                       size * sizeof(double)))
            return false;
    }
    for (double& value : values)
        value = qFromLittleEndian<double>(&value);
    return true;
}

void readNames(QIODevice& device, std::map<std::size_t, std::string>& names)
{
    for (const QByteArray& line : device.readAll().split('\n')) {
        QString name;
        const int index = linetext::parseName(QString::fromLatin1(line), name);
        if (index >= 0)
            names[static_cast<std::size_t>(index)] = name.toLatin1().toStdString();
    }
}

} // namespace

void Sums::merge(const Sums& next)
{
    if (moments.variables() == 0)
        moments = next.moments;
    else if (next.moments.variables() > 0)
        moments.merge(next.moments);
    dataLines += next.dataLines;
    for (const auto& [index, name] : next.names)
        names[index] = name;
}

void writeSums(std::ostream& out, const Sums& sums)
{
    out.write(magic.data(), magic.size());
    writeNumber(out, static_cast<std::uint32_t>(sums.moments.variables()));
    writeNumber(out, sums.moments.cases);
    writeNumber(out, sums.dataLines);
    writeDoubles(out, sums.moments.shift);
    writeDoubles(out, sums.moments.rest);
    writeDoubles(out, sums.moments.products);
    for (const auto& [index, name] : sums.names)
        out << "vname\t" << std::to_string(index + 1) << '\t' << name << '\n';
}

std::optional<Sums> readSums(QIODevice& device)
{
    std::array<char, magic.size()> head;
    std::uint32_t variables = 0;
    Sums sums;
    if (!readBytes(device, head.data(), head.size()) ||
        std::string_view(head.data(), head.size()) != magic || !readNumber(device, variables) ||
        variables > INT_MAX || !readNumber(device, sums.moments.cases) ||
        !readNumber(device, sums.dataLines))
        return std::nullopt;
    const std::size_t p = variables;
    if (!readDoubles(device, sums.moments.shift, p) || !readDoubles(device, sums.moments.rest, p) ||
        !readDoubles(device, sums.moments.products, p * (p + 1) / 2))
        return std::nullopt;
    readNames(device, sums.names);
    return sums;
}

} // namespace batch
