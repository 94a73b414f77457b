// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/factoranalysis.h"
#include "numerics/obstacle.h"
#include "numericstest.h"
#include "support/datarows.h"
#include "support/referencefile.h"

#include <QTest>

Q_DECLARE_METATYPE(pelmora::Reason)

/// What the tests of adequacy and of the number of factors share: samples with what R makes of
/// them, and faulty matrices.
namespace adequacycases {

using namespace numericstest;

inline Matrix symmetric(Matrix lowerTriangle)
{
    for (int i = 0; i < lowerTriangle.rows(); ++i)
        for (int j = 0; j < i; ++j)
            lowerTriangle[j][i] = lowerTriangle[i][j];
    return lowerTriangle;
}

/// All correlations @p r.
inline Matrix equicorrelated(int p, double r)
{
    Matrix result = filled(p, p, r);
    for (int j = 0; j < p; ++j)
        result[j][j] = 1.0;
    return result;
}

struct Sample
{
    explicit Sample(Matrix correlations, QByteArray called = {})
        : name(std::move(called))
        , r(std::move(correlations))
        , d(pelmora::decompose(r))
    {
    }

    /// The line of adequacy.txt with this quantity.
    std::vector<double> reference(const QByteArray& quantity) const
    {
        QFile file(PELMORA_SOURCE_DIR "/tests/data/adequacy.txt");
        if (!file.open(QIODevice::ReadOnly))
            qFatal("Cannot open the references");
        for (const QByteArray& line : file.readAll().split('\n')) {
            QList<QByteArray> words = line.simplified().split(' ');
            if (words.size() < 3 || words.takeFirst() != name || words.takeFirst() != quantity)
                continue;
            std::vector<double> values;
            for (const QByteArray& word : words)
                values.push_back(word.toDouble());
            return values;
        }
        return {};
    }

    /// Empty, or where @p values differ from the reference by more than @p tolerance times their
    /// size.
    QByteArray difference(const QByteArray& quantity, std::span<const double> values,
                          double tolerance = 1e-10) const
    {
        const std::vector<double> expected = reference(quantity);
        if (expected.empty() || expected.size() != values.size())
            return quantity + ": " + QByteArray::number(int(values.size())) + " values, not " +
                   QByteArray::number(int(expected.size()));
        for (std::size_t i = 0; i < expected.size(); ++i)
            if (!(std::fabs(values[i] - expected[i]) <=
                  tolerance * std::max(1.0, std::fabs(expected[i]))))
                return quantity + ' ' + QByteArray::number(int(i) + 1) + ": " +
                       QByteArray::number(values[i], 'g', 17) + ", not " +
                       QByteArray::number(expected[i], 'g', 17);
        return {};
    }
    QByteArray difference(const QByteArray& quantity, std::initializer_list<double> values) const
    {
        return difference(quantity, std::span(values.begin(), values.size()));
    }
    QByteArray difference(const QByteArray& quantity, const Vector& values,
                          double tolerance = 1e-10) const
    {
        return difference(quantity, std::span(values.begin(), std::size_t(values.size())),
                          tolerance);
    }

    QByteArray name;
    Matrix r;
    pelmora::Decomposition d;
};

inline Sample sample(const QByteArray& name)
{
    if (name == "harman24")
        return Sample(symmetric(numbersIn(PELMORA_DATA_DIR "/harman-24-psychological-tests.cor")),
                      name);
    if (name == "bfi")
        return Sample(symmetric(reference("bfi")), name);
    if (name == "two")
        return Sample(equicorrelated(2, 0.5), name);
    Matrix data = name == "box" ? numbersIn(PELMORA_DATA_DIR "/box-problem.txt")
                                : reference(QString::fromLatin1(name));
    return Sample(correlationsOf(data), name);
}

inline void addSamples()
{
    const DataRows<QByteArray> row("name");
    for (const char* name : {"harman24", "attitude", "mtcars", "bfi", "box", "two"})
        row(name, name);
}

struct FaultyMatrix
{
    const char* name = nullptr;
    std::vector<std::vector<double>> rows;
    pelmora::Reason reason = {};
    double number = 0.0;
};

/// With the first reason that holds for a number that needs the inverse.
inline const std::vector<FaultyMatrix>& faultyMatrices()
{
    using enum pelmora::Reason;
    static const std::vector<FaultyMatrix> cases = {
        {"constant variable, covariances", {{4, notANumber}, {notANumber, 1}}, NotNumbers},
        {"covariances", {{4, 2}, {2, 1}}, DiagonalNotOne},
        {"a single variance", {{1.1}}, DiagonalNotOne},
        {"a single variable", {{1}}, TooFewVariables, 2},
        {"beyond 1",
         {{1, 0.9, 0.3}, {0.9, 1, 0.8}, {0.3, 0.8, 1}},
         NotPositiveDefinite,
         -0.0650807194932082},
        {"a doubled variable", {{1, 0.3, 1}, {0.3, 1, 0.3}, {1, 0.3, 1}}, Singular},
        {"regular, the diagonal 1 within 1e-6", {{1.0000009, 0.3}, {0.3, 1}}, None}};
    return cases;
}

inline void addFaultyMatrices()
{
    const DataRows<FaultyMatrix> row("fault");
    for (const FaultyMatrix& fault : faultyMatrices())
        row(fault.name, fault);
}

} // namespace adequacycases
