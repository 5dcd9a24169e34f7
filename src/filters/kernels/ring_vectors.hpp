// SPDX-License-Identifier: MIT
// The ring test of saltAndPepperRow for several blocks at once.
#pragma once

#include <cstddef>
#include <cstdint>

namespace mobrel::kernels {

/// How many of the `count` blocks from column x on are known to stay as they are, one after the other: at
/// most those before the first that changes. 0 where less than a vector of blocks is left.
std::size_t blocksThatStay(const std::uint8_t* const rows[4], std::size_t x, std::size_t count,
                           std::int32_t threshold);

}  // namespace mobrel::kernels
