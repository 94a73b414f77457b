// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numericstest.h"
#include "support/difference.h"

#include <QScopeGuard>
#include <QTest>

#include <cstdlib>

using namespace pelmora;
using namespace numericstest;

namespace {

const std::vector<std::string> messages{"allocation failure in dvector()",
                                        "allocation failure 1 in matrix()",
                                        "allocation failure 2 in matrix()"};

/// Counts down to the allocation that fails; negative: none does.
int allocationsBeforeFailure = -1;
bool allFurtherOnesFail = false;

template <typename Work>
auto failingAfter(int successes, Work work)
{
    allocationsBeforeFailure = successes;
    const auto end = qScopeGuard([] { allocationsBeforeFailure = -1; });
    return work();
}

/// Calls @p work again and again, each time with one more allocation that succeeds before one
/// fails, until none fails. It calls a routine failingAfter() so many, and looks at what that
/// leaves behind.
template <typename Work>
void failEveryAllocation(int atLeast, Work work)
{
    for (int successes = 0;; ++successes) {
        const Reports reports;
        work(successes);
        if (Reports::texts.empty()) {
            QVERIFY(successes >= atLeast);
            return;
        }
        QCOMPARE(Reports::texts.size(), std::size_t(1));
        QCOMPARE(std::ranges::count(messages, Reports::texts.front()), std::ptrdiff_t(1));
    }
}

} // namespace

// The linker sends our own calls of malloc() here, by these names.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" void* __real_malloc(std::size_t size);
extern "C" void* __wrap_malloc(std::size_t size)
{
    const bool fails = allocationsBeforeFailure == 0;
    if (allocationsBeforeFailure > 0 || (fails && !allFurtherOnesFail))
        --allocationsBeforeFailure;
    return fails ? nullptr : __real_malloc(size);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

class TestAllocationFailure : public QObject
{
    Q_OBJECT

private slots:
    void everyBlockHasItsMessage();
    void correlateReturnsNullAndLeavesTheData();
    void jacobiLeavesNan();
    void rotationLeavesNan();
};

void TestAllocationFailure::everyBlockHasItsMessage()
{
    const Reports reports;
    QCOMPARE(failingAfter(0, [] { return Vector(9); }).size(), 0);
    QCOMPARE(failingAfter(0, [] { return Matrix(2, 2); }).rows(), 0);
    QCOMPARE(failingAfter(1, [] { return Matrix(2, 2); }).rows(), 0);
    QCOMPARE(Reports::texts, messages);

    Reports::texts.clear();
    allFurtherOnesFail = true;
    const auto end = qScopeGuard([] { allFurtherOnesFail = false; });
    QCOMPARE(failingAfter(0, [] { return Matrix(2, 2); }).rows(), 0);
    QCOMPARE(Reports::texts, std::vector(messages.begin() + 1, messages.end()));
}

void TestAllocationFailure::correlateReturnsNullAndLeavesTheData()
{
    Random random(1);
    const Matrix data = randomMatrix(6, 4, random);
    failEveryAllocation(4, [&](int successes) {
        Matrix x = data.clone();
        const Matrix r = failingAfter(successes, [&] { return correlationsOf(x); });
        QCOMPARE(r.isNull(), !Reports::texts.empty());
        if (r.isNull())
            QCOMPARE(difference(x, data), QString());
    });
}

void TestAllocationFailure::jacobiLeavesNan()
{
    for (int n : {5, 235}) { // both forms of a sweep
        Random random(2);
        const Matrix given = randomMatrix(n, n, random);
        failEveryAllocation(4, [&](int successes) {
            Matrix a = given.clone();
            Matrix d = filled(1, n, 7.0);
            Matrix v = filled(n, n, 7.0);
            const int rotations = failingAfter(
                successes, [&] { return jacobi(a.rowPointers(), n, d[0], v.rowPointers()); });
            const bool failed = !Reports::texts.empty();
            QCOMPARE(rotations == 0, failed);
            if (!failed)
                return;
            QCOMPARE(difference(a, given), QString());
            QCOMPARE(difference(d, withNan(d, n)), QString());
            QCOMPARE(difference(v, withNan(v, n)), QString());
        });
    }
}

void TestAllocationFailure::rotationLeavesNan()
{
    Random random(3);
    const Matrix given = randomMatrix(9, 4, random);
    const auto isNan = [&](const Rotation& r) {
        return difference(r.l, withNan(given, 3)).isEmpty() &&
               difference(r.b, withNan(r.b, 3)).isEmpty();
    };
    failEveryAllocation(2, [&](int successes) {
        Rotation whole(given, 3);
        failingAfter(successes, [&] { whole.rotate(VarimaxRotation); });
        QCOMPARE(isNan(whole), !Reports::texts.empty());
    });
    failEveryAllocation(2, [&](int successes) {
        Rotation swept(given, 3);
        const double criterion =
            failingAfter(successes, [&] { return swept.sweep(PelmoraRotation); });
        QCOMPARE(isNan(swept), !Reports::texts.empty());
        QCOMPARE(std::isnan(criterion), !Reports::texts.empty());
    });
}

QTEST_GUILESS_MAIN(TestAllocationFailure)
#include "tst_allocationfailure.moc"
