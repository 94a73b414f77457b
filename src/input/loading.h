// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

class AsciiData;
class CorrelationData;

/// Files of input in one step. False after the fault has been reported to the report of
/// input/readerreport.h, or without a word where the file cannot be opened or the user
/// cancels.
bool loadDataMatrix(const QString& path, AsciiData& data);
/// @param otherLines  receives what the reader set aside, where it is wanted
bool loadCorrelationMatrix(const QString& path, CorrelationData& correlations,
                           QStringList* otherLines = nullptr);
