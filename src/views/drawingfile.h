// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

class QDateTime;
struct DiagramDrawing;

/// Formats of drawings: vector graphics with text that can be selected.
enum class DrawingFormat { Pdf, Svg };

/// The format of a file: by its suffix, else by the filter of the dialog, else PDF.
DrawingFormat drawingFormat(const QString& path, const QString& filter);

/// One page as large as @p drawing, with the fonts that it needs. More than 200 inches (a bound of
/// the format) are scaled down to them.
/// @param title  of the document
/// @param created  the time that the file gives for itself. With the same time the same drawing
///                 gives the same bytes, provided that the program has called
///                 QHashSeed::setDeterministicGlobalSeed() at its start
/// @throws std::bad_alloc when the memory does not suffice or the user cancels
QByteArray pdfFile(const DiagramDrawing& drawing, const QString& title, const QDateTime& created);

/// The same drawing always gives the same bytes. Fonts are named, with others to fall back on.
/// @throws std::bad_alloc when the memory does not suffice or the user cancels
QByteArray svgFile(const DiagramDrawing& drawing, const QString& title);
