// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "samplefile.h"

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <random>
#include <stdexcept>

namespace samples {

namespace {

QByteArray structuredCases(int cases, int variables)
{
    std::mt19937 random(7);
    std::normal_distribution<double> normal;
    QByteArray text;
    for (int i = 0; i < cases; ++i) {
        double factor = 0.0;
        for (int j = 0; j < variables; ++j) {
            if (j % 10 == 0)
                factor = normal(random);
            text += QByteArray::number(10.0 * factor + 5.0 * normal(random), 'f', 4);
            text += j + 1 < variables ? ' ' : '\n';
        }
    }
    return text;
}

QByteArray nameLines(int variables)
{
    QByteArray text;
    for (int j = 1; j <= variables; ++j)
        text += "vname\t" + QByteArray::number(j) + "\tVariable " + QByteArray::number(j) + '\n';
    return text;
}

void write(QFile& file, const QByteArray& text)
{
    if (file.write(text) != text.size())
        throw std::runtime_error("cannot write the sample file");
}

} // namespace

File::File(int cases, int variables)
{
    QFile file(path());
    if (!file.open(QIODevice::WriteOnly))
        throw std::runtime_error("cannot make the sample file");
    const int different = std::min(cases, 10000);
    const QByteArray text = structuredCases(different, variables);
    for (int i = 0; i < cases; i += different)
        write(file, text);
    write(file, nameLines(variables));
}

} // namespace samples
