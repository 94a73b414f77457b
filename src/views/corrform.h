// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "views/sessionface.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <memory>

class AdequacyPage;
class AntiImagePage;
class CorrelationData;
class FactorNumberPage;
class NumberTableModel;
class ShadeDelegate;

namespace Ui {
class CorrForm;
}

/// The "Correlations" page: the matrix, names, and the export as "*.cor"; measures of adequacy and
/// rules for the number of factors, which are computed when their tab is first shown.
class CorrForm : public QWidget
{
    Q_OBJECT

public:
    CorrForm(SessionFace* session, QWidget* tabWidget);
    ~CorrForm() override;

    /// Shows @p correlations, which must live until the session is destroyed.
    void fill(const CorrelationData& correlations);

public slots:
    void on_variableNamesChanged(QVector<QString> const& names);

private slots:
    void on_tabWidgetCorrelations_currentChanged(int index);
    void on_checkBoxShade_toggled(bool checked);
    void on_pushButtonEditNames_clicked();
    void on_pushButtonSave_clicked();

private:
    void addPages();
    void computeAdequacy();
    void computeNumberOfFactors();
    void showBartlett();
    void showNames(const QVector<QString>& names);
    void releaseSessionData();

    std::unique_ptr<Ui::CorrForm> m_ui;
    QPointer<SessionFace> m_session;
    const CorrelationData* m_correlations = nullptr;
    NumberTableModel* m_model;
    ShadeDelegate* m_shades;
    AdequacyPage* m_adequacyPage = nullptr;
    AntiImagePage* m_antiImagePage = nullptr;
    FactorNumberPage* m_factorNumberPage = nullptr;
    bool m_hasAdequacy = false;
};
