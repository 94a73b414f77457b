// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

/// The commands of pelmora-batch. Each takes the arguments after its name and returns an ExitCode;
/// none of them has an application object unless it makes one.
namespace batch {

/// Runs the command that @p arguments begin with.
int run(const QStringList& arguments);

int analyse(const QStringList& arguments);
int correlate(const QStringList& arguments);
int sums(const QStringList& arguments);
int merge(const QStringList& arguments);
int score(const QStringList& arguments);

} // namespace batch
