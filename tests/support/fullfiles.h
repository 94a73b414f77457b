// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/resource.h>

#include <csignal>

/// While it lives no file of the process grows beyond a size, for root neither: a disk that is soon
/// full. The system's words are "File too large".
class FullFiles
{
public:
    explicit FullFiles(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullFiles() { setrlimit(RLIMIT_FSIZE, &m_before); }
    FullFiles(const FullFiles&) = delete;
    FullFiles& operator=(const FullFiles&) = delete;

private:
    rlimit m_before;
};
