// SPDX-License-Identifier: MIT
// Turning, scaling and files of whole pictures, to be timed.
#pragma once

#include <vector>

namespace mobrel::bench {

struct PictureOperation;

/// The mirrors, the quarter turn, scaling to a quarter of each side, and a file of 24 bits in memory written
/// and read. A file's bytes go over the picture, where they are compared.
std::vector<PictureOperation> fileOperations();

}  // namespace mobrel::bench
