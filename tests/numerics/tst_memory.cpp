// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/alignedrows.h"
#include "numerics/errorreport.h"
#include "numerics/memory.h"
#include "numerics/owners.h"
#include "numericstest.h"

#include <QTest>

#include <cstdint>
#include <utility>

using namespace pelmora;
using numericstest::Reports;

class TestMemory : public QObject
{
    Q_OBJECT

private slots:
    void rowsFollowOneAnother();
    void boundsMayBeginAnywhere();
    void emptyShapesCanBeMadeAndFreed();
    void ownersMoveAndClone();
    void workingRowsBeginOnCacheLinesAndHoldZeros();
    void theReportInForceIsReplaced();
};

void TestMemory::rowsFollowOneAnother()
{
    double** m = matrix(0, 4, 0, 2);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(m[i + 1] - m[i], std::ptrdiff_t(3));
    free_matrix(m, 0, 0);
}

void TestMemory::boundsMayBeginAnywhere()
{
    double* v = dvector(3, 5);
    double** m = matrix(1, 2, -1, 1);
    for (int i = 3; i <= 5; ++i)
        v[i] = i;
    for (int i = 1; i <= 2; ++i)
        for (int j = -1; j <= 1; ++j)
            m[i][j] = i + j;
    QCOMPARE(v[3] + v[5] + m[1][-1] + m[2][1], 11.0);
    free_dvector(v, 3);
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
    double* v = dvector(0, -1);
    QVERIFY(v);
    free_dvector(v, 0);
    free_dvector(nullptr, 0);
    free_matrix(nullptr, 0, 0);
    QCOMPARE(Vector(0).size(), 0);
}

void TestMemory::ownersMoveAndClone()
{
    numericstest::Random random(1);
    Matrix a = numericstest::randomMatrix(3, 4, random);
    const Matrix copy = a.clone();
    const double* elements = a[0];
    Matrix b = std::move(a);
    QVERIFY(a.isNull() && a.rows() == 0); // NOLINT: what is left behind is defined
    QCOMPARE(b[0], elements);
    QVERIFY(numericstest::sameBits(b, copy));
    b = Matrix(2, 2);
    QCOMPARE(b.columns(), 2);

    Vector v(2);
    v[0] = 1.0;
    v[1] = 2.0;
    const Vector w = v.clone();
    Vector moved(5);
    moved = std::move(v);
    QCOMPARE(moved.size(), 2);
    QCOMPARE(moved[1], w[1]);
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
            for (int j = 0; j < AlignedRows::padded(length); ++j)
                QCOMPARE(rows[i][j], 0.0);
        }
    }
}

void TestMemory::theReportInForceIsReplaced()
{
    const Reports reports;
    reportError("first");
    const ErrorReport ours = setErrorReport([](const char*) { Reports::texts += "other"; });
    reportError("second");
    setErrorReport(ours);
    reportError("third");
    QCOMPARE(Reports::texts, QStringList({"first", "other", "third"}));
}

QTEST_GUILESS_MAIN(TestMemory)
#include "tst_memory.moc"
