// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batchfolder.h"
#include "input/asciidata.h"
#include "input/correlationdata.h"
#include "input/loading.h"
#include "numerics/correlation.h"
#include "numerics/factoranalysis.h"
#include "support/datarows.h"
#include "support/difference.h"

#include <QTest>

#include <memory>

/// Runs the commands for data of any size themselves.
class TestOnePass : public QObject
{
    Q_OBJECT

private:
    /// Runs what has to succeed.
    void must(const QStringList& arguments, const QString& input = QString()) const
    {
        const Outcome outcome = m_folder->run(arguments, input);
        QVERIFY2(outcome.code == 0 && outcome.err.isEmpty(), outcome.err.constData());
    }

    std::unique_ptr<BatchFolder> m_folder;

private slots:
    void init()
    {
        m_folder = std::make_unique<BatchFolder>();
        const QByteArray box = contentsOf(PELMORA_DATA_DIR "/box-problem.txt");
        m_folder->put("box.txt", box);
        const auto half = box.indexOf('\n', box.size() / 2) + 1;
        m_folder->put("1.txt", box.first(half) + "vname 2 first\n");
        m_folder->put("2.txt", box.sliced(half) + "vname 2 later\n");
    }

    void correlatesAsTheProgramDoes()
    {
        must({"correlate", "box.txt", "-o", "box.cor"});
        AsciiData data;
        CorrelationData written;
        QVERIFY(loadDataMatrix(m_folder->path("box.txt"), data));
        QVERIFY(loadCorrelationMatrix(m_folder->path("box.cor"), written));
        QCOMPARE(written.names().texts(), data.names().first(data.cols()).texts());
        const auto expected = pelmora::formCorrelations(data.matrix(), false);
        QCOMPARE(difference(written.matrix(), expected.matrix, 1e-14), QString());
        const QByteArray text = m_folder->content("box.cor");
        QVERIFY(text.contains("\n# cases " + QByteArray::number(data.rows()) + '\n'));
        QCOMPARE(text.count("\n# moments "), qsizetype(data.cols()));
    }

    void partsGiveTheBitsOfTheWhole()
    {
        must({"correlate", "1.txt", "2.txt", "-o", "whole.cor"});
        const QByteArray whole = m_folder->content("whole.cor");
        QVERIFY(whole.contains("\nvname\t2\tlater\n"));

        must({"sums", "1.txt", "-o", "1.sums"});
        must({"sums", "2.txt", "-o", "2.sums"});
        must({"merge", "1.sums", "2.sums", "-o", "both.sums"});
        must({"merge", "1.sums", "2.sums", "-o", "parts.cor"});
        must({"merge", "both.sums", "-o", "both.cor"});
        must({"correlate", "1.txt", "-", "-o", "input.cor"}, "2.txt");
        for (const char* name : {"parts.cor", "both.cor", "input.cor"})
            QCOMPARE(m_folder->content(name), whole);
        const Outcome printed = m_folder->run({"sums", "1.txt"});
        QCOMPARE(printed.out, m_folder->content("1.sums"));
        QVERIFY(printed.out.startsWith("PELMSUM1"));
    }

    void rangesGiveTheWhole()
    {
        must({"correlate", "box.txt", "-o", "whole.cor"});
        QStringList merge = {"merge"};
        const auto size = m_folder->content("box.txt").size();
        for (qsizetype from = 0; from < size; from += 777) {
            const QString name = QString::number(from) + ".sums";
            must({"sums", "box.txt", "--from", QString::number(from), "--to",
                  QString::number(from + 777), "-o", name});
            merge.append(name);
        }
        must(merge + QStringList{"-o", "ranges.cor"});
        CorrelationData whole;
        CorrelationData ranges;
        QVERIFY(loadCorrelationMatrix(m_folder->path("whole.cor"), whole));
        QVERIFY(loadCorrelationMatrix(m_folder->path("ranges.cor"), ranges));
        QCOMPARE(difference(ranges.matrix(), whole.matrix(), 1e-14), QString());
    }

    void refuses_data()
    {
        const DataRows<QByteArray, QStringList, int, QByteArray> row("text", "arguments", "code",
                                                                     "message");
        const QStringList one = {"correlate", "in.txt", "-o", "out.cor"};
        const QStringList second = {"correlate", "2.txt", "in.txt", "-o", "out.cor"};
        row("constant", "1 0.1 2\n2 0.1 4\nvname 2 Weight\n", one, 1,
            "in.txt: Variable 2 (Weight) is constant: it has no correlations.");
        row("too large", "1 1" + QByteArray(200, '0') + "\n2 0\n3 5\n", one, 1,
            "in.txt: Variable 2 (2) is too large to be correlated.");
        row("one case", "1 2\n", one, 1,
            "in.txt: Correlations need at least 2 cases, but there is 1.");
        row("no case", "a, b\n", one, 1, "in.txt: Error in data matrix.");
        row("a fault", "1 2\n3 4\n5 -\n", one, 1,
            "in.txt: Entry in line 2 and column 1 is not a number: -");
        row("other columns", "1 2\n3 4\n", second, 1,
            "in.txt: Line 0 has different number of entries compared to line no.1.");
        row("no file", "", {"correlate", "none.txt", "-o", "out.cor"}, 1,
            "none.txt: Cannot open file none.txt");
        row("no folder", "1 2\n3 5\n", {"correlate", "in.txt", "-o", "none/out.cor"}, 3,
            "none/out.cor: Cannot write: No such file or directory");
        row("full disk", "1 2\n3 5\n", {"sums", "in.txt", "-o", "/dev/full"}, 3,
            "/dev/full: Cannot write: No space left on device");
        row("output is input", "1 2\n3 5\n", {"sums", "in.txt", "-o", "in.txt"}, 2,
            "pelmora-batch sums: the output in.txt is an input\nTry \"pelmora-batch sums "
            "--help\".");
        row("unknown ending", "1 2\n3 5\n", {"correlate", "in.txt", "-o", "out.txt"}, 2,
            "pelmora-batch correlate: \"out.txt\" does not end in .cor\n"
            "Try \"pelmora-batch correlate --help\".");
        row("no number", "1 2\n", {"sums", "in.txt", "--from", "-1"}, 2,
            "pelmora-batch sums: --from cannot be \"-1\"\nTry \"pelmora-batch sums --help\".");
    }

    void refuses()
    {
        QFETCH(QByteArray, text);
        QFETCH(QStringList, arguments);
        QFETCH(int, code);
        QFETCH(QByteArray, message);
        m_folder->put("in.txt", text);
        const Outcome outcome = m_folder->run(arguments);
        QCOMPARE(outcome.err, message + '\n');
        QCOMPARE(outcome.code, code);
        QVERIFY(!m_folder->files().contains("out.cor"));
        QCOMPARE(m_folder->content("in.txt"), text);
    }

    /// No file may be taken for more than it holds.
    void damagedSums()
    {
        must({"sums", "1.txt", "-o", "whole.sums"});
        const QByteArray whole = m_folder->content("whole.sums");
        QByteArray manyColumns = whole;
        manyColumns.replace(8, 4, "\xff\xff\xff\x7f");
        for (const QByteArray& bytes : {QByteArray(), QByteArray("PELMSUM2"), whole.first(8),
                                        whole.first(300), manyColumns}) {
            m_folder->put("cut.sums", bytes);
            const Outcome outcome = m_folder->run({"merge", "cut.sums", "-o", "out.cor"});
            QCOMPARE(outcome.err, QByteArray("cut.sums: This is not a whole file of sums.\n"));
            QCOMPARE(outcome.code, 1);
        }
        m_folder->put("narrow.txt", "1 2\n2 5\n");
        must({"sums", "narrow.txt", "-o", "narrow.sums"});
        QCOMPARE(m_folder->run({"merge", "whole.sums", "narrow.sums", "-o", "out.cor"}).code, 1);
        QVERIFY(!m_folder->files().contains("out.cor"));
    }

    void scoresAreThoseOfThePages_data()
    {
        const DataRows<QString, QString> row("page", "file");
        row("Varimax", "varimax", "box_3.fma");
        row("Pelmora", "pelmora", "box_3.fok");
        row("initial", "initial", "box_3.fini");
    }

    void scoresAreThoseOfThePages()
    {
        QFETCH(QString, page);
        QFETCH(QString, file);
        must({"analyse", "box.txt", "--factors", "3", "--json", "box.json", "--write", "scores",
              "--precision", "9", "--quiet"});
        const QStringList score = {"score", "box.txt", "-c", "box.json", "--page", page};
        const Outcome outcome = m_folder->run(score);
        QCOMPARE(outcome.code, 0);
        QCOMPARE(outcome.out.simplified(), m_folder->content(file).simplified());
        QCOMPARE(outcome.out.count('\t'), m_folder->content(file).count('\n') * 2);
        const Outcome rounded = m_folder->run(score + QStringList{"--precision", "2"});
        QCOMPARE(rounded.out.count('\t'), outcome.out.count('\t'));
        QVERIFY(rounded.out.size() < outcome.out.size());
    }

    void newCasesAreScoredByTheAnalysis_data()
    {
        const DataRows<QStringList, QByteArray> row("arguments", "message");
        row("other columns", {"in.txt", "-c", "a.json"},
            "in.txt: There are 2 columns, but 20 variables in the analysis.\n");
        row("no analysis", {"1.txt", "-c", "1.txt"},
            "1.txt: This is not an analysis that was written by \"analyse --json\".\n");
        row("several analyses", {"1.txt", "-c", "array.json"},
            "array.json: There are several analyses in this file; scores need one.\n");
    }

    void newCasesAreScoredByTheAnalysis()
    {
        QFETCH(QStringList, arguments);
        const QStringList score = {"score", "--page", "varimax", "-o", "out"};
        must({"analyse", "1.txt", "--factors", "2", "--json", "a.json", "--quiet"});
        must(score + QStringList{"-c", "a.json", "1.txt", "2.txt"});
        const QByteArray before = m_folder->content("out");
        QCOMPARE(before.count('\n'), 20);
        m_folder->put("in.txt", "1 2\n3 4\n");
        m_folder->put("array.json", "[" + m_folder->content("a.json") + "]");
        const Outcome refused = m_folder->run(score + arguments);
        QTEST(refused.err, "message");
        QCOMPARE(refused.code, 1);
        QCOMPARE(m_folder->content("out"), before);
    }
};

QTEST_GUILESS_MAIN(TestOnePass)
#include "tst_onepass.moc"
