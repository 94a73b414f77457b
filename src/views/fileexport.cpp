// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "views/fileexport.h"

#include "views/waitcursor.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include <fstream>
#include <ios>

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("FileExport", text);
}

/// Writes and closes; the text of what went wrong, null for success.
QString writeAndClose(std::ofstream& file, const QString& badStreamText,
                      const std::function<void(std::ostream&)>& write)
{
    const WaitCursor waitCursor;
    try {
        file.exceptions(std::ios_base::failbit | std::ios_base::badbit);
        write(file);
        // A full disk is often met only now, and the destructor would keep it to itself.
        file.close();
    } catch (const std::ios_base::failure& failure) {
        return badStreamText.isEmpty() ? QString::fromLocal8Bit(failure.what()) : badStreamText;
    } catch (const std::exception& failure) {
        return QString::fromLocal8Bit(failure.what());
    }
    return QString();
}

} // namespace

void runExport(QWidget* parent, const FileExport& fileExport,
               const std::function<void(std::ostream&)>& write)
{
    const QString fileName = QFileDialog::getSaveFileName(
        parent, fileExport.caption, fileExport.proposedFile, fileExport.filter);
    if (fileName.isEmpty())
        return;

    // A narrow file name would be taken for the local code page on some systems.
    const auto mode = fileExport.isBinary ? std::ios_base::binary : std::ios_base::openmode();
    std::ofstream file(QFileInfo(fileName).filesystemFilePath(), mode);
    if (!file) {
        QMessageBox box(QMessageBox::Warning, tr("Error opening file"),
                        tr("Cannot open file %1").arg(fileName), QMessageBox::Ok, parent);
        // A file's name may look like markup.
        box.setTextFormat(Qt::PlainText);
        box.exec();
        return;
    }
    const QString failure = writeAndClose(file, fileExport.badStreamText, write);
    if (!failure.isNull())
        QMessageBox::warning(parent, fileExport.failureTitle, failure);
}
