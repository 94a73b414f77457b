// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/adequacyjson.h"

#include "batch/jsonwriter.h"
#include "output/adequacytext.h"

#include <utility>
#include <vector>

namespace batch {

namespace {

using pelmora::Computed;
using pelmora::Obstacle;

/// Collects the reasons of missing values on the way.
class AdequacyObject
{
public:
    explicit AdequacyObject(JsonWriter& json) : m_json(json) {}

    void write(const pelmora::AdequacyResults& results)
    {
        m_json.beginObject();
        writeMeasures(results);
        if (has("bartlett", results.bartlett.obstacle))
            writeBartlett(results.bartlett.value);
        writeNumber("lnDeterminant", results.measures.lnDeterminant);
        writeNumber("largestBySmallest", results.measures.eigenvalueRatio);
        m_json.key("eigenvaluesOfAtLeastOne").value(results.eigenvaluesOfAtLeastOne);
        if (has("parallel", results.toComparison))
            writeParallel(results);
        if (has("empiricalKaiser", results.kaiser.obstacle))
            writeKaiser(results.kaiser.value);
        if (has("minimumAveragePartial", results.partial.obstacle))
            writePartial(results.partial.value);
        writeReasons();
        m_json.endObject();
    }

private:
    /// Writes the key, and null where there is an obstacle.
    bool has(const char* key, const Obstacle& obstacle)
    {
        m_json.key(key);
        if (!obstacle)
            return true;
        m_json.null();
        m_reasons.emplace_back(key, adequacytext::reason(obstacle));
        return false;
    }

    void writeNumber(const char* key, const Computed<double>& number)
    {
        if (has(key, number.obstacle))
            m_json.value(number.value);
    }

    void writeMeasures(const pelmora::AdequacyResults& results)
    {
        const pelmora::Adequacy& measures = results.measures;
        writeNumber("kmo", measures.kmo);
        // Where all correlations are 0 there is no measure of any variable either.
        if (has("msa", measures.kmo.obstacle))
            m_json.numbers(measures.msa);
        if (has("squaredMultipleCorrelations", results.toInverse))
            m_json.numbers(measures.squaredMultipleCorrelations);
        if (has("antiImage", results.toInverse))
            m_json.rows(measures.antiImage);
    }

    void writeBartlett(const pelmora::Bartlett& test)
    {
        m_json.beginObject();
        m_json.key("chiSquare").value(test.chiSquare);
        m_json.key("degreesOfFreedom").value(test.degrees);
        m_json.key("p").value(test.p);
        m_json.key("lnP").value(test.lnP);
        m_json.endObject();
    }

    void writeParallel(const pelmora::AdequacyResults& results)
    {
        if (!results.random) // memory did not suffice
            return m_json.null();
        m_json.beginObject();
        m_json.key("matrices").value(results.random->matrices);
        m_json.key("cases").value(results.random->cases);
        m_json.key("byQuantile").value(results.byQuantile);
        m_json.key("byMean").value(results.byMean);
        m_json.key("mean").numbers(results.random->mean);
        m_json.key("quantile").numbers(results.random->quantile95);
        m_json.endObject();
    }

    void writeKaiser(const pelmora::EmpiricalKaiser& criterion)
    {
        m_json.beginObject();
        m_json.key("factors").value(criterion.factors);
        m_json.key("references").numbers(criterion.references);
        m_json.endObject();
    }

    void writePartial(const pelmora::MinimumAveragePartial& partial)
    {
        m_json.beginObject();
        m_json.key("squares").value(partial.bySquares);
        m_json.key("fourthPowers").value(partial.byFourthPowers);
        m_json.key("squaresByFactors").numbers(partial.squares);
        m_json.key("fourthPowersByFactors").numbers(partial.fourthPowers);
        m_json.endObject();
    }

    void writeReasons()
    {
        m_json.key("reasons").beginObject();
        for (const auto& [key, reason] : m_reasons)
            m_json.key(key).value(reason);
        m_json.endObject();
    }

    JsonWriter& m_json;
    std::vector<std::pair<const char*, QString>> m_reasons;
};

} // namespace

void writeAdequacy(JsonWriter& json, const pelmora::AdequacyResults& results)
{
    AdequacyObject(json).write(results);
}

} // namespace batch
