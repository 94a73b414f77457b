// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/adequacypage.h"

#include "output/adequacytext.h"
#include "settings/settings.h"
#include "ui_adequacypage.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/tablecopy.h"

#include <limits>

namespace {

enum Column { Msa, SquaredMultipleCorrelation, Note, ColumnCount };

/// One row per variable; the last column holds the number that the note is made from.
pelmora::Matrix tableOf(const pelmora::Adequacy& adequacy, int variables)
{
    pelmora::Matrix values(variables, ColumnCount);
    for (int row = 0; row < values.rows(); ++row) {
        const bool computed = row < adequacy.msa.size();
        const double nothing = std::numeric_limits<double>::quiet_NaN();
        values[row][Msa] = computed ? adequacy.msa[row] : nothing;
        values[row][SquaredMultipleCorrelation] =
            computed ? adequacy.squaredMultipleCorrelations[row] : nothing;
        // Without any measures there is no note.
        values[row][Note] = computed ? adequacy.msa[row] : 1.0;
    }
    return values;
}

} // namespace

AdequacyPage::AdequacyPage(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::AdequacyPage>())
    , m_model(new NumberTableModel(this))
{
    m_ui->setupUi(this);
    m_model->setHeaders(m_model->nameHeader(), [](int column) {
        return QStringList{tr("MSA"), tr("Squared multiple\ncorrelation"), tr("Note")}.value(
            column);
    });
    m_model->leaveNotNumbersEmpty();
    m_model->showExactInToolTips();
    m_model->showNotes(Note, adequacytext::note);
    m_ui->tableAdequacy->setModel(m_model);
    installNameHeaders(m_ui->tableAdequacy);
    installTableCopy(m_ui->tableAdequacy);
}

AdequacyPage::~AdequacyPage() = default;

void AdequacyPage::showAdequacy(const pelmora::Adequacy& adequacy, int variables)
{
    const unsigned decimals = settings::precision();
    m_ui->labelKmo->setText(adequacytext::kmo(adequacy.kmo, decimals));
    m_ui->labelDeterminant->setText(adequacytext::determinant(adequacy.lnDeterminant, decimals));
    m_ui->labelRatio->setText(adequacytext::eigenvalueRatio(adequacy.eigenvalueRatio, decimals));
    m_model->fill(tableOf(adequacy, variables));
    fitToNames(m_ui->tableAdequacy, *m_model);
    setLowRows(m_ui->tableAdequacy);
}

void AdequacyPage::showBartlett(const pelmora::Computed<pelmora::Bartlett>& test)
{
    m_ui->labelBartlett->setText(adequacytext::bartlett(test, settings::precision()));
}

void AdequacyPage::setNames(const QVector<QString>& names)
{
    m_model->setNames(names);
    fitToNames(m_ui->tableAdequacy, *m_model);
}

void AdequacyPage::clear()
{
    m_model->clear();
}
