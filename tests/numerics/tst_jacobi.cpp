// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numericstest.h"
#include "plain/numerics.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>

using namespace pelmora;
using numericstest::filled;
using numericstest::Random;
using numericstest::Reports;
using numericstest::sameBits;

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();

Matrix diagonal(std::initializer_list<double> values)
{
    Matrix result = filled(int(values.size()), int(values.size()), 0.0);
    int i = 0;
    for (double value : values) {
        result[i][i] = value;
        ++i;
    }
    return result;
}

Matrix symmetric(int n, Random& random)
{
    Matrix result = numericstest::randomMatrix(n, n, random);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < i; ++j)
            result[i][j] = result[j][i];
    return result;
}

struct Decomposition
{
    explicit Decomposition(const Matrix& given)
        : a(given.clone())
        , d(given.rows())
        , v(given.rows(), given.rows())
    {
    }

    Decomposition& by(decltype(jacobi) routine)
    {
        rotations = routine(a.rowPointers(), a.rows(), d.data(), v.rowPointers());
        return *this;
    }

    Matrix a;
    Vector d;
    Matrix v;
    int rotations = 0;
};

/// The largest element of A V - V D, and of V^T V - I, in units of n times the rounding error.
struct Departures
{
    Departures(const Matrix& a, const Decomposition& result)
    {
        const int n = a.rows();
        double norm = 0.0;
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < n; ++j) {
                double product = -result.v[i][j] * result.d[j];
                double cosine = i == j ? -1.0 : 0.0;
                for (int k = 0; k < n; ++k) {
                    product += a[i][k] * result.v[k][j];
                    cosine += result.v[k][i] * result.v[k][j];
                }
                norm = std::max(norm, std::fabs(a[i][j]));
                residual = std::max(residual, std::fabs(product));
                orthogonality = std::max(orthogonality, std::fabs(cosine));
            }
        const double unit = n * std::numeric_limits<double>::epsilon();
        residual /= std::max(norm, 1e-300) * unit;
        orthogonality /= unit;
    }

    double residual = 0.0;
    double orthogonality = 0.0;
};

} // namespace

class TestJacobi : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void decomposes_data();
    void decomposes();
    void aDiagonalMatrixNeedsNoRotation();
    void twoVariablesNeedOneRotation();
    void onlyTheUpperTriangleIsTouched();
    void vectorsStartAsTheDiagonal();
    void nanNeverConverges();
    void sortingTakesTheLastOfEqualValues();
    void sortingNeverChoosesNan();
};

void TestJacobi::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("kind");
    Random random(1);
    // Another way from 80 variables on, in blocks of 8 and strips of 32.
    for (int n : {0, 1, 2, 3, 7, 8, 9, 33, 79, 80, 81, 87, 97, 104, 149, 160, 171, 257})
        QTest::addRow("random, n = %d", n) << n << 0;
    for (int i = 0; i < 8; ++i) {
        const int n = random.integer(2, 40);
        QTest::addRow("random %d, n = %d", i, n) << n << 0;
    }
    for (int n : {6, 12, 95}) {
        QTest::addRow("correlations, n = %d", n) << n << 1;
        QTest::addRow("equal eigenvalues, n = %d", n) << n << 2;
        QTest::addRow("blocks, n = %d", n) << n << 3;
        QTest::addRow("graded, n = %d", n) << n << 4;
        QTest::addRow("NaN in a row, n = %d", n) << n << 5;
    }
}

static Matrix matrixOfKind(int kind, int n)
{
    Random random(unsigned(10 * n + kind));
    Matrix a = kind == 1
                   ? numericstest::correlationsOf(numericstest::randomMatrix(2 * n, n, random))
                   : symmetric(n, random);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            if (kind == 2)
                a[i][j] = i == j ? 1.0 : 0.25;
            if (kind == 3 && i / 4 != j / 4)
                a[i][j] = 0.0;
            if (kind == 4)
                a[i][j] *= std::pow(10.0, -0.2 * (i + j));
            if (kind == 5 && i != j && (i == 2 || j == 2))
                a[i][j] = notANumber;
        }
    return a;
}

void TestJacobi::equalsThePlainFormToTheBit()
{
    QFETCH(int, n);
    QFETCH(int, kind);
    const Reports reports;
    const Matrix a = matrixOfKind(kind, n);
    const Decomposition fast = std::move(Decomposition(a).by(jacobi));
    const Decomposition plain = std::move(Decomposition(a).by(plain::jacobi));
    QCOMPARE(fast.rotations, plain.rotations);
    QVERIFY(sameBits(fast.d.data(), plain.d.data(), n));
    QVERIFY(sameBits(fast.v, plain.v));
    QVERIFY(sameBits(fast.a, plain.a));
    QCOMPARE(Reports::texts.size(), kind == 5 ? 2 : 0);
}

void TestJacobi::decomposes_data()
{
    QTest::addColumn<int>("n");
    QTest::addColumn<int>("kind");
    for (int n : {2, 5, 20, 90})
        for (int kind : {1, 2})
            QTest::addRow("kind %d, n = %d", kind, n) << n << kind;
}

void TestJacobi::decomposes()
{
    QFETCH(int, n);
    QFETCH(int, kind);
    const Matrix a = matrixOfKind(kind, n);
    const Departures departures(a, Decomposition(a).by(jacobi));
    QVERIFY2(departures.residual < 30.0, qPrintable(QString::number(departures.residual)));
    QVERIFY2(departures.orthogonality < 30.0,
             qPrintable(QString::number(departures.orthogonality)));
}

void TestJacobi::aDiagonalMatrixNeedsNoRotation()
{
    const Matrix a = diagonal({3.0, -1.0, 0.0, 2.0});
    const Decomposition result = std::move(Decomposition(a).by(jacobi));
    QCOMPARE(result.rotations, 0);
    for (int i = 0; i < 4; ++i)
        QCOMPARE(result.d[i], a[i][i]);
    QVERIFY(sameBits(result.v, a));
}

void TestJacobi::twoVariablesNeedOneRotation()
{
    Matrix a = diagonal({1.0, 1.0});
    a[0][1] = a[1][0] = 0.4;
    const Decomposition result = std::move(Decomposition(a).by(jacobi));
    QCOMPARE(result.rotations, 1);
    QCOMPARE(std::min(result.d[0], result.d[1]), 0.6);
    QCOMPARE(std::max(result.d[0], result.d[1]), 1.4);
    for (int i = 0; i < 2; ++i)
        for (int j = 0; j < 2; ++j)
            QCOMPARE(std::fabs(result.v[i][j]), std::sqrt(0.5));
}

void TestJacobi::onlyTheUpperTriangleIsTouched()
{
    for (int n : {10, 100}) {
        Random random{unsigned(n)};
        Matrix a = symmetric(n, random);
        for (int i = 0; i < n; ++i)
            for (int j = 0; j < i; ++j)
                a[i][j] = notANumber;
        const Decomposition result = std::move(Decomposition(a).by(jacobi));
        for (int i = 0; i < n; ++i) {
            QVERIFY(sameBits(result.a[i], a[i], i + 1));
            QVERIFY(std::isfinite(result.d[i]));
            for (int j = i + 1; j < n; ++j)
                QCOMPARE(result.a[i][j], 0.0);
        }
    }
}

void TestJacobi::vectorsStartAsTheDiagonal()
{
    Matrix a = diagonal({0.5, 0.5});
    a[0][1] = a[1][0] = 0.25;
    const Decomposition result = std::move(Decomposition(a).by(jacobi));
    QCOMPARE(std::fabs(result.v[0][0]), 0.5 * std::sqrt(0.5));
}

void TestJacobi::nanNeverConverges()
{
    // What correlations with a constant variable look like.
    Matrix a = diagonal({1.0, 1.0, 1.0});
    a[0][2] = 0.5;
    a[0][1] = a[1][2] = notANumber;
    const Reports reports;
    const Decomposition result = std::move(Decomposition(a).by(jacobi));
    QCOMPARE(Reports::texts,
             QStringList(QStringLiteral("Error: no convergence in finding eigen values.")));
    QCOMPARE(result.d[1], 1.0);
    QCOMPARE(result.v[1][1], 1.0);
    QCOMPARE(result.v[0][1], 0.0);
    QCOMPARE(std::max(result.d[0], result.d[2]), 1.5);
}

void TestJacobi::sortingTakesTheLastOfEqualValues()
{
    double d[] = {1.0, 2.0, 2.0, 0.5, 1.0};
    Matrix v = filled(5, 5, 0.0);
    for (int k = 0; k < 5; ++k)
        v[0][k] = k;
    sort_eigenpairs(d, v.rowPointers(), 5);
    const double sorted[] = {2.0, 2.0, 1.0, 1.0, 0.5};
    const double columns[] = {2.0, 1.0, 4.0, 0.0, 3.0};
    QVERIFY(sameBits(d, sorted, 5));
    QVERIFY(sameBits(v[0], columns, 5));

    double ones[] = {1.0, 1.0};
    Matrix unit = diagonal({1.0, 1.0});
    sort_eigenpairs(ones, unit.rowPointers(), 2);
    QCOMPARE(unit[0][0], 0.0);
    QCOMPARE(unit[0][1], 1.0);
    sort_eigenpairs(nullptr, nullptr, 0);
}

void TestJacobi::sortingNeverChoosesNan()
{
    double d[] = {1.0, notANumber, 3.0, 2.0};
    Matrix v = filled(4, 4, 0.0);
    sort_eigenpairs(d, v.rowPointers(), 4);
    QCOMPARE(d[0], 3.0);
    QVERIFY(std::isnan(d[1]));
}

QTEST_GUILESS_MAIN(TestJacobi)
#include "tst_jacobi.moc"
