// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batchfolder.h"
#include "support/datarows.h"
#include "support/difference.h"
#include "support/samplefile.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

/// Runs the program itself, in a folder of its own for each test.
class TestAnalyse : public QObject
{
    Q_OBJECT

private:
    Outcome run(const QStringList& arguments, const QString& output = {}) const
    {
        return m_folder->run(QStringList("analyse") + arguments, {}, output);
    }
    static bool runTour(const QString& folder)
    {
        QProcess process;
        process.start(QStringLiteral(PELMORA_TOUR), {folder});
        return process.waitForFinished(120000) && process.exitCode() == 0;
    }

    std::unique_ptr<BatchFolder> m_folder;

private slots:
    void init()
    {
        m_folder = std::make_unique<BatchFolder>();
        for (const char* sample : {"box-problem.txt", "harman-24-psychological-tests.cor"})
            QVERIFY(
                QFile::copy(QStringLiteral(PELMORA_DATA_DIR "/") + sample, m_folder->path(sample)));
    }

    void exportsEqualTheProgram_data()
    {
        const DataRows<QStringList, QString, QString, int> row("arguments", "stem", "shown",
                                                               "factors");
        row("data", {"box-problem.txt", "--write", "cor,eig,vec,ini,loadings,scores,diagram"},
            "box-problem", "box", 3);
        row("correlations",
            {"harman-24-psychological-tests.cor", "--correlations", "--write",
             "eig,vec,ini,loadings,diagram"},
            "harman-24-psychological-tests", "harman", 5);
    }

    /// The tour presses the buttons of the real pages, with the preset precision.
    void exportsEqualTheProgram()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, stem);
        QFETCH(QString, shown);
        QFETCH(int, factors);
        static const QTemporaryDir tour;
        if (QDir(tour.path()).isEmpty())
            QVERIFY(runTour(tour.path()));

        QCOMPARE(run(arguments + QStringList{"--precision", "2"}).code, 0);
        QMap<QString, QString> pairs = {{"%1.cor", "%2-correlations.cor"},
                                        {"%1.eig", "%2-pca.eig"},
                                        {"%1.vec", "%2-pca.vec"},
                                        {"%1.ini", "%2-pca.ini"},
                                        {"%1_%3.okt", "%2-pelmora-%3-loadings.txt"},
                                        {"%1_%3.max", "%2-varimax-%3-loadings.txt"},
                                        {"%1_%3.ini", "%2-initial-%3-loadings.txt"},
                                        {"%1_%3_okt.png", "%2-pelmora-%3-image.png"},
                                        {"%1_%3_max.png", "%2-varimax-%3-image.png"},
                                        {"%1_%3_ini.png", "%2-initial-%3-image.png"}};
        if (shown == u"box")
            pairs.insert({{"%1_%3.fok", "%2-pelmora-%3-scores.txt"},
                          {"%1_%3.fma", "%2-varimax-%3-scores.txt"},
                          {"%1_%3.fini", "%2-initial-%3-scores.txt"}});
        else
            pairs.remove("%1.cor");
        for (auto pair = pairs.cbegin(); pair != pairs.cend(); ++pair) {
            const auto name = [&](QString pattern) {
                return pattern.replace("%1", stem)
                    .replace("%2", shown)
                    .replace("%3", QString::number(factors));
            };
            const QByteArray expected = contentsOf(tour.filePath(name(pair.value())));
            QVERIFY2(m_folder->content(name(pair.key())) == expected, qPrintable(name(pair.key())));
        }
        QCOMPARE(m_folder->files().size(), 2 + pairs.size());
    }

    void refusesUsage_data()
    {
        const DataRows<QString, QString> rows("arguments", "told");
        const auto row = [&rows](const char* arguments, const QString& told) {
            rows(arguments, arguments, told);
        };
        row("", "a file is missing");
        row("a.txt --factors 0", "--factors cannot be \"0\"");
        row("a.txt --factors -1", "--factors cannot be \"-1\"");
        row("a.txt --factors all", "--factors cannot be \"all\"");
        row("a.txt --rotation varimax,oblimin", "--rotation cannot be \"varimax,oblimin\"");
        row("a.txt --write loadings,", "--write cannot be \"loadings,\"");
        row("a.txt --precision 10", "--precision cannot be \"10\"");
        row("a.txt --diagram gif", "--diagram cannot be \"gif\"");
        row("a.txt --report a.doc", "--report cannot be \"a.doc\"");
        row("a.txt --report a", "--report cannot be \"a\"");
        row("a.txt --out nowhere", "there is no folder \"nowhere\"");
        row("a.txt --out", "--out needs a value");
        row("a.txt --frob", "there is no option \"--frob\"");
        row("a.txt -q", "there is no option \"-q\"");
        row("a.txt --row-wise --correlations", "--row-wise is for data, not for --correlations");
        row("a.txt --correlations --write scores", "scores need data, not --correlations");
        row("a.txt --cases 5", "--cases is for --correlations; data tell it themselves");
        row("a.txt --correlations --cases 0", "--cases cannot be \"0\"");
        row("a.txt --correlations --cases 2147483648", "--cases cannot be \"2147483648\"");
        row("a.cor --correlations --write cor", "the output %1/a.cor is an input");
        row("a.txt --json a.txt", "the output %1/a.txt is an input");
        row("a.txt --json link.txt", "the output %1/link.txt is an input");
        row("a.txt --report r.html --json r.html", "two outputs would be named %1/r.html");
        row("a.txt sub/a.txt --out .", "two outputs would be named %1/a_M.okt");
        row("a.txt a.txt --factors 2", "two outputs would be named %1/a_2.okt");
        row("a.txt a_3.txt --write ini,loadings", "two outputs could be named %1/a_3.ini");
    }

    void refusesUsage()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, told);
        m_folder->put("a.txt", "1 2\n2 1\n3 5\n");
        m_folder->put("a_3.txt", "1 2\n2 1\n3 5\n");
        m_folder->put("a.cor", "1 .5\n.5 1\n");
        QVERIFY(QFile::link(m_folder->path("a.txt"), m_folder->path("link.txt")));
        const QStringList before = m_folder->files();
        const Outcome outcome = run(arguments.split(u' ', Qt::SkipEmptyParts));
        QCOMPARE(outcome.code, 2);
        const QString folder = QDir(m_folder->path({})).canonicalPath();
        QCOMPARE(QString::fromUtf8(outcome.err.split('\n').first()),
                 "pelmora-batch analyse: " + told.replace("%1", folder));
        QCOMPARE(m_folder->files(), before);
    }

    void inputsAreRefusedOneByOne()
    {
        m_folder->put("ragged.txt", "1 2\n3\n");
        m_folder->put("one.txt", "1\n2\n4\n");
        const Outcome outcome =
            run({"ragged.txt", "missing.txt", "one.txt", "box-problem.txt", "--factors", "2",
                 "--json", "-", "--write", "loadings", "--write", "eig", "--quiet"});
        QCOMPARE(outcome.code, 1);
        QCOMPARE(outcome.err,
                 "ragged.txt: Line 1 has different number of entries compared to line "
                 "no.1.\nmissing.txt: Cannot open file missing.txt\none.txt: 2 factors "
                 "asked for, but there are 1 variables\n");
        // The last of a repeated option counts.
        QCOMPARE(m_folder->files().filter(QRegularExpression("eig|okt")),
                 QStringList("box-problem.eig"));

        const QJsonArray all = QJsonDocument::fromJson(outcome.out).array();
        QCOMPARE(all.size(), 4);
        const QJsonObject ragged = all[0].toObject();
        QCOMPARE(ragged.keys(), QStringList({"input", "messages", "version"}));
        QCOMPARE(ragged["input"].toObject()["sha256"].toString(),
                 "0b7c61ec062aaab1e08e56c71f88ee85be1751d0131a5b9c6dce067ba1791b11");
        QCOMPARE(ragged["messages"].toArray()[0].toObject()["severity"].toString(), "information");
        QCOMPARE(ragged["messages"].toArray()[0].toObject()["title"].toString(),
                 "Error while reading data");
        QVERIFY(all[1].toObject()["input"].toObject()["sha256"].isNull());
        QCOMPARE(all[3].toObject()["input"].toObject()["file"].toString(), "box-problem.txt");
    }

    void jsonHoldsTheNumbers()
    {
        // Two variables that correlate by -0.5; names with what JSON and Latin-1 make of them.
        m_folder->put("r.cor", "1 -0.5\n-0.5 1\nvname 1 a\"b\\\nvname 2 \xfc\n");
        const Outcome outcome = run({"r.cor", "--correlations", "--json", "-", "--cases", "7"});
        QCOMPARE(outcome.code, 0);
        const QJsonObject analysis = QJsonDocument::fromJson(outcome.out).object();
        const QJsonObject input = analysis["input"].toObject();
        QCOMPARE(input["kind"].toString(), "correlations");
        QCOMPARE(input["cases"].toInt(), 7);
        QCOMPARE(input["names"].toArray(), QJsonArray({"a\"b\\", QString(QChar(0xfc))}));
        QVERIFY(analysis["means"].isNull());
        QCOMPARE(analysis["eigenvalues"].toArray(), QJsonArray({1.5, 0.5}));
        const QJsonArray pages = analysis["pages"].toArray();
        QCOMPARE(pages.size(), 3);
        const QJsonObject initial = pages[2].toObject();
        QCOMPARE(initial["rotation"].toString(), "initial");
        QCOMPARE(initial["factors"].toInt(), 2);
        QVERIFY(!initial.contains("scores"));
        const QJsonArray loadings = initial["loadings"].toArray();
        for (int i = 0; i < 2; ++i) {
            const QJsonArray row = loadings[i].toArray();
            const double communality = initial["communalities"].toArray()[i].toDouble();
            QCOMPARE(difference(std::abs(row[0].toDouble()), std::sqrt(0.75), 1e-15), QString());
            QCOMPARE(difference(communality, 1.0, 1e-15), QString());
        }
        QCOMPARE(initial["minimalPairs"].toArray().size(), 2);
        QCOMPARE(initial["minimalPairs"].toArray()[0].toArray().size(), 1);
    }

    void endsWithFourForWhatIsNotFinite()
    {
        m_folder->put("constant.txt", "1 2 7\n2 1 7\n3 5 7\n");
        const Outcome outcome = run({"constant.txt", "--json", "-", "--quiet"});
        QCOMPARE(outcome.code, 4);
        QCOMPARE(outcome.err, "constant.txt: Error: no convergence in finding eigen values.\n");
        const QJsonObject analysis = QJsonDocument::fromJson(outcome.out).object();
        QVERIFY(analysis["correlations"].toArray()[0].toArray()[2].isNull());
        QCOMPARE(analysis["messages"].toArray().size(), 1);
        QCOMPARE(analysis["pages"].toArray().size(), 3);
    }

    void tellsAdequacy()
    {
        const QStringList harman = {"harman-24-psychological-tests.cor", "--correlations",
                                    "--factors", "parallel", "--quiet"};
        const Outcome unknown = run(harman);
        QCOMPARE(unknown.code, 1);
        QCOMPARE(unknown.err, "harman-24-psychological-tests.cor: Parallel analysis: cannot be "
                              "computed: the number of cases is not known\n");

        const Outcome known = run(
            harman + QStringList{"--cases", "145", "--json", "-", "--write", "adequacy,loadings"});
        QCOMPARE(known.code, 0);
        QVERIFY(m_folder->files().contains("harman-24-psychological-tests_3.okt"));
        const QByteArray file = m_folder->content("harman-24-psychological-tests.adequacy");
        for (const char* line : {"\nKMO\t\t\t0.881333502\tmeritorious\n",
                                 "\nMSA\t1\t\"Visual perception\"\t0.897801333\t\n",
                                 "\nRandomQuantile\t1\t\t1.970272149\t\n"})
            QVERIFY2(file.contains(line), line);
        const auto adequacy = QJsonDocument::fromJson(known.out).object()["adequacy"].toObject();
        QCOMPARE(difference(adequacy["lnDeterminant"].toDouble(), -11.4367092231635, 1e-10),
                 QString());
        QCOMPARE(adequacy["parallel"].toObject()["byMean"].toInt(), 4);
        QCOMPARE(adequacy["antiImage"].toArray().size(), 24);
        QVERIFY(adequacy["reasons"].toObject().isEmpty());

        // Singular; that is no fault.
        const Outcome box =
            run({"box-problem.txt", "--json", "-", "--write", "adequacy", "--quiet"});
        QCOMPARE(box.code, 0);
        const auto singular = QJsonDocument::fromJson(box.out).object()["adequacy"].toObject();
        QVERIFY(singular["kmo"].isNull());
        QVERIFY(
            singular["reasons"].toObject()["kmo"].toString().startsWith("the matrix is singular"));
        QCOMPARE(singular["empiricalKaiser"].toObject()["factors"].toInt(), 3);
    }

    void tellsWhatCannotBeWritten()
    {
        // A folder stands where the file should.
        QVERIFY(QDir(m_folder->path({})).mkdir("box-problem.eig"));
        const Outcome folder = run({"box-problem.txt", "--write", "eig,vec", "--quiet"});
        QCOMPARE(folder.code, 3);
        QVERIFY2(
            folder.err.startsWith(m_folder->path("box-problem.eig").toUtf8() + ": Cannot write: "),
            folder.err.constData());
        QVERIFY(m_folder->files().contains("box-problem.vec"));
        if (!QFile::exists("/dev/full"))
            return;
        for (const QStringList& arguments : {QStringList{"--json", "-"}, {"--json", "/dev/full"}}) {
            const Outcome full = run(QStringList("box-problem.txt") + arguments, "/dev/full");
            QCOMPARE(full.code, 3);
            QVERIFY2(full.err.contains("No space left on device"), full.err.constData());
        }
    }

    void givesTheSameBytesAgain()
    {
        const QStringList arguments = {
            "box-problem.txt", "--json",       "-",
            "--write",         "scores,pairs", "--rotation=initial,pelmora"};
        const Outcome first = run(arguments);
        const QByteArray pairs = m_folder->content("box-problem_3_okt.pairs");
        QVERIFY(pairs.startsWith("Factor\tRank\tNumber1\tVariable1\tLoading1\tNumber2\t"));
        QCOMPARE(pairs.count('\n'), 1 + 3 * 3);
        const Outcome second = run(arguments);
        QCOMPARE(first.code, 0);
        QCOMPARE(first.out, second.out);
        QCOMPARE(pairs, m_folder->content("box-problem_3_okt.pairs"));
    }

    void reportsTellWhatWasFound()
    {
        m_folder->put("pipes.txt", "1 2\n2 1\n3 5\n4 4\nvname 1 a|b<c>\nvname 2 \xfc\n");
        const QStringList files = {"box-problem.txt", "missing.txt", "pipes.txt", "--quiet"};
        QMap<QString, QByteArray> reports;
        for (int round = 0; round < 2; ++round)
            for (const QString& name : QStringList{"r.md", "r.html", "r.pdf"}) {
                QCOMPARE(run(files + QStringList{"--report", name}).code, 1);
                const QByteArray report = m_folder->content(name);
                QVERIFY(report.size() > 1000);
                QVERIFY2(round == 0 || report == reports[name], qPrintable(name + " differs"));
                reports[name] = report;
            }
        QVERIFY(reports["r.pdf"].contains("/CreationDate (D:19700101000000Z)"));
        for (const char* part :
             {"## box-problem.txt", "Data of 20 variables, 20 cases.",
              "Cannot open file missing.txt", "| 1 | 12.61 | 63.07 | 63.07 |", "Factors taken: 3",
              "(r-1_okt.png)", "| a\\|b\\<c\\> |", "Computed by Pelmora 1.0."})
            QVERIFY2(reports["r.md"].contains(part), part);
        QVERIFY(reports["r.html"].contains("<td align=\"left\">a|b&lt;c&gt;</td>"));
        QVERIFY(m_folder->files().contains("r-3_ini.png"));
        // Nothing but the report was asked for.
        QVERIFY(m_folder->files().filter("okt").filter("box-problem").isEmpty());
    }

    void drawsWithoutADisplayAndNeedsNoneOtherwise()
    {
        // Without its platforms nothing can be drawn.
        qputenv("QT_QPA_PLATFORM_PLUGIN_PATH", "/nowhere");
        qputenv("QT_PLUGIN_PATH", "/nowhere");
        const Outcome text = run({"box-problem.txt", "--json", "-", "--write", "scores,adequacy"});
        qunsetenv("QT_QPA_PLATFORM_PLUGIN_PATH");
        qunsetenv("QT_PLUGIN_PATH");
        QCOMPARE(text.code, 0);
        for (const char* kind : {"pdf", "svg"})
            QCOMPARE(run({"box-problem.txt", "--diagram", kind, "--rotation", "varimax"}).code, 0);
        QVERIFY(m_folder->content("box-problem_3_max.svg").contains("<circle"));
        QVERIFY(m_folder->content("box-problem_3_max.pdf").startsWith("%PDF"));
        QVERIFY(!m_folder->files().contains("box-problem_3.max"));
    }
};

QTEST_GUILESS_MAIN(TestAnalyse)
#include "tst_analyse.moc"
