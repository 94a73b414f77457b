// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/dialogvarnames.h"

#include "output/tabletext.h"
#include "ui_dialogvarnames.h"
#include "views/sessionface.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

#include <algorithm>
#include <utility>

DialogVarNames::DialogVarNames(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::DialogVarNames>())
{
    m_ui->setupUi(this);
    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* paste = new QAction(tr("Paste"), m_ui->tableWidget);
    paste->setShortcut(QKeySequence::Paste);
    paste->setShortcutContext(Qt::WidgetShortcut);
    connect(paste, &QAction::triggered, this, &DialogVarNames::pasteNames);
    m_ui->tableWidget->addAction(paste);
    m_ui->tableWidget->setContextMenuPolicy(Qt::ActionsContextMenu);
}

DialogVarNames::~DialogVarNames() = default;

void DialogVarNames::setRowCount(int n)
{
    m_ui->tableWidget->setColumnCount(1);
    m_ui->tableWidget->setRowCount(n);
    m_ui->tableWidget->setHorizontalHeaderLabels({tr("Name of variable:")});
    m_ui->tableWidget->resizeColumnToContents(0);
}

void DialogVarNames::setNames(const QVector<QString>& names)
{
    m_given = names;
    const auto count = std::min<qsizetype>(names.size(), m_ui->tableWidget->rowCount());
    for (int i = 0; i < count; ++i)
        m_ui->tableWidget->setItem(i, 0, new QTableWidgetItem(names[i]));
}

QVector<QString> DialogVarNames::names() const
{
    QVector<QString> names(m_ui->tableWidget->rowCount());
    for (int i = 0; i < m_ui->tableWidget->rowCount(); ++i)
        if (const auto* item = m_ui->tableWidget->item(i, 0))
            names[i] = item->text() == m_given.value(i) ? item->text() : onOneLine(item->text());
    return names;
}

void DialogVarNames::pasteNames()
{
    QStringList lines = QGuiApplication::clipboard()->text().split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    QTableWidget* table = m_ui->tableWidget;
    int row = std::max(table->currentRow(), 0);
    for (const QString& line : std::as_const(lines)) {
        if (row == table->rowCount())
            break;
        table->setItem(row++, 0, new QTableWidgetItem(line.section(u'\t', 0, 0).trimmed()));
    }
}

void DialogVarNames::accept()
{
    // A cell editor hands its text over when its cell is left, which the button's shortcut alone
    // does not bring about.
    m_ui->tableWidget->selectionModel()->clearCurrentIndex();
    QDialog::accept();
}

void editVariableNames(QWidget* parent, SessionFace* session)
{
    const QPointer<SessionFace> guarded(session);
    if (!guarded)
        return;
    const auto names = guarded->variableNames();
    DialogVarNames dialog(parent);
    dialog.setRowCount(static_cast<int>(names.size()));
    dialog.setNames(names);
    if (dialog.exec() == QDialog::Accepted && guarded)
        guarded->setVariableNames(dialog.names());
}
