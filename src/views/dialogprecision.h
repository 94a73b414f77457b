// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class DialogPrecision;
}

/// Asks for the number of decimals that numbers are shown and exported with, 1 to 9.
class DialogPrecision : public QDialog
{
    Q_OBJECT

public:
    explicit DialogPrecision(QWidget* parent);
    ~DialogPrecision() override;

    /// Values outside 1 to 9 are shown as the nearer of the two.
    void setPrecision(int decimals);
    int precision() const;

private:
    std::unique_ptr<Ui::DialogPrecision> m_ui;
};
