// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "adequacycases.h"
#include "numerics/numberoffactors.h"
#include "numerics/parallelanalysis.h"
#include "numerics/progress.h"
#include "numerics/tridiagonal.h"
#include "support/difference.h"

using namespace pelmora;
using namespace adequacycases;

class TestNumberOfFactors : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithR_data() { addSamples(); }
    void agreesWithR();
    void randomNumbersAreTheSameEverywhere();
    void tridiagonalEigenvaluesAreJacobis();
    void parallelAnalysisIsReproducible_data() { addSamples(); }
    void parallelAnalysisIsReproducible();
    void parallelAnalysisTakesEveryNumberOfCases();
    void parallelAnalysisCanBeCancelled();
    void onlyLeadingEigenvaluesCount();
    void obstaclesAreNamedInTheirOrder_data() { addFaultyMatrices(); }
    void obstaclesAreNamedInTheirOrder();
    void theCriterionNeedsThreeCases();
    void partialCorrelationsEndWhereNothingIsLeft();
};

void TestNumberOfFactors::agreesWithR()
{
    QFETCH(QByteArray, name);
    const Sample s = sample(name);
    QCOMPARE(s.difference("count", {double(countEigenvaluesOfAtLeastOne(s.d.eigenvalues))}),
             QByteArray());
    const MinimumAveragePartial map = minimumAveragePartial(s.r, s.d).value;
    QCOMPARE(s.difference("map2number", {double(map.bySquares)}), QByteArray());
    QCOMPARE(s.difference("map4number", {double(map.byFourthPowers)}), QByteArray());
    // Ten components leave residuals of 3e-7 of the box problem: the rounding errors of its
    // correlations weigh more there.
    const double tolerance = name == "box" ? 1e-8 : 1e-10;
    QCOMPARE(s.difference("map2", map.squares, tolerance), QByteArray());
    QCOMPARE(s.difference("map4", map.fourthPowers, tolerance), QByteArray());
    const EmpiricalKaiser ekc =
        empiricalKaiserCriterion(s.r, s.d, int(s.reference("n").front())).value;
    QCOMPARE(s.difference("ekcnumber", {double(ekc.factors)}), QByteArray());
    QCOMPARE(s.difference("ekc", ekc.references), QByteArray());
}

void TestNumberOfFactors::randomNumbersAreTheSameEverywhere()
{
    RandomNumbers uniform;
    for (const double expected : {0.13387664401253263, 0.13640703636619722, 0.4512149038445381})
        QCOMPARE(uniform.uniform(), expected);
    RandomNumbers normal;
    for (const double expected :
         {-0.039399956754155314, -0.38683176162103955, -0.24894784633514516, 0.6868236391793252})
        QCOMPARE(normal.normal(), expected);
    RandomNumbers chiSquare;
    QCOMPARE(chiSquare.chiSquare(9), 8.173516368315685);
    QCOMPARE(chiSquare.chiSquare(2), 0.7961474817422075);
    QCOMPARE(chiSquare.chiSquare(1), 0.0029862784686337986);
}

void TestNumberOfFactors::tridiagonalEigenvaluesAreJacobis()
{
    Random random(11);
    for (int n = 1; n < 40; ++n) {
        // Fewer cases than variables leave many zeros, blocks need no reflection.
        Matrix data = randomMatrix(random.integer(2, 60), n, random);
        Matrix r = correlationsOf(data);
        if (n % 3 == 0)
            for (int i = 0; i < n; ++i)
                for (int j = 0; j < n; ++j)
                    if (i / 3 != j / 3)
                        r[i][j] = 0.0;
        const Eigenpairs expected(r.clone());
        TridiagonalEigenvalues eigenvalues(n);
        const Vector& result = eigenvalues.compute(r);
        QCOMPARE(difference(result, expected.d, 1e-13 * n), QString());
    }
}

void TestNumberOfFactors::parallelAnalysisIsReproducible()
{
    QFETCH(QByteArray, name);
    if (name == "two")
        return;
    const Sample s = sample(name);
    const auto random = parallelAnalysis(s.r.rows(), int(s.reference("n").front()), 1000);
    QVERIFY(random);
    QCOMPARE(s.difference("parallelmean", random->mean, 1e-9), QByteArray());
    QCOMPARE(s.difference("parallel95", random->quantile95, 1e-9), QByteArray());
    const QHash<QByteArray, std::pair<int, int>> numbers = {{"harman24", {3, 4}},
                                                            {"attitude", {1, 1}},
                                                            {"mtcars", {2, 2}},
                                                            {"bfi", {5, 5}},
                                                            {"box", {3, 3}}};
    QCOMPARE(countLeadingAbove(s.d.eigenvalues, random->quantile95), numbers[name].first);
    QCOMPARE(countLeadingAbove(s.d.eigenvalues, random->mean), numbers[name].second);
}

void TestNumberOfFactors::parallelAnalysisTakesEveryNumberOfCases()
{
    for (const int cases : {3, 5, 6, 7, 2147483647}) {
        const auto random = parallelAnalysis(6, cases, 100);
        QVERIFY(random);
        double sum = 0.0;
        for (int j = 0; j < 6; ++j) {
            sum += random->mean[j];
            QVERIFY(random->quantile95[j] >= random->mean[j] - 1e-12);
        }
        QCOMPARE(difference(sum, 6.0, 1e-12), QString());
        // The rank is at most the number of cases less 1.
        QCOMPARE(random->mean[5] > 1e-10, cases > 6);
    }
}

void TestNumberOfFactors::parallelAnalysisCanBeCancelled()
{
    static int asked;
    asked = 0;
    setProgressReport([](const Progress& progress) {
        return progress.work == Progress::Work::RandomMatrices && progress.done == asked / 100.0 &&
               ++asked < 5;
    });
    const auto random = parallelAnalysis(4, 50, 100);
    setProgressReport(nullptr);
    QVERIFY(!random);
    QCOMPARE(asked, 5);
}

void TestNumberOfFactors::onlyLeadingEigenvaluesCount()
{
    const auto vector = [](const std::vector<double>& values) {
        Vector result(int(values.size()));
        std::ranges::copy(values, result.begin());
        return result;
    };
    const Vector eigenvalues = vector({2.0, 0.9, 0.8, 0.3});
    const Vector references = vector({1.5, 0.9, 0.7, 0.2});
    QCOMPARE(countLeadingAbove(eigenvalues, references), 1);
    QCOMPARE(countLeadingAbove(references, references), 0);
    QCOMPARE(countLeadingAbove(eigenvalues, vector({0, 0, 0, 0})), 4);
}

void TestNumberOfFactors::obstaclesAreNamedInTheirOrder()
{
    const Reports reports;
    QFETCH(FaultyMatrix, fault);
    const Sample s(fromRows(fault.rows));
    // An inverse is not needed.
    const bool stands = fault.reason >= Reason::NotPositiveDefinite;
    const Reason reason = stands ? Reason::None : fault.reason;
    QCOMPARE(minimumAveragePartial(s.r, s.d).obstacle.reason, reason);
    QCOMPARE(empiricalKaiserCriterion(s.r, s.d, 100).obstacle.reason, reason);
}

void TestNumberOfFactors::theCriterionNeedsThreeCases()
{
    const Sample s(equicorrelated(3, 0.5));
    QCOMPARE(empiricalKaiserCriterion(s.r, s.d, 0).obstacle.reason, Reason::CasesUnknown);
    const Obstacle tooFew = empiricalKaiserCriterion(s.r, s.d, 2).obstacle;
    QCOMPARE(tooFew.reason, Reason::TooFewCases);
    QCOMPARE(tooFew.number, 3.0);
    QCOMPARE(empiricalKaiserCriterion(s.r, s.d, 3).obstacle.reason, Reason::None);
    QCOMPARE(empiricalKaiserCriterion(s.r, s.d, 2147483647).value.factors, 1);
}

void TestNumberOfFactors::partialCorrelationsEndWhereNothingIsLeft()
{
    const Sample identity(equicorrelated(4, 0.0));
    const MinimumAveragePartial none = minimumAveragePartial(identity.r, identity.d).value;
    QCOMPARE(none.squares.size(), 1);
    QCOMPARE(none.bySquares, 0);
    // Without the first component nothing is left of two equal variables.
    const Sample doubled(fromRows({{1, 1, 0}, {1, 1, 0}, {0, 0, 1}}));
    QCOMPARE(minimumAveragePartial(doubled.r, doubled.d).value.fourthPowers.size(), 1);
    const Sample indefinite(fromRows(faultyMatrices()[4].rows));
    QCOMPARE(minimumAveragePartial(indefinite.r, indefinite.d).value.squares.size(), 1);
}

QTEST_GUILESS_MAIN(TestNumberOfFactors)
#include "tst_numberoffactors.moc"
