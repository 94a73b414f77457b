// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciireader.h"

#include "input/linetext.h"
#include "input/scan/faultreport.h"
#include "input/scan/linebuffer.h"
#include "input/scan/linescan.h"
#include "input/scan/numberlines.h"
#include "input/variablenames.h"
#include "numerics/progress.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <climits>
#include <new>
#include <utility>

namespace {

QString trimmedText(const char* first, const char* last)
{
    const QString text = QString::fromLatin1(first, last - first);
    const QStringView trimmed = linetext::trimmed(text);
    return trimmed.size() == text.size() ? text : trimmed.toString();
}

/// Regular files only: reading a pipe could block for ever, and a folder cannot be read.
bool openForReading(QFile& file)
{
    return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

template <typename TakePiece>
bool takeAllPieces(QFile& file, TakePiece takePiece)
{
    const auto size = static_cast<double>(file.size());
    pelmora::LineBuffer buffer(file);
    while (buffer.next()) {
        pelmora::scanLines(buffer.begin(), buffer.end(), takePiece);
        const double done = std::min(static_cast<double>(file.pos()) / size, 1.0);
        if (!pelmora::goOn({.work = pelmora::Progress::Work::Reading, .done = done}))
            return false;
    }
    return !buffer.failed();
}

unsigned toUnsigned(std::size_t count)
{
    return static_cast<unsigned>(std::min<std::size_t>(count, UINT_MAX));
}

} // namespace

AsciiReader::AsciiReader(const QString& fileName, QObject* parent)
    : AsciiReader(fileName, DataLines::KeepText, parent)
{
}

AsciiReader::AsciiReader(const QString& fileName, DataLines dataLines, QObject* parent)
    : QObject(parent)
    , m_fileName(fileName)
{
    if (dataLines == DataLines::Convert)
        m_numbers = std::make_unique<pelmora::NumberLines>();
}

AsciiReader::~AsciiReader() = default;

bool AsciiReader::readFile()
{
    QFile file(m_fileName);
    if (!openForReading(file))
        return false;
    bool read = false;
    try {
        read = m_numbers ? readNumbers(file) : readText(file);
    } catch (const std::bad_alloc&) {
        // A text that does not fit into memory cannot be read.
    }
    if (!read && !pelmora::isCancelled())
        showReadError();
    return read;
}

void AsciiReader::showReadError() const
{
    pelmora::reportReadError(m_fileName);
}

bool AsciiReader::readNumbers(QFile& file)
{
    m_numbers->expectText(static_cast<std::size_t>(file.size()));
    return takeAllPieces(file, [this](const char* p) {
        if (pelmora::isNameLine(p)) {
            const char* end = pelmora::pieceEnd(p);
            m_nameLines.append(trimmedText(p, end));
            return end;
        }
        bool isData = false;
        return m_numbers->takeLine(p, isData);
    });
}

bool AsciiReader::readText(QFile& file)
{
    return takeAllPieces(file, [this](const char* p) {
        const char* end = pelmora::pieceEnd(p);
        const QString line = trimmedText(p, end);
        switch (classifyLine(line)) {
        case linetext::Data:
            m_dataLines.append(line);
            break;
        case linetext::Name:
            m_nameLines.append(line);
            break;
        default:
            m_otherLines.append(line);
        }
        return end;
    });
}

unsigned AsciiReader::lineCount() const
{
    return m_numbers ? toUnsigned(m_numbers->lineCount())
                     : toUnsigned(static_cast<std::size_t>(m_dataLines.size()));
}

unsigned AsciiReader::columnCount() const
{
    if (m_numbers)
        return toUnsigned(m_numbers->columnCount());
    const qsizetype count = linetext::entries(m_dataLines.value(0)).size();
    return toUnsigned(static_cast<std::size_t>(count));
}

bool AsciiReader::convertAgain()
{
    QFile file(m_fileName);
    if (!openForReading(file))
        return false;
    m_numbers = std::make_unique<pelmora::NumberLines>();
    const QStringList nameLines = std::exchange(m_nameLines, {});
    const bool read = readNumbers(file);
    m_nameLines = nameLines;
    return read;
}

int AsciiReader::classifyLine(const QString& line) const
{
    return linetext::kindOf(line);
}

int AsciiReader::parseNameLine(const QString& line, QString& name) const
{
    return linetext::parseName(line, name);
}

pelmora::NumberLines* AsciiReader::numbers() const
{
    return m_numbers.get();
}

void AsciiReader::setDataLines(const QStringList& lines)
{
    m_dataLines = lines;
}

VariableNames AsciiReader::variableNames() const
{
    VariableNames names(std::max(lineCount(), columnCount()));
    for (const QString& line : m_nameLines) {
        QString name;
        const int index = parseNameLine(line, name);
        if (index >= 0)
            names.set(static_cast<std::size_t>(index), name.toLatin1().toStdString());
    }
    return names;
}
