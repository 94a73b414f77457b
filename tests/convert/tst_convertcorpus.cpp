// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/arguments.h"
#include "convert/conversion.h"
#include "convert/readback.h"
#include "convert/refusal.h"
#include "convert/source.h"
#include "convert/statfile.h"
#include "input/namebytes.h"
#include "support/samplefile.h"

#include <QFile>
#include <QTest>

#include <sstream>

namespace {

const QString folder = QStringLiteral(PELMORA_SOURCE_DIR "/tests/data/convert/");

/// One entry of "ends.txt".
struct End
{
    QString file;
    QStringList options;
    bool isWritten = false;
    QStringList lines;
};

QList<End> readEnds()
{
    QList<End> ends;
    QFile file(folder + QStringLiteral("ends.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return ends;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        if (line.startsWith(u"file "))
            ends.append({line.sliced(5), {}, false, {}});
        else if (line.startsWith(u"options "))
            ends.last().options = line.sliced(8).split(u' ');
        else if (line == u"written")
            ends.last().isWritten = true;
        else if (line.startsWith(u'\t'))
            ends.last().lines << line.sliced(1);
    }
    return ends;
}

std::optional<convert::Options> optionsOf(const QStringList& words)
{
    QString error;
    const auto arguments = convert::parseArguments(
        QStringList{QStringLiteral("in"), QStringLiteral("-o"), QStringLiteral("out")} + words,
        error);
    return arguments ? std::optional(arguments->options) : std::nullopt;
}

} // namespace

/// Files with their described ends; none may give a wrong number.
class TestConvertCorpus : public QObject
{
    Q_OBJECT

private slots:
    void everyFileHasItsEnd_data();
    void everyFileHasItsEnd();

private:
    void expectReasons(const QStringList& reasons, const QStringList& expected);
    void expectFile(const convert::Conversion& conversion, const QStringList& expected);
};

void TestConvertCorpus::everyFileHasItsEnd_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<bool>("isWritten");
    QTest::addColumn<QStringList>("lines");
    const QList<End> ends = readEnds();
    QVERIFY(ends.size() > 60);
    for (const End& end : ends)
        QTest::newRow(qPrintable(end.file + u' ' + end.options.join(u' ')))
            << end.file << end.options << end.isWritten << end.lines;
}

void TestConvertCorpus::expectReasons(const QStringList& reasons, const QStringList& expected)
{
    const QString all = reasons.join(u'\n');
    for (const QString& part : expected)
        QVERIFY2(all.contains(part), qPrintable(part + " is not in: " + all));
}

void TestConvertCorpus::expectFile(const convert::Conversion& conversion,
                                   const QStringList& expected)
{
    std::ostringstream out;
    conversion.write(out);
    QCOMPARE(namebytes::toText(out.str()).split(u'\n', Qt::SkipEmptyParts), expected);
    const SampleFile written(QStringLiteral("written"), QByteArray::fromStdString(out.str()));
    const QString difference = readback::difference(written.path(), conversion);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
}

void TestConvertCorpus::everyFileHasItsEnd()
{
    QFETCH(QString, file);
    QFETCH(QStringList, words);
    QFETCH(bool, isWritten);
    QFETCH(QStringList, lines);
#ifndef PELMORA_READSTAT
    if (!convert::statFormat(folder + file).isEmpty())
        QSKIP("built without ReadStat");
#endif
    auto options = optionsOf(words);
    QVERIFY(options);
    try {
        const convert::SourceText text = convert::readSource(folder + file, *options);
        const convert::Conversion conversion(text, *options);
        QVERIFY2(conversion.isAccepted() == isWritten,
                 qPrintable("the end is another: " + conversion.reasons().join(u'\n')));
        if (isWritten)
            expectFile(conversion, lines);
        else
            expectReasons(conversion.reasons(), lines);
    } catch (const convert::Refusal& refusal) {
        QVERIFY2(!isWritten, qPrintable(refusal.reasons().join(u'\n')));
        expectReasons(refusal.reasons(), lines);
    }
}

QTEST_GUILESS_MAIN(TestConvertCorpus)
#include "tst_convertcorpus.moc"
