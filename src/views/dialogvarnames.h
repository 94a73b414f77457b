// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QString>
#include <QVector>

#include <memory>

class SessionFace;

namespace Ui {
class DialogVarNames;
}

/// Lets the user edit the names of all variables in a table of one column.
class DialogVarNames : public QDialog
{
    Q_OBJECT

public:
    explicit DialogVarNames(QWidget* parent);
    ~DialogVarNames() override;

    /// One empty row per variable.
    void setRowCount(int n);
    /// Names the first rows; names beyond the last row are left out.
    void setNames(const QVector<QString>& names);

    /// One name per row, empty where a row has none. Line breaks, tabs and other control characters
    /// become blanks: they would split the name in files, headers and copied tables.
    QVector<QString> names() const;

    /// Takes over a name that is still being typed.
    void accept() override;

private:
    /// Pastes names from the current row on, one per line, as a column copied from a spreadsheet.
    void pasteNames();

    std::unique_ptr<Ui::DialogVarNames> m_ui;
    QVector<QString> m_given; ///< only names that differ from these are tidied
};

/// Shows the names of @p session's variables for editing and hands them back when the user accepts.
void editVariableNames(QWidget* parent, SessionFace* session);
