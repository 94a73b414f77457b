// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class AsciiData;
class QFile;
class VariableNames;

namespace pelmora {
class NumberLines;
}

/// Splits a text file into data lines, name lines and other lines. Single use: construct, read,
/// take the numbers, discard.
///
/// A file is read as bytes, Latin-1, each line up to its first NUL. Line ends may be LF, CR LF or
/// CR. Lines are trimmed; one that begins with "vname" is a name line; one that consists of digits,
/// "+", "-", "." and white space only is a data line; all others are set aside without a message.
class AsciiReader : public QObject
{
    Q_OBJECT

public:
    AsciiReader(const QString& fileName, QObject* parent);
    ~AsciiReader() override;

    /// Reads and classifies all lines. False when the file cannot be opened (no message) or read (a
    /// warning box tells), or when the user cancels.
    bool readFile();

    /// Number of data lines.
    unsigned lineCount() const;
    /// Entries in the first data line; 0 without data lines.
    unsigned columnCount() const;

    /// The trimmed lines in file order. A reader that converts its data lines while reading keeps
    /// no text but that of the name lines.
    QStringList dataLines() const { return m_dataLines; }
    QStringList nameLines() const { return m_nameLines; }
    QStringList otherLines() const { return m_otherLines; }

    /// 1 for a name line, 2 for an other line, 0 for a data line.
    int classifyLine(const QString& line) const;

    /// Zero-based variable index of a name line and its name; -1 and an empty name when the line
    /// has no readable number.
    int parseNameLine(const QString& line, QString& name) const;

protected:
    /// Tells that the file cannot be read.
    void showReadError() const;

    /// What readFile() makes of data lines.
    enum class DataLines { KeepText, Convert };
    AsciiReader(const QString& fileName, DataLines dataLines, QObject* parent);

    /// The numbers of the data lines; null where their text is kept.
    pelmora::NumberLines* numbers() const;
    /// Converts the file's data lines once more, for numbers that have been handed over. False when
    /// the file cannot be read any more.
    bool convertAgain();
    /// Replaces the text of the data lines.
    void setDataLines(const QStringList& lines);

    /// As many names as the longer side of the data has places: numbers by default, then the file's
    /// name lines in order. A line for a variable beyond them is ignored.
    VariableNames variableNames() const;

private:
    bool readNumbers(QFile& file);
    bool readText(QFile& file);

    QString m_fileName;
    QStringList m_dataLines;
    QStringList m_nameLines;
    QStringList m_otherLines;
    std::unique_ptr<pelmora::NumberLines> m_numbers;
};
