// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "minimalpairs/minimalpairfinder.h"
#include "support/datarows.h"
#include "views/loadings.h"

#include <QTest>

#include <algorithm>
#include <cmath>
#include <random>
#include <stdexcept>

namespace {

using Shape = double (*)(double);

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
    const auto key = [](const Ranked& pair) {
        return std::pair(std::isnan(pair.difference), -pair.difference);
    };
    std::stable_sort(pairs.begin(), pairs.end(), [&key](const Ranked& left, const Ranked& right) {
        return key(left) < key(right);
    });
    return pairs;
}

} // namespace

class TestMinimalPairFinder : public QObject
{
    Q_OBJECT

private slots:
    void ranksAsBruteForce_data()
    {
        const DataRows<Shape> row("shape");
        row("all different", [](double x) { return x; });
        row("many ties", [](double x) { return std::round(2.0 * x) / 10.0; });
        row("ties but for rounding",
            [](double x) { return std::round(2.0 * x) / 10.0 + std::round(x) * 1e-16; });
        row("wide range", [](double x) { return x * std::pow(10.0, 300.0 * x); });
        row("denormal", [](double x) { return std::round(3.0 * x) * 5e-324; });
        row("some not a number", [](double x) { return x > 0.8 ? NAN : x; });
        row("mostly not a number", [](double x) { return x > -0.8 ? NAN : x; });
        row("some infinite",
            [](double x) { return std::abs(x) > 0.9 ? std::copysign(INFINITY, x) : x; });
    }
    void ranksAsBruteForce()
    {
        QFETCH(Shape, shape);
        std::mt19937 random(20260101);
        std::uniform_real_distribution<double> loading(-1.0, 1.0);
        const int limits[] = {3, 100, 0};
        for (int round = 0; round < 300; ++round) {
            NamedMatrix loadings{pelmora::Matrix(round % 19, 1 + round % 7), VariableNames()};
            auto& a = loadings.values;
            for (int i = 0; i < a.rows(); ++i)
                std::generate_n(a[i], a.columns(), [&] { return shape(loading(random)); });
            const int limit = limits[round % 3];
            const MinimalPairFinder finder(loadings, limit);
            QCOMPARE(finder.variableCount(), a.rows());
            QCOMPARE(finder.pairCount(), std::min(limit, a.rows() * (a.rows() - 1) / 2));
            for (int focal = 0; focal < a.columns(); ++focal) {
                const auto expected = bruteForce(a, focal);
                for (int rank = 0; rank < finder.pairCount(); ++rank) {
                    const auto pair = finder.pair(focal, rank);
                    const auto& [first, second, difference] = expected[std::size_t(rank)];
                    QCOMPARE(pair.variables[0].index, first);
                    QCOMPARE(pair.variables[1].index, second);
                    const bool same = pair.difference == difference ||
                                      (std::isnan(pair.difference) && std::isnan(difference));
                    QVERIFY2(same, qPrintable(QString::number(pair.difference - difference)));
                }
            }
        }
    }

    void aPairKnowsItsVariables()
    {
        const MinimalPairFinder finder(
            loadingsOf({{0.1, 0.5, 0}, {0.9, 0.5, 0}, {0.2, -0.5, 0}}, {"Weight", "", "\u00d6l"}));
        const auto pair = finder.pair(1, 0);
        QCOMPARE(pair.variables[0].name, "Weight");
        QCOMPARE(pair.variables[1].name, "\u00d6l");
        QCOMPARE(pair.variables[1].loadings, (std::vector{0.2, -0.5, 0.0}));
        QCOMPARE(finder.nonFocalFactors(1), (std::vector{0, 2}));
    }

    void aPairBeyondTheLastIsRefused_data()
    {
        const DataRows<int, int> row("factor", "rank");
        row("rank too high", 0, 1);
        row("negative rank", 0, -1);
        row("factor too high", 2, 0);
        row("negative factor", -1, 0);
    }

    void aPairBeyondTheLastIsRefused()
    {
        QFETCH(int, factor);
        QFETCH(int, rank);
        const MinimalPairFinder finder(loadingsOf({{1, 2}, {3, 4}}, {"a", "b"}));
        try {
            finder.pair(factor, rank);
            QFAIL("no exception");
        } catch (const std::out_of_range& exception) {
            QCOMPARE(exception.what(), "no such minimal pair!");
        }
    }
};

QTEST_GUILESS_MAIN(TestMinimalPairFinder)
#include "tst_minimalpairfinder.moc"
