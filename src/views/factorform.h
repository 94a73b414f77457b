// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/namedmatrix.h"
#include "output/factorkind.h"
#include "views/sessionface.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <functional>
#include <iosfwd>
#include <memory>

class factorModel;
class NumberTableModel;
struct FileExport;

namespace Ui {
class FactorForm;
}

/// The page of one loading matrix: circular diagram, minimal pairs, factor scores.
class FactorForm : public QWidget
{
    Q_OBJECT

public:
    FactorForm(QWidget* parent, int numberOfFactors, SessionFace* session);
    ~FactorForm() override;

    /// Shows @p loadings (copied) and @p scores (taken over; null: no scores, their tab is
    /// removed). To be called once.
    void setUp(const NamedMatrix& loadings, bool leaveOutMinimalPairs, pelmora::Matrix scores);

    /// Gives the page the title and the file extensions of @p kind.
    void setKind(FactorKind kind);
    /// Shows a note when the rotation changed nothing: equal pages would look like a fault.
    void setUnmoved(bool unmoved);

    /// Adds a page to "Minimal pairs" under "Focal factor No. %1".
    void addFocalFactorTab(QWidget* page, int factorNumber);

public slots:
    /// Takes over the session's new names; lists of another length are ignored, since they belong
    /// to another orientation of the data.
    void on_variableNamesChanged(QVector<QString> const& names);

private slots:
    void on_horizontalScrollBarZarnelSize_valueChanged(int value);
    void on_horizontalScrollBarZarnelSize_sliderMoved(int value);
    void on_horizontalScrollBarZarnelSize_sliderReleased();
    void on_ExportRotated_clicked();
    void on_ImageButton_clicked();
    void on_pushButtonSaveScores_clicked();

private:
    void showScores();
    void releaseScores();
    void addDiagramActions();
    void saveDrawing();
    void zoom(int value);
    QString proposedFile(const QString& pattern, const QString& extension) const;
    FileExport pictureExport(const QString& suffix, const QString& filter) const;
    void exportText(const QString& extension, unsigned decimals,
                    const std::function<void(std::ostream&)>& write);

    std::unique_ptr<Ui::FactorForm> m_ui;
    int m_numberOfFactors;
    QPointer<SessionFace> m_session;
    NamedMatrix m_loadings;
    pelmora::Matrix m_scores;
    FactorKind m_kind = FactorKind::Initial;
    factorModel* m_model = nullptr;
    NumberTableModel* m_scoresModel;
};
