// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/linetext.h"

#include "plain/reader.h"

#include <QRandomGenerator>
#include <QTest>

#include <tuple>

class TestLineText : public QObject
{
    Q_OBJECT

private slots:
    void names();
    void randomNameLines();
};

void TestLineText::names()
{
    const std::tuple<const char*, int, const char*> lines[] = {
        {"vname\t12\tBody mass  index", 11, "Body mass  index"},
        {"vname 3", 2, ""},
        {"vname 0 X", -1, "X"},
        {"vname Weight", -1, ""},
        {"vname 1.0 X", -1, ""},
        {"vname 2147483648 X", -1, ""},
        {"vname -2147483648 X", -2147483648, "vname -2147483648 X"},
        {"vname 1 A  vname 2 B", 0, "A"},
        {"vname 1 vname 2 B", 0, "B"},
        {"vname\xA0\x37\xA0X\x85", 6, "X\x85"},
    };
    for (const auto& [line, index, expected] : lines) {
        QString name = QStringLiteral("before");
        QVERIFY2(linetext::parseName(QString::fromLatin1(line), name) == index, line);
        QCOMPARE(name, QString::fromLatin1(expected));
    }
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

QTEST_GUILESS_MAIN(TestLineText)
#include "tst_linetext.moc"
