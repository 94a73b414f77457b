// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidata.h"

#include "numerics/errorreport.h"
#include "support/datarows.h"

#include <QTest>

#include <climits>
#include <numeric>

class TestAsciiData : public QObject
{
    Q_OBJECT

private slots:
    void allocates_data()
    {
        const DataRows<unsigned, unsigned, bool> row("rows", "columns", "fits");
        constexpr unsigned most = INT_MAX;
        row("ordinary", 2, 3, true);
        row("no row", 0, 3, true);
        row("no column", 3, 0, true);
        row("empty", 0, 0, true);
        row("too many cells", most, most, false);
        row("too many rows", most + 1, 1, false);
        row("too many columns", 1, UINT_MAX, false);
    }

    /// Over what it had before, and again after a failure.
    void allocates()
    {
        QFETCH(unsigned, rows);
        QFETCH(unsigned, columns);
        QFETCH(bool, fits);
        AsciiData data;
        const auto before = pelmora::setErrorReport([](const char*) {});
        for (int time = 0; time < 2; ++time) {
            QVERIFY(data.allocate(2, 1));
            QCOMPARE(data.allocate(rows, columns), fits);
            QCOMPARE(data.rows(), fits ? rows : 0U);
            QCOMPARE(data.cols(), fits ? columns : 0U);
            QCOMPARE(data.matrix().isNull(), !fits);
        }
        pelmora::setErrorReport(before);
    }

    void visitsCellsUntilOneFails()
    {
        AsciiData data;
        data.allocate(2, 2);
        double* cells = data.matrix()[0];
        std::iota(cells, cells + 4, 0);
        QVERIFY(!data.forEachCell([](double* cell) { return (*cell += 10) < 12; }));
        QCOMPARE(std::vector<double>(cells, cells + 4), std::vector<double>({10, 11, 12, 3}));

        data.setNames(VariableNames(2));
        data.clear();
        QVERIFY(data.matrix().isNull() && data.names().isEmpty());
        // The counts stay.
        QVERIFY(data.rows() == 2 && data.cols() == 2);
        QVERIFY(data.forEachCell([](double*) { return false; }));
    }

    void defaultNames()
    {
        VariableNames names(3);
        names.set(1, "B");
        names.set(3, "beyond");
        QCOMPARE(names.first(2).texts(), QStringList({"1", "B"}));
        QCOMPARE(names.first(5).texts(), QStringList({"1", "B", "3", "4", "5"}));
        names.set(1, "2");
        QCOMPARE(names.texts(), QStringList({"1", "2", "3"}));
    }

    void namesShowLettersAndKeepBytes()
    {
        for (int byte = 1; byte < 256; ++byte) {
            VariableNames names(1);
            names.set(0, std::string(1, static_cast<char>(byte)));
            const QString text = names.text(0);
            QVERIFY2(text[0].unicode() < 0x80 || text[0].unicode() > 0x9F, qPrintable(text));
            QVERIFY2(names.renamed({text})[0] == names[0], qPrintable(text));
            const bool hasLetter = text != QChar(QChar::ReplacementCharacter);
            QCOMPARE(hasLetter,
                     !QByteArray("\x81\x8D\x8F\x90\x9D").contains(static_cast<char>(byte)));
            const bool isLineEnd = byte == '\n' || byte == '\r';
            QCOMPARE(VariableNames::fromTexts({text})[0], isLineEnd   ? " "
                                                          : hasLetter ? names[0]
                                                                      : "?");
        }
        QCOMPARE(VariableNames::fromTexts({"\u20AC \u0151 \u0081"})[0], std::string("\x80 ? ?"));
        VariableNames names(1);
        names.set(0, "\xC3\x9C"
                     "belkeit"); // UTF-8
        QCOMPARE(names.text(0), QString("\u00C3\u0153belkeit"));
    }
};

QTEST_GUILESS_MAIN(TestAsciiData)
#include "tst_asciidata.moc"
