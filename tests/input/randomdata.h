// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QRandomGenerator>

/// Mostly rows of numbers, spoilt here and there.
inline QByteArray randomFile(QRandomGenerator& random)
{
    const auto oneOf = [&random](const QByteArrayList& choices) {
        return choices[random.bounded(int(choices.size()))];
    };
    const int spoilt = random.bounded(2) == 0 ? 40 : 4;
    const auto rarely = [&random, spoilt] { return random.bounded(1000) < spoilt; };
    const auto entry = [&] {
        if (rarely())
            return oneOf({"-", ".", "1-2", "1.2.3", "x", "1e3", ",", "\x85"});
        if (random.bounded(6) == 0)
            return oneOf({"+.5", "7.", "0012", "-0", "0.30000000000000004"});
        return QByteArray::number(random.generateDouble() * 200 - 100, 'f', random.bounded(15));
    };
    const int columns = random.bounded(1, 5);
    QByteArray bytes;
    for (int line = random.bounded(12); line > 0; --line) {
        if (random.bounded(12) == 0)
            bytes += "vname\t" + QByteArray::number(random.bounded(8)) + '\t' +
                     oneOf({"A", "Gr\xF6\xDFt", "", "5", "vname 2"});
        else
            for (int c = rarely() ? random.bounded(7) : columns; c > 0; --c)
                bytes += oneOf({" ", " ", "\t", "  ", "\v\f", "\xA0"}) + entry();
        bytes += oneOf({"", "", "", " ", "\t"});
        bytes +=
            rarely() ? QByteArray("\0 9\r8\n", 6) : oneOf({"\n", "\n", "\n", "\r\n", "\r", "\n\n"});
    }
    return bytes;
}
