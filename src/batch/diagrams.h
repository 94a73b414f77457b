// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "batch/analyseoptions.h"

#include <QByteArray>
#include <QDateTime>

#include <memory>

class QGuiApplication;

namespace batch {

struct AnalysedPage;
struct Analysis;

/// What drawing needs: an application off screen, and the default settings.
class DrawingRoom
{
public:
    /// @param decimals  of the values in drawings
    explicit DrawingRoom(unsigned decimals);
    ~DrawingRoom();

private:
    std::unique_ptr<QGuiApplication> m_application;
};

/// The diagram of a page as a file with that title. Needs a DrawingRoom. Throws std::bad_alloc.
QByteArray diagramFile(const AnalysedPage& page, DrawingKind kind, const QString& title);

/// Writes the diagrams of all pages beside the other results.
/// @returns how many could not be written
int writeDiagrams(const Analysis& analysis, const AnalyseOptions& options);

/// The time that documents give for themselves: that of SOURCE_DATE_EPOCH, or the beginning of
/// 1970, so that the same input always gives the same file.
QDateTime documentTime();

} // namespace batch
