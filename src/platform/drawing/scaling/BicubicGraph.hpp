// SPDX-License-Identifier: MIT
// Bicubic scaling by zimg, the fast way.
#pragma once

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// Which of zimg's kernels do the work. Both give the same bytes.
enum class ZimgKernels { ForProcessor, PlainC };

/// Fits the whole source to the whole target by Catmull-Rom, the kernel widened where it shrinks, edges
/// mirrored; byte 3 of each pixel becomes 0. The two share no memory. Besides the pictures, a few lines
/// stand in memory. False, with the target's pixels undefined, when zimg refuses. std::bad_alloc when
/// memory is short.
bool scaleByGraph(DeviceContext& target, const DeviceContext& source, ZimgKernels kernels);

}  // namespace mobrel
