// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "childprocess.h"

#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace samples {

namespace {

[[noreturn]] void becomeProgram(std::vector<QByteArray>& command, int output)
{
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (QByteArray& argument : command)
        arguments.push_back(argument.data());
    arguments.push_back(nullptr);
    dup2(output, STDOUT_FILENO);
    execv(arguments[0], arguments.data());
    _exit(1);
}

QByteArray readAll(int file)
{
    QByteArray text;
    char part[4096];
    for (ssize_t length = 0; (length = read(file, part, sizeof part)) > 0;)
        text.append(part, length);
    return text;
}

double seconds(const timeval& time)
{
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

} // namespace

Ended runToTheEnd(std::vector<QByteArray> command)
{
    int ends[2] = {};
    if (pipe(ends) != 0)
        throw std::runtime_error("cannot make a pipe");
    const pid_t child = fork();
    if (child == 0)
        becomeProgram(command, ends[1]);
    close(ends[1]);
    Ended ended{.output = readAll(ends[0])};
    close(ends[0]);
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child || status != 0)
        throw std::runtime_error("cannot run " + command.front().toStdString());
    ended.processorSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    ended.peakMegabytes = 1024e-6 * static_cast<double>(usage.ru_maxrss);
    return ended;
}

} // namespace samples
