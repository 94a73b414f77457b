// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numericstest.h"
#include "plain/numerics.h"

#include <QTest>

#include <array>
#include <numeric>

using namespace pelmora;
using namespace numericstest;

namespace {

constexpr auto anotherMethod = RotationMethod(3); // keeps the nearest angle

Matrix surveyLoadings(unsigned seed, int variables)
{
    Random random(seed);
    Matrix data = survey(4 * variables, variables, random);
    return Eigenpairs(correlationsOf(data)).initialLoadings();
}

std::array<double, 2> anglesOf(const Matrix& l, int j, int k,
                               decltype(pair_angles)& routine = pair_angles)
{
    std::array<double, 2> angles = {};
    routine(l.rowPointers(), j, k, l.rows(), angles[0], angles[1]);
    return angles;
}

} // namespace

class TestRotation : public QObject
{
    Q_OBJECT

private slots:
    void equalsThePlainFormToTheBit_data();
    void equalsThePlainFormToTheBit();
    void aSweepEqualsThePlainFormToTheBit();
    void anglesLieAnEighthOfATurnApart();
    void turnsWithoutStretching();
    void theMethodsEndAtOppositeEnds();
    void aPairWithoutAnglesStays();
    void nanSpreadsAndEnds();
};

void TestRotation::equalsThePlainFormToTheBit_data()
{
    QTest::addColumn<int>("variables");
    QTest::addColumn<int>("factors");
    const std::vector<std::pair<int, int>> shapes{
        {5, 0},   {5, 1},  {2, 2},  {3, 2},  {3, 3},   {4, 2},  {5, 4},   {6, 5},   {7, 7},
        {12, 12}, {14, 3}, {18, 6}, {24, 4}, {25, 10}, {31, 9}, {33, 12}, {38, 11}, {60, 3}};
    for (const auto& [variables, factors] : shapes)
        QTest::addRow("%d variables, %d factors", variables, factors) << variables << factors;
}

void TestRotation::equalsThePlainFormToTheBit()
{
    QFETCH(int, variables);
    QFETCH(int, factors);
    const Matrix loadings = surveyLoadings(unsigned(variables + factors), variables);
    for (int method : {PelmoraRotation, VarimaxRotation, anotherMethod}) {
        const Rotation fast = rotated(loadings, factors, method);
        QVERIFY(sameBits(fast, rotated(loadings, factors, method, plain::rotate)));
        QVERIFY(sameBits(fast, Rotation(fast.l, factors))); // the companion followed
    }
}

void TestRotation::aSweepEqualsThePlainFormToTheBit()
{
    for (int m : {0, 1, 2, 3, 6, 7})
        for (int method : {PelmoraRotation, VarimaxRotation, NoRotation}) {
            Random random{unsigned(m)};
            Rotation fast(randomMatrix(13, 8, random), m);
            Rotation plain(fast.l, m);
            QVERIFY(sameBits(fast.sweep(method), plain.sweep(method, plain::rotation_sweep)));
            QVERIFY(sameBits(fast, plain));
        }
}

void TestRotation::anglesLieAnEighthOfATurnApart()
{
    for (unsigned seed = 1; seed <= 50; ++seed) {
        Random random(seed);
        const Matrix l = randomMatrix(7, 2, random);
        const auto angles = anglesOf(l, 0, 1);
        QVERIFY(sameBits(angles, anglesOf(l, 0, 1, plain::pair_angles)));
        QVERIFY(std::fabs(angles[0]) <= std::fabs(angles[1]));
        QVERIFY(std::fabs(std::fabs(angles[0] - angles[1]) - std::atan(1.0)) < 1e-9);
    }
}

void TestRotation::turnsWithoutStretching()
{
    const Matrix before = surveyLoadings(2, 20);
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        const Matrix after = rotated(before, 5, method).l;
        for (int i = 0; i < 20; ++i)
            for (int k = 0; k < 20; ++k) {
                const double given = std::inner_product(before[i], before[i] + 5, before[k], 0.0);
                const double kept = std::inner_product(after[i], after[i] + 5, after[k], 0.0);
                QVERIFY(std::fabs(kept - given) < 1e-12);
            }
    }
}

void TestRotation::theMethodsEndAtOppositeEnds()
{
    for (unsigned seed = 1; seed <= 20; ++seed) {
        const Matrix loadings = surveyLoadings(seed, 12);
        const double before = Rotation(loadings, 4).total();
        const Rotation low = rotated(loadings, 4, PelmoraRotation);
        const Rotation high = rotated(loadings, 4, VarimaxRotation);
        QVERIFY(low.total() <= before && before <= high.total());
        QVERIFY(high.total() - low.total() > 1e-3);
        for (int j = 0; j < 4; ++j)
            for (int k = j + 1; k < 4; ++k) { // every pair is stationary
                QVERIFY(std::fabs(anglesOf(low.l, j, k)[0]) < 1e-4);
                QVERIFY(std::fabs(anglesOf(high.l, j, k)[0]) < 1e-4);
            }
    }
}

void TestRotation::aPairWithoutAnglesStays()
{
    const Matrix identity = fromRows({{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}});
    const Matrix zeros = filled(4, 4, 0.0);
    const Matrix overflowing = filled(4, 4, 1e200);
    const Matrix oneVariable = filled(1, 4, 0.5);
    for (const Matrix* loadings : {&identity, &zeros, &overflowing, &oneVariable}) {
        for (double angle : anglesOf(*loadings, 0, 1))
            QVERIFY(std::isnan(angle));
        for (int method : {PelmoraRotation, VarimaxRotation}) {
            const Rotation unchanged(*loadings, 3);
            QVERIFY(sameBits(rotated(*loadings, 3, method), unchanged));
            QVERIFY(sameBits(rotated(*loadings, 3, method, plain::rotate), unchanged));
        }
    }
}

void TestRotation::nanSpreadsAndEnds()
{
    Matrix loadings = surveyLoadings(6, 8);
    loadings[3][1] = notANumber;
    for (int method : {PelmoraRotation, VarimaxRotation}) {
        const Rotation fast = rotated(loadings, 4, method);
        QVERIFY(sameBits(fast.l, withNan(loadings, 4)));
        QVERIFY(sameBits(fast, rotated(loadings, 4, method, plain::rotate)));
    }
}

QTEST_GUILESS_MAIN(TestRotation)
#include "tst_rotation.moc"
