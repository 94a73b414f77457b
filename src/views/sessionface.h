// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/factoranalysis.h"

#include <QObject>
#include <QString>
#include <QVector>

/// What a page sees of the analysis session that it belongs to. The session implements it.
/// A page may outlive its session: keep it in a QPointer and drop its data on destroyed().
class SessionFace : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// The file that the session was read from.
    virtual QString inputFile() const = 0;
    /// Absolute folder of the input file, "/", and the file's name without its last extension.
    virtual QString outputStem() const = 0;

    /// Names of the session's variables, in order.
    virtual QVector<QString> variableNames() const = 0;
    /// Replaces the names and emits variableNamesChanged() with the names as they will be written.
    virtual void setVariableNames(const QVector<QString>& names) = 0;

    /// Whether the rows of the raw data are the variables.
    virtual bool isRowWise() const = 0;
    /// Recomputes everything from the values as read; nothing happens when the state is the same.
    virtual void setRowWise(bool rowWise) = 0;

    /// How many cases the correlations come from; 0: not known.
    virtual int numberOfCases() const = 0;
    /// The eigenpairs of the correlations; null before they are computed.
    virtual const pelmora::Decomposition& decomposition() const = 0;

signals:
    void variableNamesChanged(QVector<QString> const& names);
};
