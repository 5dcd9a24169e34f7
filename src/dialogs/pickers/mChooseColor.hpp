// SPDX-License-Identifier: MIT
// The colour picker.
#pragma once

#include <cstdint>

#include "platform/drawing/DeviceContext.hpp"

class QWidget;

namespace mobrel {

/// Asks for a colour, 0x00BBGGRR, starting from `initialColor`. -1 on cancel; 0 is black. The custom colours
/// of the dialog are kept while the program runs, also after a cancel.
std::int32_t ChooseColorEx(QWidget* owner, Color initialColor, bool fullOpen);

}  // namespace mobrel
