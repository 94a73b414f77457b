// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

#include <cstddef>
#include <cstdint>

/// Stops the run, which then keeps the input, unless @p holds.
void require(bool holds, const char* property);

/// Writes the bytes to a file of this process, the same one each time, and returns its path.
QString fileOf(const char* bytes, std::size_t size);

/// The messages that readers have shown since the last call.
QStringList takeReports();

bool sameBits(double a, double b);
