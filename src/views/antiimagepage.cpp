// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/antiimagepage.h"

#include "output/adequacytext.h"
#include "ui_antiimagepage.h"
#include "views/nameheaders.h"
#include "views/numbertable.h"
#include "views/tablecopy.h"

#include <algorithm>
#include <limits>

AntiImagePage::AntiImagePage(QWidget* parent)
    : QWidget(parent)
    , m_ui(std::make_unique<Ui::AntiImagePage>())
    , m_model(new NumberTableModel(this))
{
    m_ui->setupUi(this);
    m_ui->labelAntiImage->hide();
    m_model->setHeaders(m_model->nameHeader(), m_model->nameHeader());
    m_model->leaveNotNumbersEmpty();
    m_model->showExactInToolTips();
    m_ui->tableAntiImage->setModel(m_model);
    installNameHeaders(m_ui->tableAntiImage);
    installTableCopy(m_ui->tableAntiImage);
}

AntiImagePage::~AntiImagePage() = default;

void AntiImagePage::showAntiImage(pelmora::Matrix antiImage, const pelmora::Obstacle& obstacle,
                                  int variables)
{
    m_ui->labelAntiImage->setVisible(bool(obstacle));
    m_ui->labelAntiImage->setText(adequacytext::antiImage(obstacle));
    if (antiImage.isNull()) {
        antiImage = pelmora::Matrix(variables, variables);
        for (int i = 0; i < antiImage.rows(); ++i)
            std::fill_n(antiImage[i], variables, std::numeric_limits<double>::quiet_NaN());
    }
    m_model->fill(std::move(antiImage));
    fitToNumbers(m_ui->tableAntiImage, *m_model);
    setLowRows(m_ui->tableAntiImage);
}

void AntiImagePage::setNames(const QVector<QString>& names)
{
    m_model->setNames(names);
    fitToNumbers(m_ui->tableAntiImage, *m_model);
}

void AntiImagePage::clear()
{
    m_model->clear();
}
