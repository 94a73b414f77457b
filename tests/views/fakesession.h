// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/correlationdata.h"
#include "views/sessionface.h"

#include <QDir>

#include <algorithm>
#include <initializer_list>

/// Replaces the matrix of @p data by @p rows.
inline void setValues(AsciiData& data, std::initializer_list<std::initializer_list<double>> rows)
{
    pelmora::Matrix values(static_cast<int>(rows.size()), static_cast<int>(rows.begin()->size()));
    int i = 0;
    for (const auto& row : rows)
        std::copy(row.begin(), row.end(), values[i++]);
    data.setMatrix(std::move(values));
}

/// A session as far as a page sees it.
class FakeSession : public SessionFace
{
public:
    QString outputStem() const override { return stem; }
    QVector<QString> variableNames() const override { return names.texts(); }
    void setVariableNames(const QVector<QString>& texts) override
    {
        names = VariableNames::fromTexts(texts);
        data.setNames(names);
        emit variableNamesChanged(names.texts());
    }
    bool isRowWise() const override { return rowWise; }
    void setRowWise(bool newState) override { rowWise = refuses ? rowWise : newState; }

    QString stem = QDir::tempPath() + QStringLiteral("/box");
    CorrelationData data;
    VariableNames names;
    bool rowWise = false;
    bool refuses = false; ///< to change the orientation
};
