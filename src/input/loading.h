// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

class AsciiData;
class CorrelationData;

/// Load an input file in one step. False after the fault has been reported (see
/// input/readerreport.h), and without a report where the file cannot be opened or the user cancels.
bool loadDataMatrix(const QString& path, AsciiData& data);
/// @param otherLines  receives what the reader set aside, where it is wanted
bool loadCorrelationMatrix(const QString& path, CorrelationData& correlations,
                           QStringList* otherLines = nullptr);
