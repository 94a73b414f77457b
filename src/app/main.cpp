// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "app/startup.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    nameApplication();
    return runProgram(application);
}
