// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

// A name line: taken apart as by its patterns; and a name that was given survives a file.

#include "fuzz/fuzzsupport.h"
#include "input/linetext.h"
#include "input/variablenames.h"
#include "plain/reader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromLatin1(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QString name;
    QString plainName;
    const int index = linetext::parseName(text, name);
    require(index == pelmora::plain::parseNameLine(text, plainName), "numbered alike");
    require(name == plainName, "named alike");

    const QString given = VariableNames::fromTexts({text}).text(0);
    const QString line = QStringLiteral("vname\t1\t") + given;
    require(linetext::kindOf(line) == linetext::Name, "a name makes a name line");
    const int back = linetext::parseName(linetext::trimmed(line).toString(), name);
    require(back == 0, "a name leaves its number alone");
    // What looks like a header inside of a name cuts it.
    require(name == linetext::trimmed(given) || given.contains(QStringLiteral("vname")),
            "a name survives");
    return 0;
}
