// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/correlationdata.h"
#include "views/sessionface.h"

#include <QTemporaryDir>

/// A session as far as a page sees it.
class FakeSession : public SessionFace
{
public:
    QString inputFile() const override { return input; }
    /// In a folder that exists, else a file dialog would propose another; the same for all
    /// sessions.
    QString outputStem() const override
    {
        static const QTemporaryDir folder;
        return folder.filePath("box");
    }
    QVector<QString> variableNames() const override { return data.names().texts(); }
    void setVariableNames(const QVector<QString>& texts) override
    {
        data.setNames(VariableNames::fromTexts(texts));
        emit variableNamesChanged(variableNames());
    }
    bool isRowWise() const override { return rowWise; }
    void setRowWise(bool newState) override { rowWise = refuses ? rowWise : newState; }
    int numberOfCases() const override { return cases; }
    const pelmora::Decomposition& decomposition() const override { return eigenpairs; }

    QString input;
    CorrelationData data;
    bool rowWise = false;
    int cases = 0;
    pelmora::Decomposition eigenpairs;
    bool refuses = false; ///< to change the orientation
};
