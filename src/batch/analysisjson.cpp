// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/analysisjson.h"

#include "batch/adequacyjson.h"
#include "batch/analyseoptions.h"
#include "batch/analysis.h"
#include "batch/console.h"
#include "batch/filemessages.h"
#include "batch/jsonwriter.h"
#include "minimalpairs/minimalpairfinder.h"
#include "output/loadingsums.h"

namespace batch {

namespace {

/// Both or neither are known.
void writeMoments(JsonWriter& json, const Analysis& analysis)
{
    if (analysis.means.empty()) {
        json.key("means").null();
        json.key("standardDeviations").null();
        return;
    }
    json.key("means").numbers(analysis.means);
    json.key("standardDeviations").numbers(analysis.standardDeviations);
}

void writeInput(JsonWriter& json, const Analysis& analysis, bool refused)
{
    json.key("input").beginObject();
    json.key("file").value(analysis.file);
    json.key("sha256");
    if (analysis.sha256.isEmpty())
        json.null();
    else
        json.value(QString::fromLatin1(analysis.sha256));
    if (!refused) {
        json.key("kind").value(analysis.ofCorrelations ? QStringLiteral("correlations")
                                                       : QStringLiteral("data"));
        json.key("cases");
        if (analysis.cases > 0)
            json.value(analysis.cases);
        else
            json.null();
        json.key("variables").value(analysis.variables());
        json.key("names").beginArray();
        for (const QString& name : analysis.names.texts())
            json.value(name);
        json.endArray();
        json.key("rowWise").value(analysis.rowWise);
    }
    json.endObject();
}

void writeMessages(JsonWriter& json, const FileMessages& messages)
{
    json.key("messages").beginArray();
    for (const ReaderMessage& message : messages.all()) {
        const bool warning = message.severity == ReaderMessage::Severity::Warning;
        json.beginObject();
        json.key("severity")
            .value(warning ? QStringLiteral("warning") : QStringLiteral("information"));
        json.key("title").value(message.title);
        json.key("text").value(message.text);
        json.endObject();
    }
    json.endArray();
}

void writePairs(JsonWriter& json, const NamedMatrix& loadings)
{
    json.key("minimalPairs").beginArray();
    const MinimalPairFinder finder(loadings);
    for (int factor = 0; factor < loadings.values.columns() && finder.pairCount() > 0; ++factor) {
        json.beginArray();
        for (int rank = 0; rank < finder.pairCount(); ++rank) {
            const MinimalPair pair = finder.pair(factor, rank);
            json.beginObject();
            json.key("first").value(pair.variables[0].index);
            json.key("second").value(pair.variables[1].index);
            json.key("difference").value(pair.difference);
            json.endObject();
        }
        json.endArray();
    }
    json.endArray();
}

void writePage(JsonWriter& json, const AnalysedPage& page)
{
    const pelmora::Matrix& loadings = page.loadings.values;
    const LoadingSums sums = loadingSums(loadings, loadings.columns());
    json.beginObject();
    json.key("rotation").value(rotationWord(page.kind));
    json.key("factors").value(loadings.columns());
    json.key("loadings").rows(loadings);
    json.key("communalities").numbers(sums.communalities);
    json.key("explainedVariance").numbers(sums.explainedVariance);
    json.key("scoreCoefficients").rows(page.coefficients);
    if (!page.scores.isNull())
        json.key("scores").rows(page.scores);
    writePairs(json, page.loadings);
    json.endObject();
}

} // namespace

void writeAnalysis(JsonWriter& json, const Analysis& analysis, const FileMessages& messages,
                   bool refused, bool writesAdequacy)
{
    json.beginObject();
    json.key("version").value(version());
    writeInput(json, analysis, refused);
    writeMessages(json, messages);
    if (!refused) {
        writeMoments(json, analysis);
        json.key("correlations").rows(analysis.correlations);
        json.key("eigenvalues").numbers(analysis.decomposition.eigenvalues);
        json.key("eigenvectors").rows(analysis.decomposition.eigenvectors);
        json.key("initialLoadings").rows(analysis.decomposition.initialLoadings);
        json.key("pages").beginArray();
        for (const AnalysedPage& page : analysis.pages)
            writePage(json, page);
        json.endArray();
        if (writesAdequacy) {
            json.key("adequacy");
            writeAdequacy(json, *analysis.adequacy);
        }
    }
    json.endObject();
}

} // namespace batch
