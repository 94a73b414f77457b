// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/analyseoptions.h"

#include "batch/arguments.h"
#include "batch/console.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <limits>

namespace batch {

namespace {

template <typename Value>
struct Word
{
    const char* word;
    Value value;
};

constexpr Word<unsigned> outputWords[] = {
    {"cor", CorrelationFile},    {"eig", EigenvalueFile},    {"vec", EigenvectorFile},
    {"ini", InitialLoadingFile}, {"loadings", LoadingFiles}, {"scores", ScoreFiles},
    {"pairs", PairFiles},        {"adequacy", AdequacyFile}, {"diagram", DiagramFiles}};
/// In the order of the kinds.
constexpr Word<FactorKind> rotationWords[] = {{"pelmora", FactorKind::Pelmora},
                                              {"varimax", FactorKind::Varimax},
                                              {"initial", FactorKind::Initial}};
constexpr Word<DrawingKind> drawingWords[] = {
    {"png", DrawingKind::Png}, {"pdf", DrawingKind::Pdf}, {"svg", DrawingKind::Svg}};

template <typename Value, std::size_t count>
std::optional<Value> valueOf(const Word<Value> (&words)[count], const QString& text)
{
    const auto found = std::find_if(std::begin(words), std::end(words), [&](const auto& word) {
        return text == QLatin1String(word.word);
    });
    return found == std::end(words) ? std::nullopt : std::optional(found->value);
}

/// A number of factors or cases.
std::optional<int> countIn(const QString& text)
{
    const auto number = wholeNumber(text, 1, std::numeric_limits<int>::max());
    return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

/// Goes through the arguments one by one.
class Parser
{
public:
    Parser(const QStringList& arguments, QString& fault) : m_rest(arguments), m_fault(fault) {}

    AnalyseOptions run()
    {
        m_fault.clear();
        while (m_fault.isEmpty() && !m_rest.isEmpty()) {
            const QString argument = m_rest.takeFirst();
            if (m_onlyFiles || !argument.startsWith(u'-'))
                m_options.files.append(argument);
            else if (argument == u"--")
                m_onlyFiles = true;
            else
                takeOption(argument);
        }
        if (m_fault.isEmpty() && !m_options.help && !m_options.version)
            finish();
        return m_options;
    }

private:
    struct Flag
    {
        const char* name;
        bool AnalyseOptions::*member;
    };
    struct Setting
    {
        const char* name;
        void (Parser::*take)(const QString& value);
    };

    void takeOption(const QString& argument)
    {
        static constexpr Flag flags[] = {{"--correlations", &AnalyseOptions::correlations},
                                         {"--row-wise", &AnalyseOptions::rowWise},
                                         {"--quiet", &AnalyseOptions::quiet},
                                         {"--help", &AnalyseOptions::help},
                                         {"-h", &AnalyseOptions::help},
                                         {"--version", &AnalyseOptions::version}};
        static constexpr Setting settings[] = {
            {"--factors", &Parser::takeFactors},     {"--rotation", &Parser::takeRotations},
            {"--precision", &Parser::takePrecision}, {"--cases", &Parser::takeCases},
            {"--out", &Parser::takeFolder},          {"--write", &Parser::takeOutputs},
            {"--diagram", &Parser::takeDrawing},     {"--json", &Parser::takeJson},
            {"--report", &Parser::takeReport}};

        for (const Flag& flag : flags)
            if (argument == QLatin1String(flag.name)) {
                m_options.*flag.member = true;
                return;
            }
        const qsizetype equals = argument.indexOf(u'=');
        m_name = equals < 0 ? argument : argument.first(equals);
        for (const Setting& setting : settings)
            if (m_name == QLatin1String(setting.name)) {
                if (equals < 0 && m_rest.isEmpty())
                    m_fault = tr("%1 needs a value").arg(m_name);
                else
                    (this->*setting.take)(equals < 0 ? m_rest.takeFirst()
                                                     : argument.sliced(equals + 1));
                return;
            }
        m_fault = tr("there is no option \"%1\"").arg(argument);
    }

    void refuse(const QString& value) { m_fault = tr("%1 cannot be \"%2\"").arg(m_name, value); }

    void takeFactors(const QString& value)
    {
        const auto number = countIn(value);
        m_options.factors = number.value_or(0);
        m_options.rule = FactorRule::Given;
        if (value == u"eigenvalues")
            m_options.rule = FactorRule::Eigenvalues;
        else if (value == u"parallel")
            m_options.rule = FactorRule::Parallel;
        else if (!number)
            refuse(value);
    }

    void takeRotations(const QString& value)
    {
        m_options.rotations.clear();
        for (const QString& word : value.split(u','))
            if (const auto kind = valueOf(rotationWords, word))
                m_options.rotations.push_back(*kind);
            else
                return refuse(value);
        std::sort(m_options.rotations.begin(), m_options.rotations.end());
        m_options.rotations.erase(
            std::unique(m_options.rotations.begin(), m_options.rotations.end()),
            m_options.rotations.end());
    }

    void takePrecision(const QString& value)
    {
        if (const auto number = wholeNumber(value, 0, 9))
            m_options.precision = static_cast<unsigned>(*number);
        else
            refuse(value);
    }

    void takeCases(const QString& value)
    {
        if (const auto number = countIn(value))
            m_options.cases = *number;
        else
            refuse(value);
    }

    void takeFolder(const QString& value)
    {
        m_options.folder = value;
        if (!QFileInfo(value).isDir())
            m_fault = tr("there is no folder \"%1\"").arg(value);
    }

    void takeOutputs(const QString& value)
    {
        m_options.outputs = 0;
        for (const QString& word : value.split(u','))
            if (const auto output = valueOf(outputWords, word))
                m_options.outputs |= *output;
            else
                return refuse(value);
    }

    void takeDrawing(const QString& value)
    {
        if (const auto kind = valueOf(drawingWords, value))
            m_options.drawing = *kind;
        else
            return refuse(value);
        m_drawsDiagrams = true;
    }

    void takeJson(const QString& value)
    {
        m_options.json = value;
        if (value.isEmpty())
            refuse(value);
    }

    void takeReport(const QString& value)
    {
        static const QStringList endings = {QStringLiteral("html"), QStringLiteral("pdf"),
                                            QStringLiteral("md")};
        m_options.report = value;
        if (!endings.contains(QFileInfo(value).suffix()))
            refuse(value);
    }

    /// Completes the options and checks them against each other.
    void finish()
    {
        if (m_drawsDiagrams)
            m_options.outputs |= DiagramFiles;
        if (m_options.outputs == 0 && m_options.json.isEmpty() && m_options.report.isEmpty())
            m_options.outputs = LoadingFiles;
        if (m_options.files.isEmpty())
            m_fault = tr("a file is missing");
        else if (m_options.correlations && m_options.rowWise)
            m_fault = tr("--row-wise is for data, not for --correlations");
        else if (m_options.correlations && m_options.writes(ScoreFiles))
            m_fault = tr("scores need data, not --correlations");
        else if (!m_options.correlations && m_options.cases > 0)
            m_fault = tr("--cases is for --correlations; data tell it themselves");
    }

    QStringList m_rest;
    QString& m_fault;
    AnalyseOptions m_options;
    QString m_name; ///< of the option whose value is being taken
    bool m_onlyFiles = false;
    bool m_drawsDiagrams = false;
};

} // namespace

AnalyseOptions parseAnalyseOptions(const QStringList& arguments, QString& fault)
{
    return Parser(arguments, fault).run();
}

QString rotationWord(FactorKind kind)
{
    return QLatin1String(rotationWords[static_cast<int>(kind)].word);
}

} // namespace batch
