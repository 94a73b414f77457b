// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "batch/outputnames.h"

#include "batch/console.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

namespace batch {

namespace {

/// Stands for the number of factors in names whose number is not known yet. No name of a file holds
/// it.
const QString anyNumber = QString(QChar(0xffff));

QString endingOf(const char* text)
{
    return QLatin1String(text);
}

/// One name for a file, however it is written. The file itself need not exist.
QString absoluteName(const QString& path)
{
    const QFileInfo file(path);
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return (folder.isEmpty() ? file.absolutePath() : folder) + u'/' + file.fileName();
}

/// @p name with any number in place of the one that could be a number of factors; null where there
/// is none.
QString withAnyNumber(const QString& name)
{
    static const QRegularExpression pattern(
        QStringLiteral("_([0-9]+)((?:_(?:okt|max|ini))?\\.[a-z]+)$"));
    const auto match = pattern.match(name);
    return match.hasMatch() ? name.first(match.capturedStart(1)) + anyNumber + match.captured(2)
                            : QString();
}

QStringList reportFiles(const AnalyseOptions& options)
{
    if (options.report.isEmpty())
        return {};
    QStringList files = {options.report};
    if (options.report.endsWith(u".md"))
        for (qsizetype i = 0; i < options.files.size(); ++i)
            for (const FactorKind kind : options.rotations)
                files.append(reportPicture(options.report, i, kind));
    return files;
}

QStringList allOutputs(const AnalyseOptions& options)
{
    const QString factors =
        options.rule == FactorRule::Given ? QString::number(options.factors) : anyNumber;
    QStringList files = reportFiles(options);
    if (!options.json.isEmpty() && options.json != u"-")
        files.append(options.json);
    for (const QString& input : options.files)
        files += OutputNames(options, input).all(options, factors);
    return files;
}

QString shown(QString name)
{
    return name.replace(anyNumber, QStringLiteral("M"));
}

/// Looks at the entries of the folders of the outputs as well, so that links to inputs are found.
QString overwrittenInput(const QSet<QString>& inputs, const QSet<QString>& outputs,
                         const QSet<QString>& folders)
{
    const auto isOutput = [&](const QString& name) {
        return outputs.contains(name) || outputs.contains(withAnyNumber(name));
    };
    for (const QString& input : inputs)
        if (isOutput(input))
            return input;
    for (const QString& folder : folders) {
        QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::System);
        while (entries.hasNext()) {
            QString entry = entries.next();
            if (isOutput(entry) && inputs.contains(QFileInfo(entry).canonicalFilePath()))
                return entry;
        }
    }
    return QString();
}

} // namespace

OutputNames::OutputNames(const AnalyseOptions& options, const QString& input)
{
    const QFileInfo file(input);
    const QString folder = options.folder.isEmpty() ? file.absolutePath()
                                                    : QFileInfo(options.folder).absoluteFilePath();
    m_stem = QDir(folder).filePath(file.completeBaseName());
}

QString OutputNames::file(const char* ending) const
{
    return m_stem + u'.' + endingOf(ending);
}

QString OutputNames::pageFile(const QString& factors, const QString& ending) const
{
    return m_stem + u'_' + factors + u'.' + ending;
}

QString OutputNames::pageFile(const QString& factors, FactorKind kind, const QString& ending) const
{
    return m_stem + u'_' + factors + u'_' + loadingsExtension(kind) + u'.' + ending;
}

QStringList OutputNames::all(const AnalyseOptions& options, const QString& factors) const
{
    QStringList files;
    const auto add = [&](Output output, const QString& name) {
        if (options.writes(output))
            files.append(name);
    };
    add(CorrelationFile, file("cor"));
    add(EigenvalueFile, file("eig"));
    add(EigenvectorFile, file("vec"));
    add(InitialLoadingFile, file("ini"));
    add(AdequacyFile, file("adequacy"));
    for (const FactorKind kind : options.rotations) {
        add(LoadingFiles, pageFile(factors, loadingsExtension(kind)));
        add(ScoreFiles, pageFile(factors, scoresExtension(kind)));
        add(PairFiles, pageFile(factors, kind, endingOf("pairs")));
        add(DiagramFiles, pageFile(factors, kind, drawingEnding(options.drawing)));
    }
    return files;
}

QString drawingEnding(DrawingKind kind)
{
    switch (kind) {
    case DrawingKind::Pdf:
        return endingOf("pdf");
    case DrawingKind::Svg:
        return endingOf("svg");
    default:
        return endingOf("png");
    }
}

QString reportPicture(const QString& report, qsizetype input, FactorKind kind)
{
    const QFileInfo file(report);
    return file.dir().filePath(QStringLiteral("%1-%2_%3.png")
                                   .arg(file.completeBaseName())
                                   .arg(input + 1)
                                   .arg(loadingsExtension(kind)));
}

QString outputConflict(const AnalyseOptions& options)
{
    QSet<QString> inputs;
    for (const QString& input : options.files)
        inputs << absoluteName(input) << QFileInfo(input).canonicalFilePath();
    inputs.remove(QString());
    QSet<QString> outputs;
    QSet<QString> folders;
    for (const QString& output : allOutputs(options)) {
        const QString name = absoluteName(output);
        if (outputs.contains(name))
            return tr("two outputs would be named %1").arg(shown(name));
        outputs.insert(name);
        folders.insert(QFileInfo(name).path());
    }
    for (const QString& name : outputs)
        if (!name.contains(anyNumber) && outputs.contains(withAnyNumber(name)))
            return tr("two outputs could be named %1").arg(name);
    const QString input = overwrittenInput(inputs, outputs, folders);
    return input.isNull() ? QString() : tr("the output %1 is an input").arg(input);
}

} // namespace batch
