// SPDX-License-Identifier: MIT
// Bicubic scaling for sizes and ratios beyond zimg's strong side.
#pragma once

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// Fits the whole source to the whole target by Catmull-Rom, the kernel widened where it shrinks, edges
/// mirrored as often as the kernel reaches over them; byte 3 of each pixel becomes 0. In double precision,
/// any size. The two share no memory. Besides the pictures, one line of the source and the weights
/// of 4,096 columns stand in memory. std::bad_alloc when memory is short.
void scalePlainly(DeviceContext& target, const DeviceContext& source);

}  // namespace mobrel
