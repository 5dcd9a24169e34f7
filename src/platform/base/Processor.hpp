// SPDX-License-Identifier: MIT
// Which sets of instructions the vector kernels use, and what they start to load. Sources include this file
// after Highway's headers, whose own choice needs a library that measures the clock for milliseconds whenever
// a program starts.
#pragma once

#include <hwy/cache_control.h>
#include <hwy/highway.h>

#include <cstdint>

namespace mobrel {

/// The sets of instructions that this processor and its system run, as Highway's bits. HWY_SCALAR is always
/// among them.
std::int64_t processorTargets();

/// The sets that kernels choose from; all of processorTargets() at first. Update() narrows them for a test.
hwy::ChosenTarget& chosenTargets();

/// Starts to load what a loop over a picture reaches a page later. The processor alone starts too late, the
/// more so in a virtual machine: filters then wait for memory half of their time. Past the end it does
/// nothing.
inline void loadAhead(const std::uint8_t* at) {
    constexpr std::uintptr_t kPage = 4096;
    // Arithmetic with the pointer itself would be undefined past the end.
    hwy::Prefetch(reinterpret_cast<const std::uint8_t*>(  // NOLINT(performance-no-int-to-ptr)
        reinterpret_cast<std::uintptr_t>(at) + kPage));
}

}  // namespace mobrel
