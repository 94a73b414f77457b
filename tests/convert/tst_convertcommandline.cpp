// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/commandline.h"
#include "support/samplefile.h"

#include <QFile>
#include <QTest>

#include <filesystem>

/// How the command line ends, and what becomes of the files.
class TestConvertCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void usageIsChecked_data();
    void usageIsChecked();
    void filesAreWritten();
    void whatIsThereIsKept();
    void linksToTheInputAreSeen();
    void unreadableFilesAreToldApart();
    void oneLongLineEnds();

private:
    QString path(const char* name) const { return m_folder->filePath(QString::fromLatin1(name)); }
    void put(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    int run(const char* input, const char* output, const QStringList& options = {}) const
    {
        QString error;
        const auto arguments = convert::parseArguments(
            QStringList{path(input), QStringLiteral("-o"), path(output)} + options, error);
        return arguments ? convert::run(*arguments) : convert::refuseUsage(error);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void TestConvertCommandLine::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    put("in.csv", "a;b\n1,5;2\n3;4\n");
    put("bad.csv", "a;b\n1,5;x\n3;4\n");
    put("old", "old");
}

void TestConvertCommandLine::usageIsChecked_data()
{
    QTest::addColumn<QStringList>("words");
    const auto row = [](const char* words) {
        QTest::newRow(words) << QString::fromLatin1(words).split(u' ');
    };
    row("in.csv --decimal comma");
    row("a.csv b.csv -o c");
    row("-o c");
    row("in.csv -o c --kind numbers");
    row("in.csv -o c --decimal ,");
    row("in.csv -o c --columns 0");
    row("in.csv -o c --columns 5-2");
    row("in.csv -o c --columns 1,,2");
    row("in.csv -o c --skip +1");
    row("in.csv -o c --encoding latin-7");
    row("in.csv -o c --missing ,");
    row("in.csv -o c --unknown");
    row("in.csv -o c --separator");
}

void TestConvertCommandLine::usageIsChecked()
{
    QFETCH(QStringList, words);
    QString error;
    QVERIFY(!convert::parseArguments(words, error));
    QVERIFY(!error.isEmpty());
}

void TestConvertCommandLine::filesAreWritten()
{
    QCOMPARE(run("in.csv", "out.dat", {"--report", path("report")}), int(convert::Written));
    QCOMPARE(contentsOf(path("out.dat")), QByteArray("1.5\t2\n3\t4\nvname\t1\ta\nvname\t2\tb\n"));
    QVERIFY(contentsOf(path("report")).contains("Result: 2 rows and 2 columns"));
}

void TestConvertCommandLine::whatIsThereIsKept()
{
    QCOMPARE(run("in.csv", "old"), int(convert::CannotReadOrWrite));
    QCOMPARE(run("bad.csv", "old", {"--force"}), int(convert::Refused));
    QCOMPARE(run("in.csv", "new", {"--report", path("old")}), int(convert::CannotReadOrWrite));
    QCOMPARE(contentsOf(path("old")), QByteArray("old"));
    QVERIFY(!QFile::exists(path("new")));
    QCOMPARE(run("in.csv", "old", {"--force", "--report", path("report")}), int(convert::Written));
    QVERIFY(contentsOf(path("old")).startsWith("1.5\t2\n"));
}

void TestConvertCommandLine::linksToTheInputAreSeen()
{
    const QByteArray before = contentsOf(path("in.csv"));
    QVERIFY(QFile::link(path("in.csv"), path("soft")));
    std::filesystem::create_hard_link(path("in.csv").toStdString(), path("hard").toStdString());
    for (const char* same : {"in.csv", "soft", "hard"}) {
        QCOMPARE(run("in.csv", same, {"--force"}), int(convert::Refused));
        QCOMPARE(run("in.csv", "new", {"--force", "--report", path(same)}), int(convert::Refused));
    }
    QCOMPARE(run("in.csv", "new", {"--report", path("new")}), int(convert::Refused));
    QCOMPARE(contentsOf(path("in.csv")), before);
    QVERIFY(!QFile::exists(path("new")));
}

void TestConvertCommandLine::unreadableFilesAreToldApart()
{
    QCOMPARE(run("absent", "out"), int(convert::CannotReadOrWrite));
    QCOMPARE(run(".", "out"), int(convert::CannotReadOrWrite));
    QCOMPARE(run("in.csv", "."), int(convert::CannotReadOrWrite));
    QCOMPARE(run("in.csv", "absent/out"), int(convert::CannotReadOrWrite));
    QVERIFY(!QFile::exists(path("out")));
}

void TestConvertCommandLine::oneLongLineEnds()
{
    put("letters.csv", QByteArray(50 << 20, 'x'));
    QCOMPARE(run("letters.csv", "out"), int(convert::Refused));
    QByteArray numbers(50 << 20, '1');
    for (qsizetype i = 1; i < numbers.size(); i += 2)
        numbers[i] = ',';
    put("numbers.csv", numbers);
    QCOMPARE(run("numbers.csv", "out", {"--header", "yes"}), int(convert::Refused));
    QVERIFY(!QFile::exists(path("out")));
}

QTEST_GUILESS_MAIN(TestConvertCommandLine)
#include "tst_convertcommandline.moc"
