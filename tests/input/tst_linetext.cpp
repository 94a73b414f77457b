// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/linetext.h"

#include "plain/reader.h"

#include <QRandomGenerator>
#include <QTest>

class TestLineText : public QObject
{
    Q_OBJECT

private slots:
    void kinds_data();
    void kinds();
    void names_data();
    void names();
    void randomNameLines();
    void entriesStandBetweenBlanks();
};

void TestLineText::kinds_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("kind");
    QTest::newRow("numbers") << "1 -2.5\t+3." << 0;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("signs only") << "+-." << 0;
    QTest::newRow("hard space") << QString(u'1') + QChar(0xA0) + u'2' << 0;
    QTest::newRow("next line is no blank") << QString(u'1') + QChar(0x85) + u'2' << 2;
    QTest::newRow("exponent") << "1.5e3 2" << 2;
    QTest::newRow("commas") << "1,2,3" << 2;
    QTest::newRow("other digits") << QString(QChar(0x0663)) << 2;
    QTest::newRow("name") << "vname 1 A" << 1;
    QTest::newRow("name without blanks") << "vnames" << 1;
    QTest::newRow("upper case") << "VNAME 1 A" << 2;
}

void TestLineText::kinds()
{
    QFETCH(QString, line);
    QTEST(int(linetext::kindOf(line)), "kind");
}

void TestLineText::names_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* line, int index, const char* name) {
        QTest::newRow(line) << QString::fromLatin1(line) << index << QString::fromLatin1(name);
    };
    row("vname 2 Height", 1, "Height");
    row("vname\t12\tBody mass  index", 11, "Body mass  index");
    row("vname 3", 2, "");
    row("vname 1 5", 0, "5");
    row("vname 0 X", -1, "X");
    row("vname", -1, "");
    row("vname Weight", -1, "");
    row("vname3 Weight", -1, "");
    row("vname3 5", 4, "5");
    row("vname 12abc", -1, "");
    row("vname 1.0 X", -1, "");
    row("vname 2147483648 X", -1, "");
    row("vname 2147483647 X", 2147483646, "X");
    row("vname -3 X", -4, "vname -3 X");
    row("vname -2147483648 X", -2147483648, "vname -2147483648 X");
    row("vname +2 X", 1, "vname +2 X");
    row("vnames 3 X", 2, "vnames 3 X");
    row("vname 1 A  vname 2 B", 0, "A");
    row("vname 1 vname 2 B", 0, "B");
    row("vname 1 vname B", 0, "vname B");
    row("vname\xA0"
        "7\xA0X\x85",
        6, "X\x85");
}

void TestLineText::names()
{
    QFETCH(QString, line);
    QString name = QStringLiteral("before");
    QTEST(linetext::parseName(line, name), "index");
    QTEST(name, "name");
}

void TestLineText::randomNameLines()
{
    static const char* const words[] = {"vname", "v",  "name", " ", "\t", "  ",  "1",
                                        "23",    "+4", "-5",   ".", "a",  "\xA0"};
    QRandomGenerator random(2);
    for (int i = 0; i < 20'000; ++i) {
        QByteArray bytes = "vname";
        for (int k = random.bounded(10); k > 0; --k)
            bytes += words[random.bounded(13)];
        const QString line = linetext::trimmed(QString::fromLatin1(bytes)).toString();
        QString name;
        QString plainName;
        const int index = linetext::parseName(line, name);
        QVERIFY2(index == pelmora::plain::parseNameLine(line, plainName), bytes.constData());
        QCOMPARE(name, plainName);
    }
}

void TestLineText::entriesStandBetweenBlanks()
{
    const QString line = QStringLiteral(" 1\t\t2,3 , 4\v") + QChar(0xA0) + u'5';
    QStringList entries;
    for (const QStringView entry : linetext::entries(line))
        entries << entry.toString();
    QCOMPARE(entries, QStringList({"1", "2", "3", "4", "5"}));
    QVERIFY(linetext::entries(u" \t ").isEmpty());
}

QTEST_GUILESS_MAIN(TestLineText)
#include "tst_linetext.moc"
