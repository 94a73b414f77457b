// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/progress.h"

#include "rotationdifference.h"
#include "support/answers.h"

#include <QTest>

using namespace pelmora;
using namespace numericstest;

class TestProgress : public QObject
{
    Q_OBJECT

private slots:
    void askingChangesNoBit();
    void cancelledCorrelationsLeaveTheData();
    void cancelledRotationsLeaveTheirMatrices();
    void cancelledEigenvaluesEndSoon();
    void aNoStands();
};

void TestProgress::askingChangesNoBit()
{
    Random random(1);
    Matrix data = survey(3000, 240, random);
    Matrix sameData = data.clone();
    const Matrix correlations = correlationsOf(data);
    const Eigenpairs pairs(correlations.clone());
    const Rotation rotation = rotated(pairs.initialLoadings(), 30, PelmoraRotation);

    const Answers answers(Answers::always);
    const Matrix again = correlationsOf(sameData);
    QCOMPARE(difference(again, correlations), QString());
    QCOMPARE(difference(sameData, data), QString());
    const Eigenpairs pairsAgain(again.clone());
    QCOMPARE(difference(pairsAgain.v, pairs.v), QString());
    QCOMPARE(difference(rotated(pairsAgain.initialLoadings(), 30, PelmoraRotation), rotation),
             QString());
    for (const auto work :
         {Progress::Work::Correlations, Progress::Work::Eigenvalues, Progress::Work::Rotation})
        QVERIFY(std::ranges::any_of(Answers::asked,
                                    [work](const Progress& asked) { return asked.work == work; }));
}

void TestProgress::cancelledCorrelationsLeaveTheData()
{
    Random random(2);
    for (const int flag : {0, 1}) {
        Matrix data = flag == 1 ? survey(120, 3000, random) : survey(3000, 120, random);
        const Matrix before = data.clone();
        const Answers answers(1);
        QVERIFY(!correlate(data.rowPointers(), data.rows(), data.columns(), flag));
        QCOMPARE(Answers::asked.size(), std::size_t(2));
        QCOMPARE(difference(data, before), QString());
    }
}

void TestProgress::cancelledRotationsLeaveTheirMatrices()
{
    Random random(3);
    Matrix data = survey(300, 60, random);
    const Matrix loadings = Eigenpairs(correlationsOf(data)).initialLoadings();
    for (const int method : {PelmoraRotation, VarimaxRotation})
        for (const int yes : {0, 1, 3}) {
            const Rotation before(loadings, 30);
            Rotation rotation(loadings, 30);
            const Answers answers(yes);
            rotation.rotate(method);
            QCOMPARE(Answers::asked.size(), std::size_t(yes) + 1);
            QCOMPARE(Answers::asked.back().factors, 30);
            QCOMPARE(difference(rotation, before), QString());
        }
}

void TestProgress::cancelledEigenvaluesEndSoon()
{
    Random random(4);
    for (const int variables : {60, 240}) {
        Matrix data = survey(600, variables, random);
        const Matrix correlations = correlationsOf(data);
        const int needed = Decomposition(correlations.clone()).rotations;
        const Answers answers(0);
        const Reports reports;
        const Decomposition cancelled(correlations.clone());
        QVERIFY(isCancelled());
        QCOMPARE(Answers::asked.size(), std::size_t(1));
        QVERIFY(Answers::asked.front().sweep >= 1);
        QVERIFY2(cancelled.rotations < needed,
                 qPrintable(QString("%1 of %2").arg(cancelled.rotations).arg(needed)));
        QVERIFY(Reports::texts.empty());
    }
}

void TestProgress::aNoStands()
{
    const Answers answers(0);
    const Progress progress{.work = Progress::Work::Reading};
    QVERIFY(!goOn(progress));
    QVERIFY(!goOn(progress));
    QCOMPARE(Answers::asked.size(), std::size_t(1));
    setProgressReport(nullptr);
    QVERIFY(!isCancelled());
    QVERIFY(goOn(progress));
}

QTEST_GUILESS_MAIN(TestProgress)
#include "tst_progress.moc"
