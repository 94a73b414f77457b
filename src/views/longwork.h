// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/progress.h"
#include "views/waitcursor.h"

#include <QElapsedTimer>
#include <QString>

#include <chrono>
#include <memory>

class QProgressDialog;
class QWidget;

/// Work on the one thread that may take long. While it lives the wait cursor is shown, and the
/// numerics, readers and drawings report their progress here: work that lasts longer than
/// patience() gets a modal dialog, so that nothing else can be done meanwhile, and its "Cancel"
/// makes them give up. An instance within another one does nothing.
class LongWork
{
public:
    /// @param parent  its window is the parent of the dialog
    /// @param file    the file that is read, if one is
    explicit LongWork(QWidget* parent, const QString& file = QString());
    ~LongWork();
    LongWork(const LongWork&) = delete;
    LongWork& operator=(const LongWork&) = delete;

    /// Whether any is running. Then nothing may change sessions or start other work.
    static bool isRunning();

    /// Whether the user has cancelled it.
    static bool isCancelled() { return pelmora::isCancelled(); }

    /// How long work may last before the dialog appears, which is then updated at this interval,
    /// but at least twenty times a second.
    static std::chrono::milliseconds& patience();

private:
    static bool report(const pelmora::Progress& progress);
    bool show(const pelmora::Progress& progress);
    void makeDialog();
    QString text(const pelmora::Progress& progress) const;

    const bool m_isOutermost;
    QWidget* m_parent;
    QString m_file;
    WaitCursor m_waiting;
    QElapsedTimer m_sinceStart;
    QElapsedTimer m_sinceShown;
    std::unique_ptr<QProgressDialog> m_dialog;
};
