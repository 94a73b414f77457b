// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "numerics/moments.h"

#include "numericstest.h"
#include "support/difference.h"

#include <QTest>

using namespace pelmora;
using namespace numericstest;

namespace {

__extension__ typedef __int128 Wide;

constexpr int blockSize = MomentsGatherer::casesPerBlock;

/// Cases whose sums are whole numbers of 1/64, so that exact results can be had.
struct Cases
{
    Cases(int cases, int variables, double mean, unsigned seed) : n(cases), p(variables)
    {
        Random random(seed);
        for (int i = 0; i < n; ++i) {
            const int common = random.integer(-64, 64);
            for (int j = 0; j < p; ++j)
                offsets.push_back(common + random.integer(-64, 64));
        }
        for (const std::int64_t offset : offsets)
            values.push_back(mean + static_cast<double>(offset) / 64.0);
    }

    void setFirstCase(double value, double mean)
    {
        for (int j = 0; j < p; ++j) {
            values[std::size_t(j)] = value;
            offsets[std::size_t(j)] = static_cast<std::int64_t>((value - mean) * 64.0);
        }
    }

    /// n times the sum of products of deviations.
    Wide product(int j, int k) const
    {
        Wide products = 0;
        Wide sumJ = 0;
        Wide sumK = 0;
        for (int i = 0; i < n; ++i) {
            const Wide a = offsets[std::size_t(i) * std::size_t(p) + std::size_t(j)];
            const Wide b = offsets[std::size_t(i) * std::size_t(p) + std::size_t(k)];
            products += a * b;
            sumJ += a;
            sumK += b;
        }
        return n * products - sumJ * sumK;
    }

    double correlation(int j, int k) const
    {
        const auto jj = static_cast<long double>(product(j, j));
        const auto kk = static_cast<long double>(product(k, k));
        return static_cast<double>(static_cast<long double>(product(j, k)) /
                                   (std::sqrt(jj) * std::sqrt(kk)));
    }

    Moments gather(int from, int to) const
    {
        MomentsGatherer gatherer(p);
        for (int i = from; i < to; i += blockSize)
            gatherer.addBlock(values.data() + std::ptrdiff_t(i) * p, std::min(blockSize, to - i));
        return gatherer.takeMoments();
    }

    int n;
    int p;
    std::vector<std::int64_t> offsets;
    std::vector<double> values;
};

} // namespace

class TestMoments : public QObject
{
    Q_OBJECT

private slots:
    void againstExactCorrelations_data();
    void againstExactCorrelations();
    void constantAndEqualVariables();
    void ofNoCases();
};

void TestMoments::againstExactCorrelations_data()
{
    QTest::addColumn<int>("cases");
    QTest::addColumn<int>("variables");
    QTest::addColumn<double>("mean");
    QTest::addColumn<double>("firstCase"); // a whole number, as far away as you like
    const auto add = [](int cases, int variables, double mean, double firstCase) {
        QTest::addRow("%d x %d, mean %g, first %g", cases, variables, mean, firstCase)
            << cases << variables << mean << firstCase;
    };
    for (int cases : {2, 127, 129, blockSize - 1, blockSize, blockSize + 1, 30'000})
        add(cases, 9, 0, 1);
    for (int variables : {1, 2, 7, 8, 17})
        add(500, variables, 5, 5);
    add(100'000, 5, 1e8, 1e8);
    add(10'000, 3, 1e8, -999);
    add(10'000, 3, 1, 999'999'999'999.0);
}

void TestMoments::againstExactCorrelations()
{
    QFETCH(int, cases);
    QFETCH(int, variables);
    QFETCH(double, mean);
    QFETCH(double, firstCase);
    // A case of 10^8 deviations leaves the others few digits in any sum.
    const double tolerance = firstCase == mean + 1 || firstCase == mean ? 1e-14 : 1e-13;
    Cases data(cases, variables, mean, unsigned(cases + variables));
    data.setFirstCase(firstCase, mean);
    // In one go, and merged from parts that end anywhere.
    Moments merged = data.gather(0, cases / 3);
    merged.merge(data.gather(cases / 3, cases / 2));
    merged.merge(data.gather(cases / 2, cases));
    for (const Moments& moments : {data.gather(0, cases), merged}) {
        QCOMPARE(moments.cases, std::uint64_t(cases));
        Matrix correlations(variables, variables);
        Matrix expected(variables, variables);
        for (int j = 0; j < variables; ++j)
            for (int k = 0; k < variables; ++k) {
                correlations[j][k] = moments.correlation(j, k);
                expected[j][k] = data.correlation(j, k);
            }
        QCOMPARE(difference(correlations, expected, tolerance), QString());
    }
}

void TestMoments::constantAndEqualVariables()
{
    std::vector<double> values;
    Random random(3);
    for (int i = 0; i < 3 * blockSize; ++i) {
        const double number = random.number() * 1e3;
        values.insert(values.end(), {0.1, number, 2.5e-7 * number, number});
    }
    MomentsGatherer gatherer(4);
    for (int block = 0; block < 3; ++block)
        gatherer.addBlock(values.data() + std::ptrdiff_t(block) * 4 * blockSize, blockSize);
    const Moments moments = gatherer.takeMoments();
    QCOMPARE(moments.productRow(0)[0], 0.0);
    QCOMPARE(moments.mean(0), 0.1);
    QVERIFY(std::isnan(moments.correlation(0, 1)));
    QCOMPARE(moments.correlation(1, 3), 1.0);
    QCOMPARE(moments.correlation(3, 1), 1.0);
    QCOMPARE(difference(moments.correlation(1, 2), 1.0, 1e-14), QString());
}

void TestMoments::ofNoCases()
{
    const Cases data(10, 2, 0, 1);
    const Moments some = data.gather(0, 10);
    Moments merged(2);
    merged.merge(some);
    merged.merge(Moments(2));
    QCOMPARE(merged.cases, some.cases);
    QCOMPARE(merged.shift, some.shift);
    QCOMPARE(merged.rest, some.rest);
    QCOMPARE(merged.products, some.products);
}

QTEST_GUILESS_MAIN(TestMoments)
#include "tst_moments.moc"
