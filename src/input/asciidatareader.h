// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/asciireader.h"

/// Reads a raw data file: one case (or variable) per line, plain decimal numbers.
class AsciiDataReader : public AsciiReader
{
    Q_OBJECT

public:
    AsciiDataReader(const QString& fileName, QObject* parent);

    /// Whether all data lines have as many entries as the first and every entry is a number; a box
    /// names the first fault. Lines and columns in the messages count from zero, on purpose.
    bool checkConsistency();

    /// Gives @p data, which must have the size of the file's data, its numbers, in a block that
    /// takes the place of its matrix, and its names: numbers as default names, then the file's name
    /// lines in order. False when an entry is not a number or there is none at all.
    bool getData(AsciiData& data);
};
