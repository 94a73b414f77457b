// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/longwork.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>

#include <algorithm>

namespace {

using pelmora::Progress;
using std::chrono::milliseconds;

/// Between two updates of the dialog.
constexpr milliseconds betweenAnswers{50};
constexpr int barSteps = 1000;

LongWork* running = nullptr;

QString tr(const char* text)
{
    return QCoreApplication::translate("LongWork", text);
}

} // namespace

LongWork::LongWork(QWidget* parent, const QString& file)
    : m_isOutermost(running == nullptr)
    , m_parent(parent)
    , m_file(file)
{
    if (!m_isOutermost)
        return;
    running = this;
    m_sinceStart.start();
    pelmora::setProgressReport(report);
}

LongWork::~LongWork()
{
    if (!m_isOutermost)
        return;
    pelmora::setProgressReport(nullptr);
    running = nullptr;
}

bool LongWork::isRunning()
{
    return running != nullptr;
}

milliseconds& LongWork::patience()
{
    static milliseconds patience{800};
    return patience;
}

bool LongWork::report(const Progress& progress)
{
    return running->show(progress);
}

/// Events are processed only while the modal dialog is shown, which blocks input to other windows.
bool LongWork::show(const Progress& progress)
{
    if (m_sinceStart.elapsed() < patience().count())
        return true;
    if (!m_dialog)
        makeDialog();
    else if (m_sinceShown.elapsed() < std::min(betweenAnswers, patience()).count())
        return true;
    m_dialog->setLabelText(text(progress));
    const bool endIsKnown = progress.done >= 0.0;
    m_dialog->setMaximum(endIsKnown ? barSteps : 0);
    if (endIsKnown)
        m_dialog->setValue(static_cast<int>(progress.done * barSteps));
    QCoreApplication::processEvents();
    m_sinceShown.start();
    return !m_dialog->wasCanceled();
}

void LongWork::makeDialog()
{
    m_dialog = std::make_unique<QProgressDialog>(m_parent ? m_parent->window() : nullptr);
    // A file's name may look like markup.
    auto* label = new QLabel(m_dialog.get());
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    m_dialog->setLabel(label);
    m_dialog->setCancelButtonText(tr("Cancel"));
    m_dialog->setAccessibleName(tr("Progress"));
    m_dialog->findChild<QProgressBar*>()->setAccessibleName(tr("Progress"));
    m_dialog->setMinimumWidth(50 * m_dialog->fontMetrics().averageCharWidth());
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->show();
}

QString LongWork::text(const Progress& progress) const
{
    switch (progress.work) {
    case Progress::Work::Reading:
        return tr("Reading %1").arg(QFileInfo(m_file).fileName());
    case Progress::Work::Correlations:
        return tr("Correlations");
    case Progress::Work::Eigenvalues:
        return tr("Eigenvalues: sweep %1").arg(progress.sweep);
    case Progress::Work::Rotation:
        return tr("Rotating: sweep %1, %2 factors").arg(progress.sweep).arg(progress.factors);
    case Progress::Work::Scores:
        return tr("Factor scores");
    case Progress::Work::MinimalPairs:
        return tr("Minimal pairs");
    case Progress::Work::Drawing:
        return tr("Drawing the image");
    case Progress::Work::RandomMatrices:
        return tr("Parallel analysis");
    }
    return QString();
}
