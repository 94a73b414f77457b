// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "views/sessionface.h"

#include <QWidget>

class CorrelationData;

/// The "Correlations" page: the matrix, names, and the export as "*.cor".
class CorrForm : public QWidget
{
    Q_OBJECT

public:
    CorrForm(SessionFace* session, QWidget* tabWidget);
    ~CorrForm() override;

    /// Shows @p correlations, which must live until the session is destroyed.
    void fill(const CorrelationData& correlations);
};
