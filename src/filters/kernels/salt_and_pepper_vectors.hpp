// SPDX-License-Identifier: MIT
// The ring test of saltAndPepperRow for several blocks at once.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/base/VectorKernel.hpp"

namespace mobrel::kernels {

/// How many of the `count` blocks from column x on are known to stay as they are, one after the other: at
/// most those before the first that changes. 0 where less than a vector of blocks is left.
extern const VectorKernel<std::size_t(const std::uint8_t* const* rows, std::size_t x, std::size_t count,
                                      std::int32_t threshold)>
    blocksThatStay;

}  // namespace mobrel::kernels
