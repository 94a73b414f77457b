// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/kernels/rotationdriver.h"

#include <QTest>

#include <cmath>
#include <functional>

using namespace pelmora;

namespace {

/// A criterion that is to be maximised. Plain sweeps reach what a test says; the first three
/// improving sweeps add 1 each.
struct ScriptedSweeps
{
    std::function<double(int)> plainTotal;
    int methodAware = 0;
    int plain = 0;
    int improving = 0;
    double state = 0.0;

    double methodAwareSweep() { return ++methodAware; }
    double plainSweep() { return state = plainTotal(++plain); }
    void improvingSweep() { state += ++improving <= 3 ? 1.0 : 0.0; }
    double total() const { return state; }
    static bool isBetter(double criterion, double other) { return criterion > other; }
};

ScriptedSweeps driven(std::function<double(int)> plainTotal)
{
    ScriptedSweeps sweeps{std::move(plainTotal)};
    // The bound of sweeps is lowest for many factors and variables.
    driveRotation(sweeps, 200, 600);
    return sweeps;
}

double swing(int sweep)
{
    return sweep % 2 ? 5.0 : 7.0;
}

} // namespace

class TestRotationDriver : public QObject
{
    Q_OBJECT

private slots:
    void whatEndsByItselfIsLeftAlone()
    {
        const auto late = driven([](int sweep) { return sweep < 100 ? swing(sweep) : 6.0; });
        QCOMPARE(late.plain, 101);
        QCOMPARE(late.improving, 0);
        const auto notANumber = driven([](int) { return std::nan(""); });
        QCOMPARE(notANumber.plain, 1);
        QCOMPARE(notANumber.improving, 0);
    }

    void aSwingIsImprovedFromItsBetterState()
    {
        for (const int phase : {0, 1}) {
            const auto swinging = driven([phase](int sweep) { return swing(sweep + phase); });
            QVERIFY(swinging.plain > 1000 && swinging.plain < 1100);
            QCOMPARE(swinging.improving, 4);
            QCOMPARE(swinging.state, 7.0 + 3.0);
        }
    }

    void aDriftEndsAtTheBound()
    {
        const auto drifting = driven([](int sweep) { return 1e-6 * sweep; });
        QVERIFY(drifting.plain >= 100000 && drifting.plain < 100010);
        QCOMPARE(drifting.improving, 4);
    }
};

QTEST_GUILESS_MAIN(TestRotationDriver)
#include "tst_rotationdriver.moc"
