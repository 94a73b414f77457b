// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

#include <iosfwd>

class QTableView;
class factorModel;

/// Makes @p view a circular diagram of @p model: delegate and colours.
void setUpDiagramView(QTableView* view, factorModel* model);

/// Lays the diagram out anew for the model's present diagram size and names.
void adjustDiagramView(QTableView* view);

/// Makes @p view, which nobody will see, show the whole diagram of @p model and nothing else.
void layOutWholeDiagram(QTableView* view, factorModel* model);

/// Picture of the whole diagram with its headers, for the screen's pixel ratio; null when the
/// memory does not suffice or the user cancels.
QImage diagramImage(factorModel* model);

/// Writes @p image as files and exports hold it. Throws std::bad_alloc when the memory does not
/// suffice or the user cancels.
void writePng(std::ostream& out, const QImage& image);
