// SPDX-License-Identifier: MIT
// Holds the vector kernels to one set of instructions.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "platform/base/Processor.hpp"

namespace mobrel::test {

/// Every set that this processor has, and HWY_SCALAR, with which the plain loops do all.
inline std::vector<std::int64_t> allTargets() {
    std::vector<std::int64_t> targets;
    for (std::int64_t rest = processorTargets(); rest != 0; rest &= rest - 1) targets.push_back(rest & -rest);
    return targets;
}

/// Lets the kernels use these instructions only.
class OnlyTarget {
 public:
    explicit OnlyTarget(std::int64_t target) { chosenTargets().Update(target); }
    ~OnlyTarget() { chosenTargets().Update(processorTargets()); }
    OnlyTarget(const OnlyTarget&) = delete;
    OnlyTarget& operator=(const OnlyTarget&) = delete;
};

/// Calls check() once with each set. A processor without vectors has nothing to compare, and fails.
template <typename Check>
void forEachTarget(Check check) {
    for (const std::int64_t target : allTargets()) {
        SCOPED_TRACE(hwy::TargetName(target));
        const OnlyTarget only(target);
        check();
    }
    EXPECT_GT(allTargets().size(), 1U);
}

/// Runs the check with each set; with how many of them it was true.
template <typename Check>
int usefulTargets(Check check) {
    int useful = 0;
    for (const std::int64_t target : allTargets()) {
        SCOPED_TRACE(hwy::TargetName(target));
        const OnlyTarget only(target);
        useful += check() ? 1 : 0;
    }
    return useful;
}

}  // namespace mobrel::test
