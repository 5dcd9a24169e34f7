// SPDX-License-Identifier: MIT
// One run of another program, and what it took.
#pragma once

#include <string>
#include <vector>

namespace mobrel::bench {

struct ChildCost {
    double wallSeconds = 0;
    double processorSeconds = 0;
    long peakKibibytes = 0;
    int exitStatus = 0;
};

/// Runs a program, searched along PATH, with these variables set beside the inherited ones, and waits for
/// its end. Its standard output and standard error are dropped. Throws std::runtime_error when it cannot be
/// started. Variables that are set to nothing are taken away.
ChildCost runChild(const std::vector<std::string>& command,
                   const std::vector<std::pair<std::string, std::string>>& variables);

}  // namespace mobrel::bench
