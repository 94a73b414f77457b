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
    void randomNameLines()
    {
        static const char* const words[] = {"vname", "v",          "name", " ",          "\t", "  ",
                                            "1",     "2147483648", "23",   "+4",         "-5", ".",
                                            "a",     "\xA0",       "\x85", "-2147483648"};
        QRandomGenerator random(2);
        for (int i = 0; i < 50'000; ++i) {
            QByteArray bytes = "vname";
            for (int k = random.bounded(10); k > 0; --k)
                bytes += words[random.bounded(int(std::size(words)))];
            const QString line = linetext::trimmed(QString::fromLatin1(bytes)).toString();
            QString name;
            QString plainName;
            const int index = linetext::parseName(line, name);
            QVERIFY2(index == pelmora::plain::parseNameLine(line, plainName), bytes.constData());
            QCOMPARE(name, plainName);
        }
    }
};

QTEST_GUILESS_MAIN(TestLineText)
#include "tst_linetext.moc"
