// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/adequacy.h"

#include <QVector>
#include <QWidget>

#include <memory>

class NumberTableModel;

namespace Ui {
class AdequacyPage;
}

/// Measures of how suitable the correlations are for a factor analysis, of all variables and of
/// each.
class AdequacyPage : public QWidget
{
    Q_OBJECT

public:
    explicit AdequacyPage(QWidget* parent = nullptr);
    ~AdequacyPage() override;

    /// Copies what it shows. @param variables  how many the table has, even where it stays empty
    void showAdequacy(const pelmora::Adequacy& adequacy, int variables);
    void showBartlett(const pelmora::Computed<pelmora::Bartlett>& test);
    void setNames(const QVector<QString>& names);
    void clear();

private:
    std::unique_ptr<Ui::AdequacyPage> m_ui;
    NumberTableModel* m_model;
};
