// SPDX-License-Identifier: MIT
// What a view is drawn with, to be timed.
#pragma once

#include <vector>

namespace mobrel::bench {

struct PictureOperation;

/// The row's picture is the view: a top-down target. Into it a part of a larger picture is stretched at some
/// zooms, from pictures of 12 and 100 million pixels (what is seen costs, not what there is), and a whole
/// picture is shrunk; and fills.
std::vector<PictureOperation> canvasOperations();

}  // namespace mobrel::bench
