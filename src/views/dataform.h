// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "views/sessionface.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <functional>
#include <iosfwd>
#include <memory>

class AsciiData;
class NumberTableModel;

namespace Ui {
class DataForm;
}

/// The "Raw data" page: the matrix as read, the choice of orientation, statistics of the variables,
/// names, and the save.
class DataForm : public QWidget
{
    Q_OBJECT

public:
    DataForm(SessionFace* session, QWidget* tabWidget);
    ~DataForm() override;

    /// Shows @p rawData, which must live until the session is destroyed.
    void fill(const AsciiData& rawData);

public slots:
    void on_variableNamesChanged(QVector<QString> const& names);

private slots:
    void on_radioButtonColumnWise_clicked();
    void on_radioButtonRowWise_clicked();
    void on_pushButtonEditNames_clicked();
    void on_pushButtonSave_clicked();
    void on_pushButtonSaveTransposed_clicked();

private:
    void chooseRowWise(bool rowWise);
    void showVariables();
    void showNames(const QVector<QString>& names);
    void showNoCorrelations();
    void showRowWiseMeans();
    void save(const QString& ending, const std::function<void(std::ostream&)>& write);
    void releaseSessionData();

    std::unique_ptr<Ui::DataForm> m_ui;
    QPointer<SessionFace> m_session;
    const AsciiData* m_data = nullptr;
    bool m_rowWise = false;
    bool m_tooFewCases = false;
    QVector<int> m_constant; ///< variables whose values are all equal
    NumberTableModel* m_model;
    NumberTableModel* m_statistics;
};
