// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/scorer.h"

#include "batch/console.h"
#include "numerics/product.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <limits>
#include <new>

namespace batch {

namespace {

/// Numbers that are not finite are null.
double number(const QJsonValue& value)
{
    return value.toDouble(std::numeric_limits<double>::quiet_NaN());
}

std::vector<double> numbers(const QJsonValue& array)
{
    std::vector<double> values;
    for (const QJsonValue value : array.toArray())
        values.push_back(number(value));
    return values;
}

QJsonObject pageOf(const QJsonObject& analysis, const QString& rotation)
{
    for (const QJsonValue page : analysis[QLatin1String("pages")].toArray())
        if (page[QLatin1String("rotation")] == rotation)
            return page.toObject();
    return {};
}

pelmora::Matrix allocated(int rows, int columns)
{
    pelmora::Matrix matrix(rows, columns);
    if (matrix.isNull())
        throw std::bad_alloc();
    return matrix;
}

} // namespace

std::optional<Scorer> Scorer::fromFile(const QString& path, const QString& page, QString& fault)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fault = tr("Cannot open file %1").arg(path);
        return std::nullopt;
    }
    const auto document = QJsonDocument::fromJson(file.readAll());
    const QJsonObject analysis = document.object();
    const QJsonObject wanted = pageOf(analysis, page);
    Scorer scorer;
    if (document.isArray())
        fault = tr("There are several analyses in this file; scores need one.");
    else if (!analysis.contains(QLatin1String("pages")))
        fault = tr("This is not an analysis that was written by \"analyse --json\".");
    else if (!scorer.takeScales(analysis))
        fault = tr("The analysis has no means and standard deviations, which scores need.");
    else if (wanted.isEmpty())
        fault = tr("The analysis has no page \"%1\".").arg(page);
    else if (!scorer.takeCoefficients(wanted))
        fault = tr("The score coefficients of the analysis do not fit its variables.");
    else
        return scorer;
    return std::nullopt;
}

bool Scorer::takeScales(const QJsonObject& analysis)
{
    m_means = numbers(analysis[QLatin1String("means")]);
    m_scales = numbers(analysis[QLatin1String("standardDeviations")]);
    for (double& scale : m_scales)
        scale = 1.0 / scale;
    return !m_means.empty() && m_means.size() == m_scales.size();
}

bool Scorer::takeCoefficients(const QJsonObject& page)
{
    const QJsonArray rows = page[QLatin1String("scoreCoefficients")].toArray();
    const auto factors = rows.first().toArray().size();
    if (rows.size() != variables() || factors == 0)
        return false;
    m_coefficients = allocated(variables(), static_cast<int>(factors));
    for (int k = 0; k < variables(); ++k) {
        const std::vector<double> row = numbers(rows[k]);
        if (row.size() != static_cast<std::size_t>(factors))
            return false;
        std::copy(row.begin(), row.end(), m_coefficients[k]);
    }
    m_standardised = allocated(casesPerBlock, variables());
    m_scores = allocated(casesPerBlock, m_coefficients.columns());
    return true;
}

const pelmora::Matrix& Scorer::scores(const double* values, int cases)
{
    for (int i = 0; i < cases; ++i, values += variables()) {
        double* row = m_standardised[i];
        for (std::size_t k = 0; k < m_means.size(); ++k)
            row[k] = (values[k] - m_means[k]) * m_scales[k];
    }
    pelmora::multiply(m_scores.rowPointers(), m_standardised.rowPointers(), 0,
                      m_coefficients.rowPointers(), cases, variables(), m_coefficients.columns());
    return m_scores;
}

} // namespace batch
