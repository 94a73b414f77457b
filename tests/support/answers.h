// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

#include "numerics/progress.h"

#include <limits>
#include <vector>

/// Lets some questions of long work pass, then cancels; notes what was asked.
class Answers
{
public:
    static constexpr int always = std::numeric_limits<int>::max();

    explicit Answers(int yes)
    {
        left = yes;
        asked.clear();
        pelmora::setProgressReport([](const pelmora::Progress& progress) {
            asked.push_back(progress);
            return left-- > 0;
        });
    }
    ~Answers() { pelmora::setProgressReport(nullptr); }
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;

    inline static int left = 0;
    inline static std::vector<pelmora::Progress> asked;
};
