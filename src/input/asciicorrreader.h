// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/asciireader.h"

/// Reads a correlation file: a full square matrix or either triangle, with or without its unit
/// diagonal, and completes it to a full matrix.
class AsciiCorrReader : public AsciiReader
{
    Q_OBJECT

public:
    AsciiCorrReader(const QString& fileName, QObject* parent);

    /// Reads the file, identifies its shape and completes its lines to a full square matrix. False
    /// after a message.
    bool read();

    /// 0 full square, 1 upper triangle with diagonal, 2 upper without, 3 lower with, 4 lower
    /// without, 5 not identified (a warning box tells of an entry that is not a number).
    int identifyType();

    /// Always true: identifyType() has looked at the row lengths.
    bool checkConsistency();

    /// Fills the allocated matrix of @p data from the completed lines and replaces its names. False
    /// when an entry is missing or is not a number, or there is none at all.
    bool getData(AsciiData& data);

private:
    bool complete();
};
