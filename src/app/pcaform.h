// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/variablenames.h"
#include "numerics/factoranalysis.h"

#include <QPointer>
#include <QWidget>

#include <functional>
#include <iosfwd>
#include <memory>

class NumberTableModel;
class PelmoraSession;

namespace Ui {
class PCAForm;
}

/// The "PCA" page: eigenvalues, eigenvectors and unrotated loadings as tables, and the settings
/// from which factor pages are made.
class PCAForm : public QWidget
{
    Q_OBJECT

public:
    PCAForm(PelmoraSession* session, QWidget* tabWidget);
    ~PCAForm() override;

    /// Shows the session's @p decomposition and presets the number of factors. The matrices stay
    /// the session's; their tables are emptied when it is deleted.
    void fill(const pelmora::Decomposition& decomposition);

public slots:
    void on_variableNamesChanged(QVector<QString> const& names);

private slots:
    void on_processButton_clicked();
    void on_pushButtonExportEigenwerte_clicked();
    void on_pushButtonExportEigenvektoren_clicked();
    void on_pushButton_clicked();

private:
    using Write = std::function<void(std::ostream&, unsigned decimals)>;
    void save(const QString& filter, const Write& write);
    void showNames();
    void releaseSessionData();

    std::unique_ptr<Ui::PCAForm> m_ui;
    QPointer<PelmoraSession> m_session;
    VariableNames m_names;
    pelmora::Matrix m_varianceTable;
    NumberTableModel* m_eigenvalueModel;
    NumberTableModel* m_eigenvectorModel;
    NumberTableModel* m_loadingModel;
};
