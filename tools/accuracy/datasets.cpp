// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "datasets.h"

#include "matrices.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace pelmora {

namespace {

Matrix answers(Random& random, int cases, int variables)
{
    const int factors = random.integer(1, std::max(1, variables / 3));
    return correlationsOf(factorData(random, cases, variables, factors, random.integer(2, 7)));
}

Matrix surveyAnswers(Random& random)
{
    return answers(random, random.integer(20, 400), random.integer(3, 40));
}

Matrix longQuestionnaires(Random& random)
{
    return answers(random, random.integer(100, 500), random.integer(41, 120));
}

Matrix publishedLike(Random& random)
{
    Matrix a = answers(random, random.integer(30, 200), random.integer(3, 30));
    roundTo(a, 2);
    return a;
}

Matrix smallRandom(Random& random)
{
    Matrix a = randomCorrelations(random, random.integer(3, 8), random.uniform(0.05, 0.95));
    roundTo(a, 2);
    return a;
}

Matrix notSemiDefinite(Random& random)
{
    return randomCorrelations(random, random.integer(3, 60), random.uniform(0.2, 1.0));
}

Matrix equalEigenvalues(Random& random)
{
    std::vector<double> values(std::size_t(random.integer(4, 40)));
    const int different = random.integer(1, 4);
    for (double& value : values)
        value = random.integer(1, different);
    Matrix a = withEigenvalues(random, values);
    if (random.integer(0, 1) == 0)
        makeDiagonalOne(a);
    return a;
}

/// Every variable of a block correlates alike with the others of it, and all blocks are alike.
Matrix equalBlocks(Random& random)
{
    const int blockSize = random.integer(2, 10);
    const int n = blockSize * random.integer(1, 120 / blockSize / 2);
    return equicorrelated(std::max(n, 3), 0.05 * random.integer(1, 19), blockSize);
}

Matrix differentBlocks(Random& random)
{
    const int n = random.integer(4, 60);
    Matrix a = equicorrelated(n, 0.0, 1);
    for (int start = 0; start < n;) {
        const int end = std::min(n, start + random.integer(1, 8));
        const double r = 0.1 * random.integer(-1, 9);
        for (int i = start; i < end; ++i)
            for (int j = start; j < end; ++j)
                a[i][j] = i == j ? 1.0 : r;
        start = end;
    }
    return a;
}

/// The unit matrix: as it is, with a few correlations, or with traces of all of them.
Matrix nearIdentity(Random& random)
{
    switch (random.integer(0, 2)) {
    case 0:
        return equicorrelated(random.integer(2, 120), 0.0, 1);
    case 1: {
        const int n = random.integer(2, 120);
        Matrix a = equicorrelated(n, 0.0, 1);
        for (int k = random.integer(1, 4); k > 0; --k) {
            const int i = random.integer(0, n - 2);
            const int j = random.integer(i + 1, n - 1);
            a[i][j] = a[j][i] = 0.1 * random.integer(-5, 5);
        }
        return a;
    }
    default:
        return randomCorrelations(random, random.integer(2, 50),
                                  std::pow(10.0, -random.integer(2, 17)));
    }
}

Matrix covariances(Random& random)
{
    Matrix a = answers(random, random.integer(30, 300), random.integer(3, 14));
    std::vector<double> deviations(std::size_t(a.rows()));
    const double spread = random.uniform(0.0, 2.0);
    const double unit = std::pow(10.0, random.uniform(-2.0, 3.0));
    for (double& deviation : deviations)
        deviation = unit * std::pow(10.0, spread * random.uniform(-1.0, 1.0));
    scale(a, deviations);
    return a;
}

Matrix fewCases(Random& random)
{
    const int variables = random.integer(4, 40);
    return correlationsOf(
        factorData(random, random.integer(3, variables), variables, random.integer(1, 5), 0));
}

/// Correlations that depend on the distance of two variables only, on a line or round a circle.
Matrix distances(Random& random)
{
    const int n = random.integer(3, 60);
    const bool circle = random.integer(0, 1) == 0;
    const double r = 0.05 * random.integer(-10, 19);
    Matrix a(n, n);
    for (int i = 0; i < n; ++i)
        for (int j = 0; j < n; ++j) {
            const int distance = std::abs(i - j);
            a[i][j] = std::pow(r, circle ? std::min(distance, n - distance) : distance);
        }
    return a;
}

constexpr DataKind kinds[] = {
    {"survey answers, 3 to 40 variables", 26, surveyAnswers},
    {"survey answers, 41 to 120 variables", 4, longQuestionnaires},
    {"published-like, two decimals", 18, publishedLike},
    {"random, two decimals, 3 to 8 variables", 14, smallRandom},
    {"not positive semi-definite", 4, notSemiDefinite},
    {"equal eigenvalues", 9, equalEigenvalues},
    {"equal blocks", 4, equalBlocks},
    {"different blocks", 4, differentBlocks},
    {"identity and almost identity", 4, nearIdentity},
    {"covariances read as correlations", 1, covariances},
    {"fewer cases than variables", 8, fewCases},
    {"on a line or a circle", 4, distances},
};

bool isFinite(const Matrix& a)
{
    for (int i = 0; i < a.rows(); ++i)
        if (!std::all_of(a[i], a[i] + a.columns(), [](double x) { return std::isfinite(x); }))
            return false;
    return true;
}

} // namespace

std::span<const DataKind> dataKinds()
{
    return kinds;
}

int kindOf(std::int64_t number)
{
    int kind = 0;
    for (int left = int(number % 100); left >= kinds[kind].share; ++kind)
        left -= kinds[kind].share;
    return kind;
}

Matrix dataSet(std::int64_t number)
{
    Random random{std::uint64_t(number)};
    for (;;) {
        Matrix a = kinds[kindOf(number)].make(random);
        // Few answers may be all alike, and such a variable correlates with nothing.
        if (isFinite(a))
            return a;
    }
}

} // namespace pelmora
