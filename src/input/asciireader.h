// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class AsciiData;

/// Splits a text file into data lines, name lines and other lines. Single use: construct, read, take
/// the numbers, discard.
///
/// A file is read as bytes, Latin-1, each line up to its first NUL. Line ends may be LF, CR LF or CR.
/// Lines are trimmed; one that begins with "vname" is a name line; one that consists of digits, "+",
/// "-", "." and white space only is a data line; all others are set aside without a word.
class AsciiReader : public QObject
{
    Q_OBJECT

public:
    AsciiReader(const QString& fileName, QObject* parent);
    ~AsciiReader() override;

    /// Reads and classifies all lines. False when the file cannot be opened (no message) or read (a
    /// warning box tells).
    bool readFile();

    /// Number of data lines.
    unsigned lineCount() const;
    /// Entries in the first data line; 0 without data lines.
    unsigned columnCount() const;

    /// 1 for a name line, 2 for an other line, 0 for a data line.
    int classifyLine(const QString& line) const;

    /// Zero-based variable index of a name line and its name; -1 and an empty name when the line has
    /// no readable number.
    int parseNameLine(const QString& line, QString& name) const;
};
