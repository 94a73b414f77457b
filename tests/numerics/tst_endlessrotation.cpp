// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "plain/numerics.h"
#include "rotationdifference.h"

#include <QTest>

using namespace pelmora;
using namespace numericstest;

namespace {

/// A rotation by plain sweeps alone, which may repeat for ever; given up after so many.
struct Unaided : Rotation
{
    Unaided(const Matrix& loadings, int factors, int method, int mostSweeps)
        : Rotation(loadings, factors)
    {
        const double first = sweep(method);
        double previous = sweep(method);
        ended = std::fabs(first - previous) <= 1e-12;
        for (int i = 0; !ended && i < mostSweeps; ++i) {
            before = total();
            // The nearest angle of every pair: a plain sweep.
            const double criterion = sweep(NoRotation);
            ended = !(std::fabs(previous - criterion) > 1e-12);
            previous = criterion;
        }
    }

    bool ended = false;
    double before = 0.0;
};

/// Correlations of all sorts, from well-behaved to odd.
enum Kind { Surveys, TwoDecimals, Covariances, EqualEigenvalues, Blocks };
const char* const kindNames[] = {"surveys", "two decimals", "covariances", "equal eigenvalues",
                                 "blocks"};

Matrix oddMatrix(Kind kind, Random& random)
{
    const int p = random.integer(3, 10);
    Matrix data = survey(random.integer(p + 5, 100), p, random);
    Matrix r = correlationsOf(data);
    const double common = 0.01 * random.integer(0, 99);
    for (int i = 0; i < p; ++i)
        for (int j = 0; j <= i; ++j) {
            double& element = r[i][j];
            if (kind == TwoDecimals)
                element = std::round(100.0 * element) / 100.0;
            if (kind == Covariances)
                element *= (1.0 + 0.2 * (i % 3)) * (1.0 + 0.2 * (j % 3));
            if (kind == EqualEigenvalues || kind == Blocks)
                element = i == j ? 1.0 : kind == EqualEigenvalues || i / 3 == j / 3 ? common : 0.0;
            r[j][i] = element;
        }
    return r;
}

bool isFinite(const Matrix& l)
{
    return std::ranges::all_of(elements(l), [](double x) { return std::isfinite(x); });
}

} // namespace

class TestEndlessRotation : public QObject
{
    Q_OBJECT

private slots:
    void aSwingingRefinementEndsBetter();
    void everyRotationEnds_data();
    void everyRotationEnds();
};

void TestEndlessRotation::aSwingingRefinementEndsBetter()
{
    const Matrix loadings = Eigenpairs(fromRows({{1.0, .39, -.24, .17},
                                                 {.39, 1.0, .17, -.25},
                                                 {-.24, .17, 1.0, .2},
                                                 {.17, -.25, .2, 1.0}}))
                                .initialLoadings();
    const Unaided unaided(loadings, 3, VarimaxRotation, 5000);
    QVERIFY(!unaided.ended);

    const Rotation ended = rotated(loadings, 3, VarimaxRotation);
    QVERIFY(isFinite(ended.l) && isFinite(ended.b));
    const auto [low, high] = std::minmax({unaided.before, unaided.total()});
    const QString totals =
        QStringLiteral("%1 and %2, then %3").arg(low).arg(high).arg(ended.total());
    QVERIFY2(high - low > 1e-6, qPrintable(totals));
    QVERIFY2(ended.total() >= high, qPrintable(totals));
    QCOMPARE(difference(ended, rotated(loadings, 3, VarimaxRotation, plain::rotate)), QString());
}

void TestEndlessRotation::everyRotationEnds_data()
{
    QTest::addColumn<int>("kind");
    for (int kind = Surveys; kind <= Blocks; ++kind)
        QTest::newRow(kindNames[kind]) << kind;
}

void TestEndlessRotation::everyRotationEnds()
{
    QFETCH(int, kind);
    Random random{unsigned(kind)};
    int unaidedEnds = 0;
    for (int i = 0; i < 600; ++i) {
        const Eigenpairs pairs(oddMatrix(Kind(kind), random));
        const Matrix loadings = pairs.initialLoadings();
        const int p = loadings.rows();
        const auto aboveOne = std::ranges::count_if(pairs.d, [](double d) { return d >= 1.0; });
        const int m = i % 2 ? random.integer(2, p) : std::clamp(int(aboveOne), 2, p);
        for (int method : {PelmoraRotation, VarimaxRotation}) {
            const Rotation ended = rotated(loadings, m, method);
            QVERIFY(isFinite(ended.l));
            const Unaided unaided(loadings, m, method, 500);
            if (!unaided.ended)
                continue;
            ++unaidedEnds;
            QCOMPARE(difference(ended.l, unaided.l), QString());
        }
    }
    QVERIFY2(unaidedEnds > 600, qPrintable(QString::number(unaidedEnds)));
}

QTEST_GUILESS_MAIN(TestEndlessRotation)
#include "tst_endlessrotation.moc"
