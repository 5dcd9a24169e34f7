// SPDX-License-Identifier: MIT
// The counted loop of the recipes.
#pragma once

#include <cstdint>

namespace mobrel::kernels {

/// Calls work(i) for i = first, first + step ... as far as last. A negative step counts down, so it
/// meets nothing where last lies above first. A step of 0 never ends.
template <typename Work>
void forSteps(std::int32_t first, std::int32_t last, std::int32_t step, Work work) {
    if (step >= 0) {
        for (std::int32_t i = first; i <= last; i += step) work(i);
    } else {
        for (std::int32_t i = first; i >= last; i += step) work(i);
    }
}

}  // namespace mobrel::kernels
