// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "input/asciidatareader.h"

#include "input/asciidata.h"
#include "input/inputfile.h"
#include "plain/reader.h"
#include "support/dialogscript.h"

#include <QRandomGenerator>
#include <QTest>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

using pelmora::Matrix;

namespace {

/// The bytes of a random file: mostly rows of numbers, spoilt here and there.
class RandomFile
{
public:
    explicit RandomFile(quint32 seed) : m_random(seed) {}

    QByteArray next()
    {
        m_columns = m_random.bounded(1, 5);
        m_spoilt = m_random.bounded(2) == 0 ? 40 : 4;
        QByteArray bytes;
        for (int i = m_random.bounded(12); i > 0; --i)
            bytes += m_random.bounded(12) == 0 ? nameLine() : row();
        return bytes;
    }

private:
    bool rarely() { return m_random.bounded(1000) < m_spoilt; }
    template <typename T, std::size_t N>
    const T& oneOf(const T (&choices)[N])
    {
        return choices[m_random.bounded(int(N))];
    }

    QByteArray nameLine()
    {
        static const char* const names[] = {"A", "Body mass", "", "5", "vname 2"};
        return "vname\t" + QByteArray::number(m_random.bounded(8)) + '\t' + oneOf(names) +
               lineEnd();
    }

    QByteArray row()
    {
        QByteArray line;
        const int columns = rarely() ? m_random.bounded(7) : m_columns;
        for (int c = 0; c < columns; ++c)
            line += blank() + entry();
        return line + (m_random.bounded(5) == 0 ? blank() : "") + lineEnd();
    }

    QByteArray entry()
    {
        static const char* const odd[] = {"-", ".", "1-2", "1.2.3", "x", "1e3", ",", "\x85"};
        static const char* const formed[] = {"+.5", "7.", "0012", "-0", "0.30000000000000004"};
        if (rarely())
            return oneOf(odd);
        if (m_random.bounded(6) == 0)
            return oneOf(formed);
        return QByteArray::number(m_random.generateDouble() * 200 - 100, 'f', m_random.bounded(15));
    }

    QByteArray blank()
    {
        static const char* const blanks[] = {" ", " ", "\t", "  ", "\v\f", "\xA0"};
        return oneOf(blanks);
    }

    QByteArray lineEnd()
    {
        static const char* const ends[] = {"\n", "\n", "\n", "\r\n", "\r", "\n\n"};
        return rarely() ? QByteArray("\0 9\r8\n", 6) : QByteArray(oneOf(ends));
    }

    QRandomGenerator m_random;
    int m_columns = 1;
    int m_spoilt = 0;
};

constexpr double untouched = 1234.5678;

void setUntouched(AsciiData& data)
{
    data.forEachCell([](double* cell) {
        *cell = untouched;
        return true;
    });
}

bool sameBits(const Matrix& a, const Matrix& b)
{
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            if (std::bit_cast<std::uint64_t>(a[i][j]) != std::bit_cast<std::uint64_t>(b[i][j]))
                return false;
    return a.rows() == b.rows() && a.columns() == b.columns();
}

QStringList plainTexts(const std::vector<std::string>& names)
{
    QStringList texts;
    for (const std::string& name : names)
        texts << QString::fromLatin1(name.c_str());
    return texts;
}

} // namespace

class TestAsciiDataReader : public QObject
{
    Q_OBJECT

private slots:
    void faults_data();
    void faults();
    void numbersAndNames();
    void negativeZeroAndUnusualNumbers();
    void names_data();
    void names();
    void noNumbersAtAll_data();
    void noNumbersAtAll();
    void containerOfAnotherSize();
    void randomFilesAgainstThePlainReader();
};

void TestAsciiDataReader::faults_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const auto count = [](int line) {
        return QStringLiteral("Line %1 has different number of entries compared to line no.1.")
            .arg(line);
    };
    const auto number = [](int line, int column, const char* entry) {
        return QStringLiteral("Entry in line %1 and column %2 is not a number: %3")
            .arg(line)
            .arg(column)
            .arg(QLatin1String(entry));
    };
    QTest::newRow("none") << QByteArray("1 2\n3 4\n") << QString();
    QTest::newRow("no lines") << QByteArray("a\n1,2\n") << QString();
    QTest::newRow("shorter") << QByteArray("1 2 3\n4 5 6\n7 8\n") << count(2);
    QTest::newRow("longer") << QByteArray("1 2\n1 2 3\n") << count(1);
    QTest::newRow("others do not count") << QByteArray("a\n1\n\nvname 1 B\n2 3\n") << count(1);
    QTest::newRow("blank line") << QByteArray("1\n2\n \n3\n") << count(2);
    QTest::newRow("sign alone") << QByteArray("1 - 3\n") << number(0, 1, "-");
    QTest::newRow("letter makes it another line") << QByteArray("1 2\n1 x 3\n") << QString();
    QTest::newRow("in a later line") << QByteArray("1 2\n3 4\n5 6.7.8\n") << number(2, 1, "6.7.8");
    QTest::newRow("length before number") << QByteArray("1 2\n3 . 4\n") << count(1);
    QTest::newRow("first fault counts") << QByteArray("1 2\n+ 4\n5\n") << number(1, 0, "+");
    QTest::newRow("out of range") << QByteArray(400, '9') + '\n'
                                  << number(0, 0, QByteArray(400, '9').constData());
    QTest::newRow("too long to show")
        << QByteArray(5000, '-') << number(0, 0, (QByteArray(1000, '-') + "...").constData());
}

void TestAsciiDataReader::faults()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    const InputFile file(bytes);
    DialogScript script;
    AsciiDataReader reader(file.path(), nullptr);
    QVERIFY(reader.readFile());
    QCOMPARE(reader.checkConsistency(), message.isEmpty());
    const auto box = QStringLiteral("Error while reading data|") + message;
    QCOMPARE(script.takeRecord(), message.isEmpty() ? QStringList() : QStringList(box));
}

void TestAsciiDataReader::numbersAndNames()
{
    const InputFile file("1 2 3\n4 5 6\nvname 2 Height\n");
    AsciiDataReader reader(file.path(), nullptr);
    QVERIFY(reader.readFile());
    AsciiData data;
    QVERIFY(data.allocate(reader.lineCount(), reader.columnCount()));
    QVERIFY(reader.getData(data));
    QCOMPARE(data.rows(), 2U);
    QCOMPARE(data.cols(), 3U);
    const Matrix& m = data.matrix();
    QCOMPARE(m[1] - m[0], 3);
    QCOMPARE(std::vector<double>(m[0], m[0] + 6), std::vector<double>({1, 2, 3, 4, 5, 6}));
    QCOMPARE(data.names().texts(), QStringList({"1", "Height", "3"}));
}

void TestAsciiDataReader::negativeZeroAndUnusualNumbers()
{
    const InputFile file("+0.5 -0 7. 0.1000000000000000055511151231257827\n");
    AsciiDataReader reader(file.path(), nullptr);
    QVERIFY(reader.readFile());
    AsciiData data;
    data.allocate(1, 4);
    QVERIFY(reader.getData(data));
    const double* row = data.matrix()[0];
    QVERIFY(row[0] == 0.5 && row[1] == 0 && std::signbit(row[1]) && row[2] == 7 && row[3] == 0.1);
}

void TestAsciiDataReader::names_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("names");
    const QByteArray rows = "1\n2\n3\n";
    QTest::newRow("more rows") << rows << QStringList({"1", "2", "3"});
    QTest::newRow("more columns") << QByteArray("1 2 3\n") << QStringList({"1", "2", "3"});
    QTest::newRow("ignored") << "vname 0 A\nvname B\nvname 4 C\nvname -1 D\n" + rows
                             << QStringList({"1", "2", "3"});
    QTest::newRow("later wins") << "vname 2 A\n" + rows + "vname 2 B"
                                << QStringList({"1", "B", "3"});
    QTest::newRow("empty") << "vname 1\n" + rows << QStringList({"", "2", "3"});
    QTest::newRow("Latin-1") << "vname 3 Gr\xF6\xDF"
                                "e\n" +
                                    rows
                             << QStringList({"1", "2",
                                             QString::fromLatin1("Gr\xF6\xDF"
                                                                 "e")});
    QTest::newRow("a thousand characters") << "vname 1 " + QByteArray(1000, 'n') + '\n' + rows
                                           << QStringList({QString(1000, u'n'), "2", "3"});
}

void TestAsciiDataReader::names()
{
    QFETCH(QByteArray, bytes);
    const InputFile file(bytes);
    AsciiDataReader reader(file.path(), nullptr);
    QVERIFY(reader.readFile());
    AsciiData data;
    data.allocate(reader.lineCount(), reader.columnCount());
    QVERIFY(reader.getData(data));
    QTEST(data.names().texts(), "names");
}

void TestAsciiDataReader::noNumbersAtAll_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<unsigned>("lines");
    QTest::newRow("empty file") << QByteArray() << 0U;
    QTest::newRow("text only") << QByteArray("a\nb 1\n") << 0U;
    QTest::newRow("blank lines") << QByteArray(" \n\t\n\f") << 3U;
}

void TestAsciiDataReader::noNumbersAtAll()
{
    QFETCH(QByteArray, bytes);
    const InputFile file(bytes);
    AsciiDataReader reader(file.path(), nullptr);
    QVERIFY(reader.readFile());
    QVERIFY(reader.checkConsistency());
    QTEST(reader.lineCount(), "lines");
    QCOMPARE(reader.columnCount(), 0U);
    AsciiData data;
    QVERIFY(data.allocate(reader.lineCount(), reader.columnCount()));
    QVERIFY(!reader.getData(data));
}

void TestAsciiDataReader::containerOfAnotherSize()
{
    const InputFile file("1 2 3\n4 5 6\n");
    for (const auto& [rows, columns] : {std::pair(1, 3), {2, 2}, {3, 4}, {0, 0}}) {
        AsciiDataReader reader(file.path(), nullptr);
        QVERIFY(reader.readFile());
        AsciiData data;
        data.allocate(rows, columns);
        setUntouched(data);
        QVERIFY(!reader.getData(data));
        QCOMPARE(data.matrix().rows(), rows);
        for (int r = 0; r < rows; ++r)
            for (int c = 0; c < columns; ++c)
                QCOMPARE(data.matrix()[r][c], r < 2 && c < 3 ? 3 * r + c + 1 : untouched);
    }
}

void TestAsciiDataReader::randomFilesAgainstThePlainReader()
{
    RandomFile files(3);
    int accepted = 0;
    for (int i = 0; i < 500; ++i) {
        const QByteArray bytes = files.next();
        const InputFile file(bytes);
        pelmora::plain::TextFile plain;
        QVERIFY(pelmora::plain::readFile(file.path(), plain));
        AsciiDataReader reader(file.path(), nullptr);
        QVERIFY(reader.readFile());
        QCOMPARE(reader.lineCount(), unsigned(plain.data.size()));
        QCOMPARE(reader.columnCount(), unsigned(pelmora::plain::columnCount(plain)));
        QCOMPARE(reader.dataLines(), plain.data);
        QCOMPARE(reader.nameLines(), plain.names);
        QCOMPARE(reader.otherLines(), plain.other);

        DialogScript script;
        const QString fault = pelmora::plain::firstFault(plain);
        QCOMPARE(reader.checkConsistency(), fault.isEmpty());
        QCOMPARE(script.takeRecord().join(u' ').mid(25), fault);

        AsciiData data;
        AsciiData expected;
        for (AsciiData* each : {&data, &expected}) {
            QVERIFY(each->allocate(reader.lineCount(), reader.columnCount()));
            setUntouched(*each);
        }
        const bool filled = pelmora::plain::fillMatrix(plain, expected.matrix().rowPointers());
        QCOMPARE(reader.getData(data), filled);
        QVERIFY2(sameBits(data.matrix(), expected.matrix()), bytes.constData());
        QCOMPARE(data.names().texts(), plainTexts(pelmora::plain::variableNames(plain)));
        accepted += filled;
    }
    QVERIFY(accepted > 150 && accepted < 400);
}

QTEST_MAIN(TestAsciiDataReader)
#include "tst_asciidatareader.moc"
