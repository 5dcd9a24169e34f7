// SPDX-License-Identifier: MIT
// The paint surface.
#pragma once

#include "imaging/Surface.hpp"

namespace mobrel {

/// What the canvas composes on. Memory row 0 is the top line of the picture.
using cDIB32 = Surface<RowOrder::TopDown>;

}  // namespace mobrel
