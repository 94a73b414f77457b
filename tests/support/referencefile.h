// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QFile>
#include <QString>

#include <vector>

/// The rows of numbers of a frozen reference in tests/data; lines that begin with "#" are skipped.
inline std::vector<std::vector<double>> readReference(const QString& name)
{
    QFile file(QStringLiteral(PELMORA_SOURCE_DIR "/tests/data/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("Cannot read the reference %s", qPrintable(name));
    std::vector<std::vector<double>> rows;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine().simplified();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        auto& row = rows.emplace_back();
        for (const QByteArray& entry : line.split(' '))
            row.push_back(entry.toDouble());
    }
    return rows;
}
