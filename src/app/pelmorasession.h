// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "input/correlationdata.h"
#include "numerics/factoranalysis.h"
#include "views/sessionface.h"

#include <QPointer>
#include <QVector>

class CorrForm;
class DataForm;
class FactorForm;
class PCAForm;
class SessionTabWidget;
class MinimalPairFinder;

/// One analysis: one input file and everything computed from it, shown as pages of a tab widget.
class PelmoraSession : public SessionFace
{
    Q_OBJECT

public:
    /// The kinds of factor page that createRotationPages() is asked for, as bits.
    enum RotationBit : unsigned { PelmoraBit = 1, VarimaxBit = 2, UnrotatedBit = 4 };

    explicit PelmoraSession(QObject* parent);
    /// Opens the folder of the input file where the user wants that.
    ~PelmoraSession() override;

    /// Keeps the destructor from opening the folder, for a session that was never shown.
    void leaveFolderClosed() { m_opensFolder = false; }

    /// Shows the session's pages in @p pages. Either of the two may be deleted first.
    void attachTabWidget(SessionTabWidget* pages);

    /// Reads a raw data file; every fault has been shown when false is returned.
    bool loadDataMatrix(const QString& path);
    /// Reads a correlation file; every fault has been shown when false is returned.
    bool loadCorrelationMatrix(const QString& path);

    unsigned rowCount() const;
    unsigned columnCount() const;
    /// The raw data where there are any, else the correlations. Throws std::logic_error with the
    /// text "Internal Error!" when there are neither.
    const AsciiData& currentMatrix() const;

    bool createDataPage();
    bool createCorrelationPageFromData();
    bool createCorrelationPage();
    /// Decomposes the correlations and shows the result on a new "PCA" page.
    void createPcaPage();
    /// Adds one page per bit of @p kinds, in the order of the bits, with the first @p
    /// numberOfFactors.
    void createRotationPages(int numberOfFactors, unsigned kinds);

    /// The names as files hold them.
    const VariableNames& names() const { return m_correlations.names(); }

    QString inputFile() const override;
    QString outputStem() const override;
    QVector<QString> variableNames() const override;
    void setVariableNames(const QVector<QString>& names) override;
    bool isRowWise() const override { return m_rowWise; }
    void setRowWise(bool rowWise) override;
    int numberOfCases() const override;
    const pelmora::Decomposition& decomposition() const override { return m_decomposition; }

signals:
    /// Factor pages were added, with these titles.
    void pagesAdded(const QStringList& titles);

public slots:
    /// Removes a page's tab; the page itself lives on with the tab widget.
    void slotCloseTab(int iIndex);

private:
    struct RotationPage;

    bool hasRawData() const { return !m_dataFile.isEmpty(); }
    pelmora::RawScores rawScores() const;
    void createRotationPage(int numberOfFactors, const RotationPage& page, QStringList* added);
    void addMinimalPairs(FactorForm* page, const MinimalPairFinder& finder);
    void takeCorrelations(pelmora::Correlations computed);
    void showDecomposition(pelmora::Decomposition decomposition);
    /// Deletes a page and returns where its tab was; -1 when there was none.
    int removePage(QWidget* page);

    QPointer<SessionTabWidget> m_pages;
    AsciiData m_data;
    QPointer<DataForm> m_dataPage;
    QString m_dataFile;
    CorrelationData m_correlations;
    QPointer<CorrForm> m_correlationPage;
    QString m_correlationFile;
    QPointer<PCAForm> m_pcaPage;
    pelmora::Decomposition m_decomposition;

    /// What makes z-scores of the raw data. The data stay as read, so that every change of
    /// orientation starts from the same values.
    pelmora::Standardisation m_standardisation;
    bool m_rowWise = false;
    bool m_opensFolder = true;
};
