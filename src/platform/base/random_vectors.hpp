// SPDX-License-Identifier: MIT
// Random numbers in vectors.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel {

/// Writes the top 24 bits of the mixes of the counters after `counter`, as many as fill whole vectors. How
/// many these are; what is left of `count` is less than a vector.
extern const VectorKernel<std::size_t(std::uint64_t counter, std::uint32_t* bits, std::size_t count)>
    drawNumbers;

}  // namespace mobrel
