// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "minimalpairs/minimalpairfinder.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

NamedMatrix loadingsOf(const std::vector<std::vector<double>>& rows)
{
    const int columns = rows.empty() ? 0 : static_cast<int>(rows.front().size());
    NamedMatrix loadings{pelmora::Matrix(static_cast<int>(rows.size()), columns),
                         VariableNames(rows.size())};
    for (int i = 0; i < loadings.values.rows(); ++i)
        std::copy(rows[static_cast<std::size_t>(i)].begin(),
                  rows[static_cast<std::size_t>(i)].end(), loadings.values[i]);
    return loadings;
}

struct Ranked
{
    int first;
    int second;
    double difference;
};

/// Every pair, by the definition, then a stable sort: not-a-number last.
std::vector<Ranked> bruteForce(const pelmora::Matrix& a, int focal)
{
    std::vector<Ranked> pairs;
    for (int i = 0; i < a.rows(); ++i) {
        for (int j = i + 1; j < a.rows(); ++j) {
            double others = 0.0;
            for (int k = 0; k < a.columns(); ++k)
                others += k == focal ? 0.0 : std::abs(a[i][k] - a[j][k]);
            const double average = a.columns() > 1 ? others / (a.columns() - 1) : 0.0;
            pairs.push_back({i, j, std::abs(a[i][focal] - a[j][focal]) - average});
        }
    }
    std::stable_sort(pairs.begin(), pairs.end(), [](const Ranked& left, const Ranked& right) {
        const bool leftNan = std::isnan(left.difference);
        const bool rightNan = std::isnan(right.difference);
        return leftNan || rightNan ? !leftNan && rightNan : left.difference > right.difference;
    });
    return pairs;
}

NamedMatrix randomLoadings(std::mt19937& random, int variables, int factors,
                           double (*shape)(double))
{
    std::uniform_real_distribution<double> loading(-1.0, 1.0);
    NamedMatrix loadings{pelmora::Matrix(variables, factors),
                         VariableNames(static_cast<std::size_t>(variables))};
    for (int i = 0; i < variables; ++i)
        for (int k = 0; k < factors; ++k)
            loadings.values[i][k] = shape(loading(random));
    return loadings;
}

} // namespace

class TestMinimalPairFinder : public QObject
{
    Q_OBJECT

private slots:
    void ranksAsBruteForce_data();
    void ranksAsBruteForce();
    void aPairKnowsItsVariables();
    void nonFocalFactorsAscend();
    void fewPairs_data();
    void fewPairs();
    void aPairBeyondTheLastIsRefused_data();
    void aPairBeyondTheLastIsRefused();
};

void TestMinimalPairFinder::ranksAsBruteForce_data()
{
    using Shape = double (*)(double);
    QTest::addColumn<Shape>("shape");
    QTest::newRow("all different") << Shape([](double x) { return x; });
    QTest::newRow("many ties") << Shape([](double x) { return std::round(2.0 * x) / 10.0; });
    QTest::newRow("ties but for rounding")
        << Shape([](double x) { return std::round(2.0 * x) / 10.0 + std::round(x) * 1e-16; });
    QTest::newRow("wide range") << Shape([](double x) { return x * std::pow(10.0, 300.0 * x); });
    QTest::newRow("denormal") << Shape([](double x) { return std::round(3.0 * x) * 5e-324; });
    QTest::newRow("some not a number") << Shape([](double x) { return x > 0.8 ? notANumber : x; });
    QTest::newRow("mostly not a number")
        << Shape([](double x) { return x > -0.8 ? notANumber : x; });
    QTest::newRow("some infinite") << Shape([](double x) {
        return x > 0.9 ? infinity : x < -0.9 ? -infinity : x;
    });
    QTest::newRow("none a number") << Shape([](double) { return notANumber; });
    QTest::newRow("all equal") << Shape([](double) { return 0.7; });
}

void TestMinimalPairFinder::ranksAsBruteForce()
{
    using Shape = double (*)(double);
    QFETCH(Shape, shape);
    std::mt19937 random(20260101);
    for (int round = 0; round < 200; ++round) {
        const int variables = 2 + round % 17;
        const int factors = 1 + round % 7;
        const auto loadings = randomLoadings(random, variables, factors, shape);
        const MinimalPairFinder finder(loadings);
        QCOMPARE(finder.pairCount(), std::min(3, variables * (variables - 1) / 2));
        for (int focal = 0; focal < factors; ++focal) {
            const auto expected = bruteForce(loadings.values, focal);
            for (int rank = 0; rank < finder.pairCount(); ++rank) {
                const auto pair = finder.pair(focal, rank);
                const auto& ranked = expected[static_cast<std::size_t>(rank)];
                QCOMPARE(pair.variables[0].index, ranked.first);
                QCOMPARE(pair.variables[1].index, ranked.second);
                const bool same = pair.difference == ranked.difference ||
                                  (std::isnan(pair.difference) && std::isnan(ranked.difference));
                QVERIFY2(same, qPrintable(QString::number(pair.difference - ranked.difference)));
            }
        }
    }
}

void TestMinimalPairFinder::aPairKnowsItsVariables()
{
    auto loadings = loadingsOf({{0.1, 0.5}, {0.9, 0.5}, {0.2, -0.5}});
    loadings.names =
        VariableNames::fromTexts({QStringLiteral("Weight"), QString(), QStringLiteral("\u00d6l")});
    const auto pair = MinimalPairFinder(loadings).pair(1, 0);
    QCOMPARE(pair.variables[0].index, 0);
    QCOMPARE(pair.variables[1].index, 2);
    QCOMPARE(pair.variables[0].name, QStringLiteral("Weight"));
    QCOMPARE(pair.variables[1].name, QStringLiteral("\u00d6l"));
    QCOMPARE(pair.variables[1].loadings, (std::vector<double>{0.2, -0.5}));
    QCOMPARE(pair.difference, 1.0 - (0.2 - 0.1));
}

void TestMinimalPairFinder::nonFocalFactorsAscend()
{
    const MinimalPairFinder finder(loadingsOf({{1, 2, 3, 4}, {4, 3, 2, 1}}));
    QCOMPARE(finder.nonFocalFactors(2), (std::vector<int>{0, 1, 3}));
    QCOMPARE(MinimalPairFinder(loadingsOf({{1}, {2}})).nonFocalFactors(0), std::vector<int>());
}

void TestMinimalPairFinder::fewPairs_data()
{
    QTest::addColumn<int>("variables");
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("pairs");
    QTest::newRow("no variable") << 0 << 3 << 0;
    QTest::newRow("one variable") << 1 << 3 << 0;
    QTest::newRow("two variables") << 2 << 3 << 1;
    QTest::newRow("three variables") << 3 << 3 << 3;
    QTest::newRow("all pairs") << 5 << 100 << 10;
    QTest::newRow("none wanted") << 5 << 0 << 0;
}

void TestMinimalPairFinder::fewPairs()
{
    QFETCH(int, variables);
    QFETCH(int, limit);
    QFETCH(int, pairs);
    const std::vector<std::vector<double>> rows(static_cast<std::size_t>(variables), {0.1, 0.2});
    const MinimalPairFinder finder(loadingsOf(rows), limit);
    QCOMPARE(finder.pairCount(), pairs);
    QCOMPARE(finder.variableCount(), variables);
}

void TestMinimalPairFinder::aPairBeyondTheLastIsRefused_data()
{
    QTest::addColumn<int>("focalFactor");
    QTest::addColumn<int>("rank");
    QTest::newRow("rank beyond the last") << 0 << 1;
    QTest::newRow("negative rank") << 0 << -1;
    QTest::newRow("factor beyond the last") << 2 << 0;
    QTest::newRow("negative factor") << -1 << 0;
}

void TestMinimalPairFinder::aPairBeyondTheLastIsRefused()
{
    QFETCH(int, focalFactor);
    QFETCH(int, rank);
    const MinimalPairFinder finder(loadingsOf({{1, 2}, {3, 4}}));
    try {
        finder.pair(focalFactor, rank);
        QFAIL("no exception");
    } catch (const std::out_of_range& exception) {
        QCOMPARE(exception.what(), "no such minimal pair!");
    }
}

QTEST_GUILESS_MAIN(TestMinimalPairFinder)
#include "tst_minimalpairfinder.moc"
