// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/product.h"
#include "numericstest.h"
#include "plain/numerics.h"
#include "support/difference.h"

#include <QTest>

#include <array>

using namespace pelmora;
using namespace numericstest;

class TestProduct : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
};

void TestProduct::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("terms");
    QTest::addColumn<int>("columns");
    // Tiles are 8 rows high and 4 columns wide. An empty sum is 0.
    const std::vector<std::array<int, 3>> shapes{{1, 1, 1},  {3, 0, 3},    {8, 3, 4},   {9, 1, 5},
                                                 {7, 20, 3}, {33, 17, 10}, {100, 12, 2}};
    for (const auto& [rows, terms, columns] : shapes)
        QTest::addRow("%d x %d x %d", rows, terms, columns) << rows << terms << columns;
}

void TestProduct::equalsThePlainFormToTheBit()
{
    QFETCH(int, rows);
    QFETCH(int, terms);
    QFETCH(int, columns);
    Random random(unsigned(rows + terms));
    const Matrix b = randomMatrix(terms, columns, random);
    for (int flag : {0, 1}) {
        const int r = flag == 1 ? terms : rows;
        const int p = flag == 1 ? rows : terms;
        const Matrix a = randomMatrix(r, p, random);
        Matrix c = filled(rows, columns, 5.0);
        Matrix plainC(rows, columns);
        multiply(c.rowPointers(), a.rowPointers(), flag, b.rowPointers(), r, p, columns);
        plain::multiply(plainC.rowPointers(), a.rowPointers(), flag, b.rowPointers(), r, p,
                        columns);
        QCOMPARE(difference(c, plainC), QString());
    }
}

QTEST_GUILESS_MAIN(TestProduct)
#include "tst_product.moc"
