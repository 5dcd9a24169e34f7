// SPDX-License-Identifier: MIT
// Palettes, reducers and depth commands, to be timed.
#pragma once

#include <vector>

namespace mobrel::bench {

struct PictureOperation;

/// Every builder, every reducer with its progress events, the depth commands and the count of colours. What
/// is no pixel, as an entry or a count, goes over the first pixels, where it is compared.
std::vector<PictureOperation> colourOperations();

}  // namespace mobrel::bench
