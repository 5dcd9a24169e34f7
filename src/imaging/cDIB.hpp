// SPDX-License-Identifier: MIT
// The document surface.
#pragma once

#include "imaging/Surface.hpp"

namespace mobrel {

/// Holds the picture being edited and every working copy of it. Memory row 0 is the bottom line of the
/// picture: line y from the top is row Height - 1 - y.
using cDIB = Surface<RowOrder::BottomUp>;

}  // namespace mobrel
