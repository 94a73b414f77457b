// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/kernels/alignedrows.h"
#include "numerics/memory.h"
#include "numericstest.h"
#include "support/difference.h"

#include <QTest>

using namespace pelmora;
using namespace numericstest;

class TestMemory : public QObject
{
    Q_OBJECT

private slots:
    void boundsMayBeginAnywhere();
    void emptyShapesCanBeMadeAndFreed();
    void ownersMoveAndClone();
    void workingRowsBeginOnCacheLinesAndHoldZeros();
    void theReportInForceIsReplaced();
};

void TestMemory::boundsMayBeginAnywhere()
{
    double* v = dvector(3, 5);
    v[3] = v[4] = v[5] = 1.0;
    free_dvector(v, 3);

    double** m = matrix(1, 3, -1, 1);
    for (int i = 1; i <= 3; ++i)
        for (int j = -1; j <= 1; ++j)
            m[i][j] = i * j;
    QCOMPARE(m[3] - m[2], std::ptrdiff_t(3)); // the rows follow one another
    QCOMPARE(m[2] - m[1], std::ptrdiff_t(3));
    free_matrix(m, 1, -1);
}

void TestMemory::emptyShapesCanBeMadeAndFreed()
{
    for (const auto& [rows, columns] : {std::pair(0, 0), {0, 3}, {3, 0}, {-1, -1}}) {
        const Matrix m(rows, columns);
        QVERIFY(!m.isNull());
        QCOMPARE(m.rows(), std::max(rows, 0));
        QVERIFY(!m.clone().isNull());
    }
    QVERIFY(!Vector(0).isNull());
    free_dvector(nullptr, 0);
    free_matrix(nullptr, 0, 0);
}

void TestMemory::ownersMoveAndClone()
{
    Random random(1);
    Matrix a = randomMatrix(3, 4, random);
    const Matrix copy = a.clone();
    Matrix b = std::move(a);
    QVERIFY(a.isNull() && a.rows() == 0); // NOLINT: what is left behind is defined
    QCOMPARE(difference(b, copy), QString());
    b = Matrix(2, 2);
    QCOMPARE(b.columns(), 2);

    Vector v(2);
    std::ranges::fill(v, 1.0);
    const Vector w = v.clone();
    Vector moved(5);
    moved = std::move(v);
    QCOMPARE(difference(moved, w), QString());
    QVERIFY(Vector().clone().isNull());
    QVERIFY(Matrix().clone().isNull());
}

void TestMemory::workingRowsBeginOnCacheLinesAndHoldZeros()
{
    for (int length : {1, 7, 8, 9, 500, 504, 512}) {
        AlignedRows rows(3, length);
        QVERIFY(rows.stride() >= AlignedRows::padded(length));
        QCOMPARE(rows.stride() / 8 % 2, std::ptrdiff_t(1));
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(reinterpret_cast<std::uintptr_t>(rows[i]) % 64, std::uintptr_t(0));
            QCOMPARE(std::count(rows[i], rows[i] + AlignedRows::padded(length), 0.0),
                     AlignedRows::padded(length));
        }
    }
}

void TestMemory::theReportInForceIsReplaced()
{
    const Reports reports;
    reportError("first");
    const ErrorReport ours = setErrorReport([](const char*) { Reports::texts.push_back("other"); });
    reportError("second");
    setErrorReport(nullptr);
    reportError("to standard error");
    setErrorReport(ours);
    reportError("third");
    QCOMPARE(Reports::texts, (std::vector<std::string>{"first", "other", "third"}));
}

QTEST_GUILESS_MAIN(TestMemory)
#include "tst_memory.moc"
