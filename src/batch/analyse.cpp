// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/commands.h"

#include "batch/analyseoptions.h"
#include "batch/analysis.h"
#include "batch/analysisjson.h"
#include "batch/console.h"
#include "batch/diagrams.h"
#include "batch/filemessages.h"
#include "batch/jsonwriter.h"
#include "batch/outputnames.h"
#include "batch/report.h"
#include "batch/textfiles.h"

#include <algorithm>
#include <optional>
#include <ostream>

#include <unistd.h>

namespace batch {

namespace {

QString help()
{
    return tr(R"(Usage: pelmora-batch analyse FILE... [OPTIONS]

Correlates, decomposes and rotates each FILE and writes the results beside it.

What is read:
  --correlations         FILE holds correlations, not data
  --row-wise             each line of FILE is a variable, not a case
  --cases N              the number of cases behind correlations

What is computed:
  --factors N            so many factors; or
  --factors eigenvalues  as many as eigenvalues are at least 1, at least 2 (preset); or
  --factors parallel     as parallel analysis tells by its 95 % quantile, at least 1
  --rotation LIST        of pelmora, varimax, initial (preset: all three)

What is written:
  --out DIR              results go to DIR, which must exist (preset: beside FILE)
  --write LIST           of cor, eig, vec, ini, loadings, scores, pairs, adequacy, diagram
                         (preset: loadings; with --json or --report nothing else)
  --diagram KIND         png (preset), pdf or svg; implies --write diagram
  --precision P          decimals of text files, 0 to 9 (preset 9); of diagrams and reports too
                         where it is given (preset 2)
  --json FILE            everything that was computed; - is standard output
  --report FILE          to be read: .html, .pdf or .md

  --quiet                no progress and no summary; messages stay
  --version, --help

Ends with 0: all is written; 1: an input was refused; 2: wrong usage; 3: a file could not be
written; 4: a number is not finite or the eigenvalues did not converge. The largest counts.
)");
}

/// All files of one command line.
class Run
{
public:
    explicit Run(const AnalyseOptions& options) : m_options(options)
    {
        if (!options.report.isEmpty())
            m_report.emplace(options);
    }

    int run()
    {
        const bool several = m_options.files.size() > 1;
        if (several)
            m_json.beginArray();
        for (const QString& file : m_options.files)
            analyse(file);
        if (several)
            m_json.endArray();
        if (!m_options.json.isEmpty())
            writeJson();
        if (m_report && !m_report->write())
            endWith(CannotWrite);
        return m_exitCode;
    }

private:
    void analyse(const QString& file)
    {
        showProgress(file);
        FileMessages messages(file);
        Analysis analysis;
        const bool refused = !analyseFile(file, m_options, messages, analysis);
        if (refused)
            endWith(InputRefused);
        else
            write(analysis, messages);
        if (m_report)
            m_report->add(analysis, messages, refused);
        if (!m_options.json.isEmpty())
            writeAnalysis(m_json, analysis, messages, refused, m_options.writes(AdequacyFile));
    }

    void write(const Analysis& analysis, const FileMessages& messages)
    {
        if (messages.hasNumericalFault() || !analysis.isFinite(!m_options.json.isEmpty()))
            endWith(NotFinite);
        if (writeTextFiles(analysis, m_options) > 0)
            endWith(CannotWrite);
        if (m_options.writes(DiagramFiles) && writeDiagrams(analysis, m_options) > 0)
            endWith(CannotWrite);
        if (!m_options.quiet)
            tell(analysis.file, summary(analysis));
    }

    /// Only on a terminal, where somebody may be waiting.
    void showProgress(const QString& file)
    {
        ++m_started;
        if (m_options.quiet || m_options.files.size() < 2 || isatty(STDERR_FILENO) == 0)
            return;
        tell(file, tr("%1 of %2").arg(m_started).arg(m_options.files.size()));
    }

    QString summary(const Analysis& analysis) const
    {
        const QString cases =
            analysis.cases > 0 ? tr("%1 cases").arg(analysis.cases) : tr("cases unknown");
        return tr("%1 variables, %2, %3 factors")
            .arg(analysis.variables())
            .arg(cases)
            .arg(analysis.factors);
    }

    void writeJson()
    {
        const std::string text = m_json.text() + '\n';
        if (m_options.json == u"-")
            endWith(writeToStandardOutput(text));
        else if (!writeOutput(m_options.json, [&](std::ostream& out) { out << text; }))
            endWith(CannotWrite);
    }

    void endWith(int code) { m_exitCode = std::max(m_exitCode, code); }

    const AnalyseOptions& m_options;
    JsonWriter m_json;
    std::optional<Report> m_report;
    qsizetype m_started = 0;
    int m_exitCode = Success;
};

} // namespace

int analyse(const QStringList& arguments)
{
    QString fault;
    const AnalyseOptions options = parseAnalyseOptions(arguments, fault);
    if (options.help)
        return print(help());
    if (options.version)
        return print(versionLine());
    if (fault.isEmpty())
        fault = outputConflict(options);
    if (!fault.isEmpty())
        return refuseUsage(QStringLiteral("analyse"), fault);
    std::optional<DrawingRoom> drawingRoom;
    if (options.wantsDiagrams())
        drawingRoom.emplace(options.shownPrecision());
    return Run(options).run();
}

} // namespace batch
