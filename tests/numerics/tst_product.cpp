// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/product.h"
#include "numericstest.h"
#include "plain/numerics.h"

#include <QTest>

using namespace pelmora;
using numericstest::filled;
using numericstest::Random;
using numericstest::sameBits;

class TestProduct : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void multipliesBothWays();
    void nothingToSumIsZero();
};

void TestProduct::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("terms");
    QTest::addColumn<int>("columns");
    // Tiles are 8 rows high and 4 columns wide.
    for (const auto& [rows, terms, columns] :
         {std::tuple(1, 1, 1), {8, 3, 4}, {9, 1, 5}, {7, 20, 3}, {33, 17, 10}, {100, 12, 2}})
        QTest::addRow("%d x %d x %d", rows, terms, columns) << rows << terms << columns;
}

void TestProduct::equalsThePlainFormToTheBit()
{
    QFETCH(int, rows);
    QFETCH(int, terms);
    QFETCH(int, columns);
    Random random(unsigned(rows + terms));
    const Matrix b = numericstest::randomMatrix(terms, columns, random);
    for (int flag : {0, 1}) {
        const int r = flag == 1 ? terms : rows;
        const int p = flag == 1 ? rows : terms;
        const Matrix a = numericstest::randomMatrix(r, p, random);
        Matrix c(rows, columns);
        Matrix plainC(rows, columns);
        multiply(c.rowPointers(), a.rowPointers(), flag, b.rowPointers(), r, p, columns);
        plain::multiply(plainC.rowPointers(), a.rowPointers(), flag, b.rowPointers(), r, p,
                        columns);
        QVERIFY(sameBits(c, plainC));
    }
}

void TestProduct::multipliesBothWays()
{
    Matrix a(2, 3);
    Matrix b(3, 1);
    for (int k = 0; k < 3; ++k) {
        a[0][k] = k + 1;
        a[1][k] = k == 0;
        b[k][0] = 10.0 * k + 1.0;
    }
    Matrix c(2, 1);
    multiply(c.rowPointers(), a.rowPointers(), 0, b.rowPointers(), 2, 3, 1);
    QCOMPARE(c[0][0], 1.0 + 22.0 + 63.0);
    QCOMPARE(c[1][0], 1.0);

    Matrix square(3, 3);
    multiply(square.rowPointers(), a.rowPointers(), 1, a.rowPointers(), 2, 3, 3);
    QCOMPARE(square[0][0], 2.0);
    QCOMPARE(square[2][0], 3.0);
    QCOMPARE(square[1][2], 6.0);

    Matrix one(1, 1);
    multiply(one.rowPointers(), a.rowPointers(), 1, b.rowPointers(), 1, 1, 1);
    QCOMPARE(one[0][0], a[0][0] * b[0][0]);
}

void TestProduct::nothingToSumIsZero()
{
    const Matrix none(0, 3);
    Matrix c = filled(3, 3, 5.0);
    multiply(c.rowPointers(), none.rowPointers(), 1, none.rowPointers(), 0, 3, 3);
    QVERIFY(sameBits(c, filled(3, 3, 0.0)));
}

QTEST_GUILESS_MAIN(TestProduct)
#include "tst_product.moc"
