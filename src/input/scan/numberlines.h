// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/scan/mallocblock.h"
#include "numerics/owners.h"

#include <QString>

#include <cstddef>

namespace pelmora {

/// The first fault in the data lines of a file.
struct LineFault
{
    enum Kind { None, EntryCount, NotANumber };

    Kind kind = None;
    std::size_t line = 0;  ///< zero-based among the data lines
    std::size_t entry = 0; ///< zero-based in the line
    QString text;          ///< the entry that is no number
};

/// The numbers of a file's data lines. Each is converted once, in the pass that also classifies its
/// line, and goes straight to its place in the element block of the future matrix: a copy of the
/// text or of the numbers would cost more time than the conversion.
class NumberLines
{
public:
    /// Tells the size of the text if it is known. Memory for all numbers is then taken at once,
    /// when the first line has shown how many they may be.
    void expectText(std::size_t size) { m_textSize = size; }

    /// Continues a table after @p lines lines of @p columns entries: they are counted, and the
    /// lines that follow must have as many entries.
    void continueBehind(std::size_t lines, std::size_t columns);

    /// Takes the line at @p p apart and returns its end: the CR, LF or NUL after it.
    /// @param isData  false when the line holds anything but numbers; nothing of it is kept then
    const char* takeLine(const char* p, bool& isData);

    /// The lines, those that were continued included.
    std::size_t lineCount() const { return m_lines; }
    /// Entries in the first line.
    std::size_t columnCount() const { return m_columns; }
    const LineFault& fault() const { return m_fault; }

    /// The numbers kept, line by line.
    const double* kept() const { return m_block ? m_block.get() + 1 : nullptr; }
    /// Whether a number is missing: on from there none is kept.
    bool isInterrupted() const { return m_interrupted; }
    /// Forgets the numbers, not the lines.
    void dropNumbers() { m_size = 0; }

    /// Whether every line has a number in each of the first columnCount() places, and there are
    /// any.
    bool isComplete() const;

    /// Whether takeMatrix() has handed the numbers over.
    bool areTaken() const { return m_taken; }

    /// Hands the numbers over as a matrix; null while they are not complete, or without memory for
    /// its row pointers (reported).
    Matrix takeMatrix();

    /// Writes the numbers before the first missing one into @p matrix, as far as they
    /// have a place there.
    void copyTo(Matrix& matrix) const;

private:
    /// A line while it is taken apart. It counts only when it turns out to be a data line.
    struct Line
    {
        double* start = nullptr;
        double* next = nullptr;
        double* limit = nullptr; ///< end of the places that the line may fill
        std::size_t unkept = 0;  ///< entries without a place
        LineFault fault;

        std::size_t kept() const { return static_cast<std::size_t>(next - start); }
        std::size_t entries() const { return kept() + unkept; }
    };

    Line beginLine();
    void setPlaces(Line& line, std::size_t kept);
    void takeEntry(const char* first, const char* last, Line& line);
    bool makeRoom(Line& line);
    void endLine(const Line& line, std::size_t length);
    bool reserve(std::size_t numbers);
    bool resize(std::size_t capacity);
    void reserveForText(std::size_t lineLength);

    std::size_t m_textSize = 0;
    MallocBlock<double> m_block; ///< a spare double, then the numbers, line by line
    std::size_t m_capacity = 0;  ///< numbers that the block can hold
    std::size_t m_size = 0;      ///< numbers kept
    std::size_t m_lines = 0;
    std::size_t m_columns = 0;
    bool m_columnsKnown = false;
    bool m_taken = false;
    bool m_interrupted = false; ///< a number is missing: on from there none is kept
    LineFault m_fault;
};

} // namespace pelmora
