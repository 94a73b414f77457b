// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/tabletext.h"

#include <algorithm>

namespace {

/// Calls @p write(text, column) for the headings of a row and its cells, from left to right; row -1
/// is the heading row, column -1 that of the rows' headings.
template <typename Write>
void forEachField(const TableGrid& grid, int row, Write write)
{
    write(row < 0 ? grid.corner : grid.rowHeadings[row], -1);
    for (int column = 0; column < static_cast<int>(grid.columns.size()); ++column)
        write(row < 0 ? grid.columns[static_cast<std::size_t>(column)].heading
                      : grid.cell(row, column),
              column);
}

bool isNumeric(const TableGrid& grid, int column)
{
    return column >= 0 && grid.columns[static_cast<std::size_t>(column)].isNumeric;
}

int rowCount(const TableGrid& grid)
{
    return static_cast<int>(grid.rowHeadings.size());
}

QString latexCharacter(QChar c, QChar previous)
{
    switch (c.unicode()) {
    case u'&':
    case u'%':
    case u'$':
    case u'#':
    case u'_':
    case u'{':
    case u'}':
        return u'\\' + QString(c);
    case u'\\':
        return QStringLiteral("\\textbackslash{}");
    case u'~':
        return QStringLiteral("\\textasciitilde{}");
    case u'^':
        return QStringLiteral("\\textasciicircum{}");
    case u'<':
        return QStringLiteral("\\textless{}");
    case u'>':
        return QStringLiteral("\\textgreater{}");
    case u'|':
        return QStringLiteral("\\textbar{}");
    case u'"':
        return QStringLiteral("{\\char34}");
    // At the start of a row these two would be taken for arguments of the row end before it.
    case u'[':
    case u'*':
        return u'{' + QString(c) + u'}';
    case u'-':
    case u'\'':
    case u'`':
        // Two of them are a ligature for another character.
        return previous == c ? QStringLiteral("{}") + c : QString(c);
    case QChar::Nbsp:
        return QStringLiteral("~");
    case QChar::SoftHyphen:
        return QStringLiteral("\\-");
    case QChar::ReplacementCharacter:
        return QStringLiteral("?");
    default:
        return c;
    }
}

QString latexText(const QString& text)
{
    QString escaped;
    QChar previous;
    for (const QChar c : text) {
        escaped += latexCharacter(c, previous);
        previous = c;
    }
    return escaped;
}

QString latexNumber(const QString& number)
{
    return number.startsWith(u'-') ? QStringLiteral("$-$") + number.mid(1) : number;
}

} // namespace

QString onOneLine(QString text)
{
    const auto splitsLines = [](QChar c) {
        return c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
               c.category() == QChar::Separator_Paragraph;
    };
    std::replace_if(text.begin(), text.end(), splitsLines, QChar(u' '));
    return text;
}

QString tabSeparatedTable(const TableGrid& grid)
{
    QString table;
    for (int row = -1; row < rowCount(grid); ++row) {
        forEachField(grid, row, [&](const QString& text, int column) {
            if (column >= 0)
                table += u'\t';
            table += text;
        });
        table += u'\n';
    }
    return table;
}

QString htmlTable(const TableGrid& grid)
{
    return QStringLiteral("<html><head><meta http-equiv=\"content-type\" "
                          "content=\"text/html; charset=utf-8\"></head><body>\n") +
           htmlTableElement(grid) + QStringLiteral("</body></html>\n");
}

QString htmlTableElement(const TableGrid& grid)
{
    QString table = QStringLiteral("<table>\n");
    for (int row = -1; row < rowCount(grid); ++row) {
        const QString tag = row < 0 ? QStringLiteral("th") : QStringLiteral("td");
        table += QStringLiteral("<tr>");
        forEachField(grid, row, [&](const QString& text, int column) {
            table += u'<' + tag + QStringLiteral(" align=\"") +
                     (isNumeric(grid, column) ? QStringLiteral("right") : QStringLiteral("left")) +
                     QStringLiteral("\">") + text.toHtmlEscaped() + QStringLiteral("</") + tag +
                     u'>';
        });
        table += QStringLiteral("</tr>\n");
    }
    return table + QStringLiteral("</table>\n");
}

QString markdownText(const QString& text)
{
    QString escaped;
    QChar previous;
    for (const QChar c : text) {
        // Two points or hyphens would become an ellipsis or a dash; a single one needs no escape.
        const bool doubled = c == previous && (c == u'-' || c == u'.');
        if (doubled || QStringLiteral("\\|`*_[]<>&$~^@#'\"").contains(c))
            escaped += u'\\';
        escaped += c;
        previous = c;
    }
    return escaped;
}

QString markdownTable(const TableGrid& grid)
{
    QString table;
    QString alignments;
    for (int row = -1; row < rowCount(grid); ++row) {
        table += u'|';
        forEachField(grid, row, [&](const QString& text, int column) {
            const bool isNumber = row >= 0 && isNumeric(grid, column);
            table += u' ' + (isNumber ? text : markdownText(text)) + QStringLiteral(" |");
            if (row < 0)
                alignments +=
                    isNumeric(grid, column) ? QStringLiteral(" ---: |") : QStringLiteral(" :--- |");
        });
        table += u'\n';
        if (row < 0)
            table += u'|' + alignments + u'\n';
    }
    return table;
}

QString latexTable(const TableGrid& grid)
{
    QString alignments;
    QString lines;
    for (int row = -1; row < rowCount(grid); ++row) {
        forEachField(grid, row, [&](const QString& text, int column) {
            if (column >= 0)
                lines += QStringLiteral(" & ");
            const bool isNumber = row >= 0 && isNumeric(grid, column);
            lines += isNumber ? latexNumber(text) : latexText(text);
            if (row < 0)
                alignments += isNumeric(grid, column) ? u'r' : u'l';
        });
        lines += QStringLiteral(" \\\\\n");
        if (row < 0)
            lines += QStringLiteral("\\midrule\n");
    }
    return QStringLiteral("% needs \\usepackage{booktabs}, for some letters "
                          "\\usepackage[T1]{fontenc} too\n\\begin{tabular}{") +
           alignments + QStringLiteral("}\n\\toprule\n") + lines +
           QStringLiteral("\\bottomrule\n\\end{tabular}\n");
}
