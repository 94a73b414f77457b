// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "adequacycases.h"
#include "numerics/adequacy.h"
#include "numerics/chisquare.h"
#include "support/datarows.h"
#include "support/difference.h"

#include <numbers>

using namespace pelmora;
using namespace adequacycases;

class TestAdequacy : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithR_data() { addSamples(); }
    void agreesWithR();
    void antiImageComesFromTheInverse();
    void obstaclesAreNamedInTheirOrder_data() { addFaultyMatrices(); }
    void obstaclesAreNamedInTheirOrder();
    void zeroCorrelationsHaveNoMeasure();
    void everyNumberOfCasesIsAnswered();
    void tailsOfChiSquare_data();
    void tailsOfChiSquare();
};

void TestAdequacy::agreesWithR()
{
    QFETCH(QByteArray, name);
    const Sample s = sample(name);
    const Adequacy result = adequacy(s.r, s.d);
    if (name == "box") {
        QCOMPARE(result.kmo.obstacle.reason, Reason::Singular);
        QVERIFY(result.msa.isNull() && result.antiImage.isNull());
        return;
    }
    QCOMPARE(s.difference("kmo", {result.kmo.value}), QByteArray());
    QCOMPARE(s.difference("msa", result.msa), QByteArray());
    QCOMPARE(s.difference("smc", result.squaredMultipleCorrelations), QByteArray());
    QCOMPARE(s.difference("lndeterminant", {result.lnDeterminant.value}), QByteArray());
    QCOMPARE(s.difference("ratio", {result.eigenvalueRatio.value}), QByteArray());

    const Bartlett test = bartlettTest(s.r, s.d, int(s.reference("n").front())).value;
    QCOMPARE(
        s.difference("bartlett", {test.chiSquare, test.degrees, test.lnP / std::numbers::ln10}),
        QByteArray());
}

/// Of three variables by hand: the partial correlations, with their sign turned, and a diagonal
/// that is not quite 1 and counts.
void TestAdequacy::antiImageComesFromTheInverse()
{
    for (const double one : {1.0, 1.0000009}) {
        const double r12 = 0.5;
        const double r13 = -0.3;
        const double r23 = 0.2;
        const Sample s(fromRows({{one, r12, r13}, {r12, 1, r23}, {r13, r23, 1}}));
        const Adequacy result = adequacy(s.r, s.d);
        const double q11 = 1 - r23 * r23;
        const double q22 = one - r13 * r13;
        const double q12 = r13 * r23 - r12;
        const double determinant = one * q11 + r12 * q12 + r13 * (r12 * r23 - r13);
        const double expected = q12 / std::sqrt(q11 * q22);
        QCOMPARE(difference(result.antiImage[0][1], expected, 1e-14), QString());
        QCOMPARE(result.antiImage[1][0], result.antiImage[0][1]);
        QCOMPARE(result.antiImage[2][2], result.msa[2]);
        QCOMPARE(difference(result.squaredMultipleCorrelations[1], 1 - determinant / q22, 1e-14),
                 QString());
    }
}

void TestAdequacy::obstaclesAreNamedInTheirOrder()
{
    const Reports reports;
    QFETCH(FaultyMatrix, fault);
    const Sample s(fromRows(fault.rows));
    const Adequacy result = adequacy(s.r, s.d);
    for (const Obstacle& obstacle :
         {result.kmo.obstacle, result.lnDeterminant.obstacle, result.eigenvalueRatio.obstacle,
          bartlettTest(s.r, s.d, 100).obstacle}) {
        QCOMPARE(obstacle.reason, fault.reason);
        QCOMPARE(difference(obstacle.number, fault.number, 1e-12), QString());
    }
    QCOMPARE(result.msa.isNull(), fault.reason != Reason::None);
}

void TestAdequacy::zeroCorrelationsHaveNoMeasure()
{
    const Sample identity(equicorrelated(4, 9e-11));
    const Adequacy none = adequacy(identity.r, identity.d);
    QCOMPARE(none.kmo.obstacle.reason, Reason::NoCorrelations);
    QVERIFY(std::isnan(none.msa[3]) && std::isnan(none.antiImage[3][3]));
    QCOMPARE(none.lnDeterminant.obstacle.reason, Reason::None);
    QCOMPARE(difference(none.squaredMultipleCorrelations[0], 0, 1e-15), QString());
    const Bartlett test = bartlettTest(identity.r, identity.d, 100).value;
    QVERIFY(test.chiSquare >= 0.0);
    QCOMPARE(difference(test.chiSquare, 0, 1e-12), QString());
    QCOMPARE(test.p, 1.0);

    const Sample oneRow(fromRows({{1, 0, 0.5}, {0, 1, 0}, {0.5, 0, 1}}));
    const Adequacy one = adequacy(oneRow.r, oneRow.d);
    QCOMPARE(difference(one.kmo.value, 0.5, 1e-15), QString());
    QVERIFY(std::isnan(one.msa[1]) && !std::isnan(one.msa[0]));
}

void TestAdequacy::everyNumberOfCasesIsAnswered()
{
    const Sample s(equicorrelated(200, 0.99));
    QCOMPARE(bartlettTest(s.r, s.d, 0).obstacle.reason, Reason::CasesUnknown);
    for (const int cases : {2, 3, 100, 200}) {
        const Obstacle obstacle = bartlettTest(s.r, s.d, cases).obstacle;
        QCOMPARE(obstacle.reason, Reason::TooFewCases);
        QCOMPARE(obstacle.number, 201.0);
    }
    // The determinant, exp(-911), is no number any more.
    QCOMPARE(difference(adequacy(s.r, s.d).lnDeterminant.value, -911.140549477144, 1e-7),
             QString());
    const double chiSquare = bartlettTest(s.r, s.d, 300).value.chiSquare;
    QCOMPARE(difference(chiSquare, 210929.037203963, 2e-5), QString());
    for (const int cases : {201, 2147483647}) {
        const Bartlett test = bartlettTest(s.r, s.d, cases).value;
        QVERIFY(std::isfinite(test.chiSquare) && std::isfinite(test.lnP) && test.lnP < 0.0);
    }
}

/// From a computation with 60 digits.
void TestAdequacy::tailsOfChiSquare_data()
{
    const DataRows<double, double, double> row("x", "degrees", "lnP");
    row("one degree", 3.841458820694124, 1.0, -2.9957322735539898);
    row("far above", 18146.065577235, 300.0, -8315.1794848185579);
    row("at the mean", 300.0, 300.0, -0.71510291281260814);
    row("almost nothing", 1e-12, 1.0, -7.9788487911278787e-7);
    row("many degrees", 124750.0, 124750.0, -0.69421265960162646);
    row("many degrees, above", 126000.0, 124750.0, -5.0690324811061224);
    row("many degrees, below", 124000.0, 124750.0, -0.068702350644828631);
    row("a huge sample", 4e12, 19900.0, -1999999799842.1778);
    row("no exponential", 2000.0, 2.0, -1000.0);
}

void TestAdequacy::tailsOfChiSquare()
{
    QFETCH(double, x);
    QFETCH(double, degrees);
    QFETCH(double, lnP);
    const double limit = 1e-12 * std::max(1.0, std::fabs(lnP));
    QCOMPARE(difference(lnUpperChiSquare(x, degrees), lnP, limit), QString());
}

QTEST_GUILESS_MAIN(TestAdequacy)
#include "tst_adequacy.moc"
