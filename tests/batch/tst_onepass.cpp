// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batchfolder.h"
#include "input/asciidata.h"
#include "input/correlationdata.h"
#include "input/loading.h"
#include "numerics/correlation.h"
#include "numerics/factoranalysis.h"

#include <QTest>

#include <cmath>
#include <memory>

/// Runs the commands for data of any size themselves.
class TestOnePass : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void correlatesAsTheProgramDoes();
    void partsGiveTheBitsOfTheWhole();
    void rangesGiveTheWhole();
    void refuses_data();
    void refuses();
    void damagedSums();
    void scoresAreThoseOfThePages();
    void newCasesAreScoredByTheAnalysis();

private:
    /// Runs what has to succeed.
    void must(const QStringList& arguments, const QString& input = QString()) const
    {
        const Outcome outcome = m_folder->run(arguments, input);
        QVERIFY2(outcome.code == 0 && outcome.err.isEmpty(), outcome.err.constData());
    }

    std::unique_ptr<BatchFolder> m_folder;
};

void TestOnePass::init()
{
    m_folder = std::make_unique<BatchFolder>();
    QFile sample(QStringLiteral(PELMORA_DATA_DIR "/box-problem.txt"));
    QVERIFY(sample.open(QIODevice::ReadOnly));
    const QByteArray box = sample.readAll();
    m_folder->put("box.txt", box);
    const auto half = box.indexOf('\n', box.size() / 2) + 1;
    m_folder->put("1.txt", box.first(half) + "vname 2 first\n");
    m_folder->put("2.txt", box.sliced(half) + "vname 2 later\n");
}

void TestOnePass::correlatesAsTheProgramDoes()
{
    must({"correlate", "box.txt", "-o", "box.cor"});
    AsciiData data;
    CorrelationData written;
    QVERIFY(loadDataMatrix(m_folder->path("box.txt"), data));
    QVERIFY(loadCorrelationMatrix(m_folder->path("box.cor"), written));
    QCOMPARE(written.names().texts(), data.names().first(data.cols()).texts());
    const auto expected = pelmora::formCorrelations(data.matrix(), false);
    QCOMPARE(written.cols(), data.cols());
    for (int j = 0; j < int(data.cols()); ++j)
        for (int k = 0; k < int(data.cols()); ++k) {
            const double error = std::fabs(written.matrix()[j][k] - expected.matrix[j][k]);
            QVERIFY2(error < 1e-14,
                     qPrintable(QStringLiteral("(%1, %2): off by %3").arg(j).arg(k).arg(error)));
        }
    const QByteArray text = m_folder->content("box.cor");
    QVERIFY(text.contains("\n# cases " + QByteArray::number(data.rows()) + '\n'));
    QCOMPARE(text.count("\n# moments "), qsizetype(data.cols()));
}

void TestOnePass::partsGiveTheBitsOfTheWhole()
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

void TestOnePass::rangesGiveTheWhole()
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
    for (int j = 0; j < int(whole.cols()); ++j)
        for (int k = 0; k < int(whole.cols()); ++k)
            QVERIFY(std::fabs(ranges.matrix()[j][k] - whole.matrix()[j][k]) < 1e-14);
}

void TestOnePass::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("message");
    const auto add = [](const char* name, const QByteArray& text, const QStringList& arguments,
                        int code, const QByteArray& message) {
        QTest::newRow(name) << text << arguments << code << message + '\n';
    };
    const QStringList one = {"correlate", "in.txt", "-o", "out.cor"};
    const QStringList second = {"correlate", "2.txt", "in.txt", "-o", "out.cor"};
    add("constant", "1 0.1 2\n2 0.1 4\nvname 2 Weight\n", one, 1,
        "in.txt: Variable 2 (Weight) is constant: it has no correlations.");
    add("too large", "1 1" + QByteArray(200, '0') + "\n2 0\n3 5\n", one, 1,
        "in.txt: Variable 2 (2) is too large to be correlated.");
    add("one case", "1 2\n", one, 1, "in.txt: Correlations need at least 2 cases, but there is 1.");
    add("no case", "a, b\n", one, 1, "in.txt: Error in data matrix.");
    add("a fault", "1 2\n3 4\n5 -\n", one, 1,
        "in.txt: Entry in line 2 and column 1 is not a number: -");
    add("other columns", "1 2\n3 4\n", second, 1,
        "in.txt: Line 0 has different number of entries compared to line no.1.");
    add("no file", "", {"correlate", "none.txt", "-o", "out.cor"}, 1,
        "none.txt: Cannot open file none.txt");
    add("no folder", "1 2\n3 5\n", {"correlate", "in.txt", "-o", "none/out.cor"}, 3,
        "none/out.cor: Cannot write: No such file or directory");
    add("full disk", "1 2\n3 5\n", {"sums", "in.txt", "-o", "/dev/full"}, 3,
        "/dev/full: Cannot write: No space left on device");
    add("output is input", "1 2\n3 5\n", {"sums", "in.txt", "-o", "in.txt"}, 2,
        "pelmora-batch sums: the output in.txt is an input\nTry \"pelmora-batch sums --help\".");
    add("unknown ending", "1 2\n3 5\n", {"correlate", "in.txt", "-o", "out.txt"}, 2,
        "pelmora-batch correlate: \"out.txt\" does not end in .cor\n"
        "Try \"pelmora-batch correlate --help\".");
    add("no number", "1 2\n", {"sums", "in.txt", "--from", "-1"}, 2,
        "pelmora-batch sums: --from cannot be \"-1\"\nTry \"pelmora-batch sums --help\".");
}

void TestOnePass::refuses()
{
    QFETCH(QByteArray, text);
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFETCH(QByteArray, message);
    m_folder->put("in.txt", text);
    const Outcome outcome = m_folder->run(arguments);
    QCOMPARE(outcome.err, message);
    QCOMPARE(outcome.code, code);
    QVERIFY(!m_folder->has("out.cor"));
    QCOMPARE(m_folder->content("in.txt"), text);
}

/// No file may be taken for more than it holds.
void TestOnePass::damagedSums()
{
    must({"sums", "1.txt", "-o", "whole.sums"});
    const QByteArray whole = m_folder->content("whole.sums");
    QByteArray manyColumns = whole;
    manyColumns.replace(8, 4, "\xff\xff\xff\x7f");
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("PELMSUM2"), whole.first(8), whole.first(300), manyColumns}) {
        m_folder->put("cut.sums", bytes);
        const Outcome outcome = m_folder->run({"merge", "cut.sums", "-o", "out.cor"});
        QCOMPARE(outcome.err, QByteArray("cut.sums: This is not a whole file of sums.\n"));
        QCOMPARE(outcome.code, 1);
    }
    m_folder->put("narrow.txt", "1 2\n2 5\n");
    must({"sums", "narrow.txt", "-o", "narrow.sums"});
    QCOMPARE(m_folder->run({"merge", "whole.sums", "narrow.sums", "-o", "out.cor"}).code, 1);
    QVERIFY(!m_folder->has("out.cor"));
}

void TestOnePass::scoresAreThoseOfThePages()
{
    must({"analyse", "box.txt", "--factors", "3", "--json", "box.json", "--write", "scores",
          "--precision", "9", "--quiet"});
    const QStringList score = {"score", "box.txt", "-c", "box.json", "--page"};
    for (const auto& [page, file] : {std::pair("varimax", "box_3.fma"), {"pelmora", "box_3.fok"}}) {
        const Outcome outcome = m_folder->run(score + QStringList(page));
        QCOMPARE(outcome.code, 0);
        QCOMPARE(outcome.out.simplified(), m_folder->content(file).simplified());
        QVERIFY(outcome.out.contains('\t'));
    }
    QCOMPARE(m_folder->run(score + QStringList{"initial", "--precision", "2"}).out.count('\t'),
             m_folder->content("box_3.fini").count('\n') * 2);
}

void TestOnePass::newCasesAreScoredByTheAnalysis()
{
    must({"analyse", "1.txt", "--factors", "2", "--json", "a.json", "--quiet"});
    const QStringList behind = {"-c", "a.json", "--page", "varimax", "-o", "out"};
    must(QStringList{"score", "1.txt", "2.txt"} + behind);
    QCOMPARE(m_folder->content("out").count('\n'), 20);
    m_folder->put("in.txt", "1 2\n3 4\n");
    m_folder->put("array.json", "[" + m_folder->content("a.json") + "]");
    const std::pair<QStringList, QByteArray> refused[] = {
        {QStringList{"score", "in.txt"} + behind,
         "in.txt: There are 2 columns, but 20 variables in the analysis.\n"},
        {{"score", "1.txt", "-c", "1.txt", "--page", "varimax", "-o", "out"},
         "1.txt: This is not an analysis that was written by \"analyse --json\".\n"},
        {{"score", "1.txt", "-c", "array.json", "--page", "varimax", "-o", "out"},
         "array.json: There are several analyses in this file; scores need one.\n"}};
    const QByteArray before = m_folder->content("out");
    for (const auto& [arguments, message] : refused) {
        const Outcome outcome = m_folder->run(arguments);
        QCOMPARE(outcome.err, message);
        QCOMPARE(outcome.code, 1);
        QCOMPARE(m_folder->content("out"), before);
    }
}

QTEST_GUILESS_MAIN(TestOnePass)
#include "tst_onepass.moc"
