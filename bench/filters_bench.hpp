// SPDX-License-Identifier: MIT
// The filters, to be timed.
#pragma once

#include <vector>

namespace mobrel::bench {

struct PictureOperation;

/// Every operation of the catalogue, with its progress events.
std::vector<PictureOperation> filterOperations();

}  // namespace mobrel::bench
