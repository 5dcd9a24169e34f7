// SPDX-License-Identifier: MIT
// A picture to time operations on.
#pragma once

#include "imaging/cDIB.hpp"

namespace mobrel::bench {

/// Fills a surface with what photographs have: smooth grounds, discs with hard edges, and fine grain. The
/// same pixels for the same size on every machine. Noise alone would defeat the branch predictor as no
/// photograph does.
void paintPhoto(cDIB& picture);

}  // namespace mobrel::bench
