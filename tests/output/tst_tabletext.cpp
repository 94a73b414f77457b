// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "output/tabletext.h"

#include <QTest>

namespace {

/// One text column and one of numbers; both headings and the name are full of markup.
TableGrid oddTable()
{
    TableGrid grid;
    grid.columns = {{"a|b", false}, {"%_^", true}};
    grid.rowHeadings = {"[x] & <y>", "\u00b5 \u00df \u00e9 \u20ac"};
    grid.cell = [](int row, int column) {
        const QStringList cells[] = {{"*", "-0.12"}, {"a--b.. \\ \"q\"", "nan"}};
        return cells[row][column];
    };
    return grid;
}

} // namespace

class TestTableText : public QObject
{
    Q_OBJECT

private slots:
    void fieldsAreSeparatedByTabs()
    {
        QCOMPARE(tabSeparatedTable(oddTable()),
                 "\ta|b\t%_^\n"
                 "[x] & <y>\t*\t-0.12\n"
                 "\u00b5 \u00df \u00e9 \u20ac\ta--b.. \\ \"q\"\tnan\n");
        QCOMPARE(tabSeparatedTable({}), "\n");
    }

    void htmlAlignsNumbersRight()
    {
        const QString html = htmlTable(oddTable());
        QVERIFY(html.contains("charset=utf-8"));
        QVERIFY(html.contains("<tr><th align=\"left\"></th><th align=\"left\">a|b</th>"
                              "<th align=\"right\">%_^</th></tr>\n"
                              "<tr><td align=\"left\">[x] &amp; &lt;y&gt;</td>"
                              "<td align=\"left\">*</td><td align=\"right\">-0.12</td></tr>\n"));
    }

    void markdownIsEscaped()
    {
        QCOMPARE(markdownTable(oddTable()),
                 "|  | a\\|b | %\\_\\^ |\n"
                 "| :--- | :--- | ---: |\n"
                 "| \\[x\\] \\& \\<y\\> | \\* | -0.12 |\n"
                 "| \u00b5 \u00df \u00e9 \u20ac | a-\\-b.\\. \\\\ \\\"q\\\" | nan |\n");
    }

    void latexIsEscaped()
    {
        QCOMPARE(latexTable(oddTable()),
                 "% needs \\usepackage{booktabs}, for some letters \\usepackage[T1]{fontenc} too\n"
                 "\\begin{tabular}{llr}\n"
                 "\\toprule\n"
                 " & a\\textbar{}b & \\%\\_\\textasciicircum{} \\\\\n"
                 "\\midrule\n"
                 "{[}x] \\& \\textless{}y\\textgreater{} & {*} & $-$0.12 \\\\\n"
                 "\u00b5 \u00df \u00e9 \u20ac & a-{}-b.. \\textbackslash{} {\\char34}q{\\char34} "
                 "& nan \\\\\n"
                 "\\bottomrule\n"
                 "\\end{tabular}\n");
    }
};

QTEST_GUILESS_MAIN(TestTableText)
#include "tst_tabletext.moc"
