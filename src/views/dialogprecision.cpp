// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/dialogprecision.h"

#include "ui_dialogprecision.h"

DialogPrecision::DialogPrecision(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DialogPrecision>())
{
    m_ui->setupUi(this);
    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

DialogPrecision::~DialogPrecision() = default;

void DialogPrecision::setPrecision(int decimals)
{
    m_ui->spinBoxPrecision->setValue(decimals);
}

int DialogPrecision::precision() const
{
    return m_ui->spinBoxPrecision->value();
}
