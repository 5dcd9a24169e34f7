// SPDX-License-Identifier: MIT
// The pictures that the gallery shows in controls.
#pragma once

#include <memory>

#include "imaging/cDIB.hpp"
#include "platform/control/ControlPicture.hpp"

namespace mobrel::gallery {

/// A landscape of 160 by 120 pixels, each `factor` times as wide and high. Some stand alone, and show how
/// they are enlarged.
void drawLandscape(cDIB& target, int factor);

/// A rail and a row's background, as a slider and a list take them.
std::shared_ptr<const ControlPicture> railPicture(int width, int height);
std::shared_ptr<const ControlPicture> rowPicture();

}  // namespace mobrel::gallery
