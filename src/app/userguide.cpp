// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/userguide.h"

#include "app/product.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace {

/// Relative to the executable, so that an installation can be moved: as installed, and in a build
/// tree.
constexpr const char* guideFolders[] = {PELMORA_GUIDE_FROM_BINARY, "../../docs", "."};

} // namespace

QUrl userGuideUrl()
{
    const QDir binaryFolder(QCoreApplication::applicationDirPath());
    for (const char* folder : guideFolders) {
        const QDir guideFolder(binaryFolder.filePath(QLatin1String(folder)));
        const QFileInfo guide(guideFolder.filePath(QLatin1String(product::userGuideFile)));
        if (guide.isFile())
            return QUrl::fromLocalFile(guide.canonicalFilePath());
    }
    return {};
}
