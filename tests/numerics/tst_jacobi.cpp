// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numericstest.h"
#include "plain/numerics.h"
#include "support/difference.h"

#include <QTest>

#include <numeric>

using namespace pelmora;
using namespace numericstest;

namespace {

enum Kind { Any, Correlations, EqualEigenvalues, Diagonal, Blocks, Graded, NanInARow };
const char* const kindNames[] = {"any",    "correlations", "equal eigenvalues", "diagonal",
                                 "blocks", "graded",       "NaN in a row"};

Matrix symmetric(Kind kind, int n)
{
    Random random(unsigned(10 * n + kind));
    Matrix data = randomMatrix(2 * n, n, random);
    Matrix a = kind == Correlations ? correlationsOf(data) : randomMatrix(n, n, random);
    for (int i = 0; i < n; ++i)
        for (int j = i; j < n; ++j) {
            double& element = a[i][j];
            if (kind == EqualEigenvalues)
                element = i == j ? 1.0 : 0.25;
            if ((kind == Diagonal && i != j) || (kind == Blocks && i / 4 != j / 4))
                element = 0.0;
            if (kind == Graded)
                element *= std::pow(10.0, -0.2 * (i + j));
            if (kind == NanInARow && i != j && (i == 2 || j == 2))
                element = notANumber;
            a[j][i] = element;
        }
    return a;
}

} // namespace

class TestJacobi : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void decomposes_data();
    void decomposes();
    void sortsTheLastOfEqualValuesFirstAndNeverChoosesNan();
};

void TestJacobi::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("n");
    // Another way from 150 variables on, in panels of 16 rows and bands of 64.
    for (int n : {0, 1, 2, 3, 4, 7, 8, 9, 21, 33, 97, 149, 150, 151, 160, 176, 193, 208, 257})
        QTest::addRow("any, n = %d", n) << int(Any) << n;
    for (int n : {6, 12, 165})
        for (int kind = Correlations; kind <= NanInARow; ++kind)
            QTest::addRow("%s, n = %d", kindNames[kind], n) << kind << n;
}

void TestJacobi::equalsThePlainFormToTheBit()
{
    QFETCH(int, kind);
    QFETCH(int, n);
    Matrix a = symmetric(Kind(kind), n);
    // Only the upper triangle is read.
    for (int i = 0; i < n; ++i)
        std::fill_n(a[i], i, notANumber);

    const Reports reports;
    const Decomposition fast(a.clone());
    const Decomposition plain(a.clone(), plain::jacobi);
    QCOMPARE(fast.rotations, plain.rotations);
    QCOMPARE(difference(fast.d, plain.d), QString());
    QCOMPARE(difference(fast.v, plain.v), QString());
    QCOMPARE(difference(fast.a, plain.a), QString());
    QCOMPARE(Reports::texts,
             std::vector<std::string>(kind == NanInARow ? 2 : 0,
                                      "Error: no convergence in finding eigen values."));
}

void TestJacobi::decomposes_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("n");
    for (int kind : {Correlations, EqualEigenvalues})
        for (int n : {2, 5, 20, 155})
            QTest::addRow("%s, n = %d", kindNames[kind], n) << kind << n;
}

/// A V = V D with orthonormal V.
void TestJacobi::decomposes()
{
    QFETCH(int, kind);
    QFETCH(int, n);
    const Matrix a = symmetric(Kind(kind), n);
    const Decomposition result(a.clone());
    const double limit = 30.0 * n * std::numeric_limits<double>::epsilon();
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            double residual = -result.v[i][j] * result.d[j];
            double cosine = i == j ? -1.0 : 0.0;
            for (int k = 0; k < n; ++k) {
                residual += a[i][k] * result.v[k][j];
                cosine += result.v[k][i] * result.v[k][j];
            }
            QCOMPARE(difference(residual, 0.0, limit), QString());
            QCOMPARE(difference(cosine, 0.0, limit), QString());
        }
}

void TestJacobi::sortsTheLastOfEqualValuesFirstAndNeverChoosesNan()
{
    struct Case
    {
        std::vector<double> given;
        std::vector<double> sorted;
        std::vector<double> order;
    };
    for (Case c : {Case{},
                   {{1, 2, 2, 0.5, 1}, {2, 2, 1, 1, 0.5}, {2, 1, 4, 0, 3}},
                   {{1, notANumber, 3, 2}, {3, notANumber, 2, 1}, {2, 1, 3, 0}}}) {
        const int n = int(c.given.size());
        Matrix v(n, n);
        for (int i = 0; i < n; ++i)
            std::iota(v[i], v[i] + n, 0.0);
        sort_eigenpairs(c.given.data(), v.rowPointers(), n);
        QCOMPARE(difference(c.given, c.sorted), QString());
        for (int i = 0; i < n; ++i)
            QCOMPARE(difference({v[i], c.order.size()}, c.order), QString());
    }
}

QTEST_GUILESS_MAIN(TestJacobi)
#include "tst_jacobi.moc"
