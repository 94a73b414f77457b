// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

/// @p text with blanks for line breaks, line and paragraph separators, tabs and other control
/// characters.
QString onOneLine(QString text);

/// A table with headings on top and on the left. Its texts are onOneLine().
struct TableGrid
{
    struct Column
    {
        QString heading;
        bool isNumeric = false; ///< to be right aligned
    };

    QString corner;
    std::vector<Column> columns;
    QStringList rowHeadings;
    /// Text of a cell, asked for when it is written: there may be millions of them.
    std::function<QString(int row, int column)> cell;
};

/// Lines of fields that are separated by tabs, as spreadsheets take them.
QString tabSeparatedTable(const TableGrid& grid);

/// A document of one plain table, as word processors take it.
QString htmlTable(const TableGrid& grid);
/// The table alone, for documents that hold more.
QString htmlTableElement(const TableGrid& grid);

/// A pipe table. Whatever a reader of Markdown might take for markup is escaped.
QString markdownTable(const TableGrid& grid);
/// @p text with all of that escaped.
QString markdownText(const QString& text);

/// A tabular environment with the rules of the package booktabs. Letters beyond ASCII stay as they
/// are: LaTeX reads UTF-8, but a few of them are in no font of its oldest encoding.
QString latexTable(const TableGrid& grid);
