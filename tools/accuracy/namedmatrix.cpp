// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "namedmatrix.h"

#include "matrices.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iomanip>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace pelmora {

namespace {

using Numbers = std::vector<double>;

std::vector<Numbers> readRows(const std::filesystem::path& file)
{
    std::ifstream in(file);
    std::vector<Numbers> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.find('#') != std::string::npos || line.starts_with("vname"))
            continue;
        std::istringstream words(line);
        Numbers row;
        for (double value = 0.0; words >> value;)
            row.push_back(value);
        if (!row.empty())
            rows.push_back(row);
    }
    return rows;
}

/// 1 for the first of n variables down to 10^-orders for the last.
Numbers graded(int n, double orders)
{
    Numbers values(static_cast<std::size_t>(n));
    for (std::size_t k = 0; k < values.size(); ++k)
        values[k] = std::pow(10.0, -orders * double(k) / (n - 1));
    return values;
}

Numbers shuffled(Random& random, Numbers values)
{
    for (int k = int(values.size()) - 1; k > 0; --k)
        std::swap(values[std::size_t(k)], values[std::size_t(random.integer(0, k))]);
    return values;
}

Matrix wellConditioned(Random& random, int n)
{
    return correlationsOf(factorData(random, 4 * n, n, std::max(1, n / 6), 0));
}

Matrix nearlySingular(Random& random, int n)
{
    Matrix data = factorData(random, 4 * n, n, std::max(1, n / 6), 0);
    for (int i = 0; i < data.rows(); ++i)
        data[i][n - 1] = data[i][0] + data[i][1] + 1e-6 * random.normal();
    return correlationsOf(std::move(data));
}

Matrix singular(Random& random, int n)
{
    return correlationsOf(factorData(random, n / 2 + 1, n, std::max(1, n / 6), 0));
}

Matrix gradedEigenvalues(Random& random, int n, double orders)
{
    Matrix a = withEigenvalues(random, graded(n, orders));
    makeDiagonalOne(a);
    return a;
}

Matrix gradedCovariances(Random& random, int n)
{
    Matrix a = wellConditioned(random, n);
    scale(a, shuffled(random, graded(n, 8.0)));
    return a;
}

Matrix twoEigenvalues(Random& random, int n)
{
    Numbers values(std::size_t(n), 0.2);
    std::fill_n(values.begin(), n / 3 + 1, 1.8);
    Matrix a = withEigenvalues(random, values);
    makeDiagonalOne(a);
    return a;
}

Matrix indefinite(Random& random, int n)
{
    Matrix a = randomCorrelations(random, n, 0.9);
    roundTo(a, 2);
    return a;
}

} // namespace

Matrix readMatrix(const std::filesystem::path& file)
{
    const std::vector<Numbers> rows = readRows(file);
    if (rows.empty())
        throw std::runtime_error("no matrix in " + file.string());
    Matrix a(int(rows.size()), int(rows.back().size()));
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j) {
            const auto row = std::size_t(i);
            const auto column = std::size_t(j);
            a[i][j] = column < rows[row].size() ? rows[row][column] : rows[column].at(row);
        }
    return a;
}

void writeMatrix(const std::filesystem::path& file, const Matrix& a, int columns)
{
    std::ofstream out(file);
    out.exceptions(std::ios::failbit | std::ios::badbit);
    out << std::setprecision(std::numeric_limits<double>::max_digits10);
    for (int i = 0; i < a.rows(); ++i) {
        for (int j = 0; j < columns; ++j)
            out << a[i][j] << (j + 1 < columns ? ' ' : '\n');
    }
}

std::vector<NamedMatrix> publishedMatrices(const std::filesystem::path& dataFolder,
                                           const std::filesystem::path& work)
{
    std::vector<NamedMatrix> result;
    result.push_back({"24 psychological tests (Harman)",
                      readMatrix(dataFolder / "harman-24-psychological-tests.cor")});
    result.push_back({"box problem (Thurstone), singular",
                      correlationsOf(readMatrix(dataFolder / "box-problem.txt"))});
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(work))
        if (entry.path().extension() == ".published")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const auto& file : files)
        result.push_back({file.stem().string() + " (R)", readMatrix(file)});
    return result;
}

std::vector<NamedMatrix> generatedMatrices()
{
    struct Kind
    {
        const char* name;
        Matrix (*make)(Random&, int);
    };
    const Kind kinds[] = {
        {"well conditioned", wellConditioned},
        {"nearly singular", nearlySingular},
        {"singular", singular},
        {"graded eigenvalues, 14 orders",
         [](Random& r, int n) { return gradedEigenvalues(r, n, 14.0); }},
        {"graded covariances, 16 orders", gradedCovariances},
        {"two different eigenvalues", twoEigenvalues},
        {"all correlations 0.5", [](Random&, int n) { return equicorrelated(n, 0.5, n); }},
        {"not positive semi-definite", indefinite},
    };
    Random random(1);
    std::vector<NamedMatrix> result;
    for (const Kind& kind : kinds)
        for (const int n : {5, 20, 100, 500})
            result.push_back({kind.name, kind.make(random, n)});
    return result;
}

std::vector<NamedMatrix> gradedMatrices()
{
    Random random(2);
    std::vector<NamedMatrix> result;
    for (const int n : {5, 10, 20, 40})
        for (const int orders : {4, 8, 12}) {
            Numbers deviations = graded(n, orders);
            const auto add = [&](const char* order) {
                Matrix a = wellConditioned(random, n);
                scale(a, deviations);
                result.push_back({order, std::move(a)});
            };
            add("descending");
            std::reverse(deviations.begin(), deviations.end());
            add("ascending");
            deviations = shuffled(random, deviations);
            add("shuffled");
        }
    for (const int n : {10, 40})
        result.push_back({"(correlations)", gradedEigenvalues(random, n, 8.0)});
    return result;
}

} // namespace pelmora
