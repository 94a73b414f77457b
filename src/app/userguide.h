// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>

/// Where the installed user guide is, as a local file; an empty address when it is not installed.
QUrl userGuideUrl();
