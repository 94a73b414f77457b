// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/correlation.h"
#include "numerics/jacobi.h"
#include "numerics/memory.h"
#include "numerics/rotation.h"
#include "numericstest.h"

#include <QTest>

#include <cstdlib>

using namespace pelmora;
using numericstest::allNan;
using numericstest::Random;
using numericstest::Reports;
using numericstest::sameBits;

namespace {

/// Counts down to the allocation that fails; negative: none does.
int allocationsBeforeFailure = -1;

/// While it lives, one allocation fails after some that succeed.
struct FailureAfter
{
    explicit FailureAfter(int successes) { allocationsBeforeFailure = successes; }
    ~FailureAfter() { allocationsBeforeFailure = -1; }
};

bool isAllocationMessage(const QString& text)
{
    return text == QLatin1String("allocation failure in dvector()") ||
           text == QLatin1String("allocation failure 1 in matrix()") ||
           text == QLatin1String("allocation failure 2 in matrix()");
}

} // namespace

// The linker sends our own calls of malloc() here, by these names.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size)
{
    const bool fails = allocationsBeforeFailure == 0;
    if (allocationsBeforeFailure >= 0)
        --allocationsBeforeFailure;
    return fails ? nullptr : __real_malloc(size);
}
// NOLINTEND(bugprone-reserved-identifier)

class TestAllocationFailure : public QObject
{
    Q_OBJECT

private slots:
    void everyBlockHasItsMessage();
    void correlateReturnsNullAndLeavesTheData();
    void jacobiLeavesNan_data();
    void jacobiLeavesNan();
    void rotationLeavesNan();
};

void TestAllocationFailure::everyBlockHasItsMessage()
{
    const Reports reports;
    const auto matrixFailing = [](int successes) {
        const FailureAfter failure(successes);
        return Matrix(2, 2).isNull();
    };
    {
        const FailureAfter failure(0);
        QVERIFY(!dvector(0, 9));
    }
    QVERIFY(matrixFailing(0));
    QVERIFY(matrixFailing(1));
    QCOMPARE(Reports::texts,
             QStringList({"allocation failure in dvector()", "allocation failure 1 in matrix()",
                          "allocation failure 2 in matrix()"}));
}

void TestAllocationFailure::correlateReturnsNullAndLeavesTheData()
{
    Random random(1);
    const Matrix data = numericstest::randomMatrix(6, 4, random);
    for (int successes = 0;; ++successes) {
        const Reports reports;
        Matrix x = data.clone();
        double** r = nullptr;
        {
            const FailureAfter failure(successes);
            r = correlate(x.rowPointers(), 6, 4, 0);
        }
        if (r) {
            free_matrix(r, 0, 0);
            QVERIFY(successes >= 4);
            return;
        }
        QCOMPARE(Reports::texts.size(), 1);
        QVERIFY(isAllocationMessage(Reports::texts.first()));
        QVERIFY(sameBits(x, data));
    }
}

void TestAllocationFailure::jacobiLeavesNan_data()
{
    QTest::addColumn<int>("n");
    QTest::newRow("few variables") << 5;
    QTest::newRow("many variables") << 90;
}

void TestAllocationFailure::jacobiLeavesNan()
{
    QFETCH(int, n);
    Random random(2);
    const Matrix given = numericstest::randomMatrix(n, n, random);
    for (int successes = 0;; ++successes) {
        const Reports reports;
        Matrix a = given.clone();
        Matrix values = numericstest::filled(1, n, 7.0);
        Matrix v = numericstest::filled(n, n, 7.0);
        int rotations = -1;
        {
            const FailureAfter failure(successes);
            rotations = jacobi(a.rowPointers(), n, values[0], v.rowPointers());
        }
        if (Reports::texts.isEmpty()) {
            QVERIFY(successes >= 4);
            QVERIFY(rotations > 0);
            return;
        }
        QCOMPARE(Reports::texts.size(), 1);
        QVERIFY(isAllocationMessage(Reports::texts.first()));
        QCOMPARE(rotations, 0);
        QVERIFY(allNan(values, n) && allNan(v, n));
        QVERIFY(sameBits(a, given));
    }
}

void TestAllocationFailure::rotationLeavesNan()
{
    Random random(3);
    const Matrix given = numericstest::randomMatrix(9, 4, random);
    for (int successes = 0;; ++successes) {
        const Reports reports;
        Matrix l = given.clone();
        Matrix b = given.clone();
        {
            const FailureAfter failure(successes);
            pelmora::rotate(l.rowPointers(), b.rowPointers(), 3, 9, VarimaxRotation);
        }
        if (Reports::texts.isEmpty()) {
            QVERIFY(successes >= 2);
            QVERIFY(!allNan(l, 3));
            return;
        }
        QCOMPARE(Reports::texts.size(), 1);
        QVERIFY(isAllocationMessage(Reports::texts.first()));
        QVERIFY(allNan(l, 3) && allNan(b, 3));
        QCOMPARE(l[0][3], given[0][3]);

        Matrix swept = given.clone();
        const FailureAfter failure(successes);
        QVERIFY(std::isnan(
            rotation_sweep(swept.rowPointers(), b.rowPointers(), 3, 9, PelmoraRotation)));
        QVERIFY(allNan(swept, 3));
    }
}

QTEST_GUILESS_MAIN(TestAllocationFailure)
#include "tst_allocationfailure.moc"
