// SPDX-License-Identifier: MIT
// SaltAndPepperRemoval: blocks that stand out from the ring around them.
#pragma once

#include <cstdint>

namespace mobrel::kernels {

/// Tests the 2 x 2 blocks at columns 1 to width - 3 of four rows (y - 1 to y + 2) against the mean of
/// the 12 pixels around each, from left to right and in place. A pixel of which a channel differs from
/// the mean by more than the threshold becomes the mean.
void saltAndPepperRow(std::uint8_t* const rows[4], int width, std::int32_t threshold);

}  // namespace mobrel::kernels
