// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/namedmatrix.h"
#include "views/sessionface.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <memory>

class factorModel;
class zarnelDelegate;
class NumberTableModel;

namespace Ui
{
class FactorForm;
}

/// The page of one loading matrix: circular diagram, minimal pairs, factor scores.
class FactorForm : public QWidget
{
    Q_OBJECT

public:
    FactorForm(QWidget* parent, int numberOfFactors, SessionFace* session);
    ~FactorForm() override;

    /// Shows @p loadings (copied) and @p scores (taken over; null: no scores, their tab is removed).
    void setUp(const NamedMatrix& loadings, bool leaveOutMinimalPairs, pelmora::Matrix scores);

    /// One of the three titles of factorkind.h; it decides the page's file extensions.
    void setTitle(const QString& title);

    /// Adds a page to "Minimal pairs" under "Focal factor No. %1".
    void addFocalFactorTab(QWidget* page, int factorNumber);
};
