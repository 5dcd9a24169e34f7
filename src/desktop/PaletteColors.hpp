// SPDX-License-Identifier: MIT
// The system colours of the user's palette.
#pragma once

#include "platform/drawing/SystemColors.hpp"

namespace mobrel {

/// Looks at the application's palette at each question, so that it follows every change. Needs a
/// QGuiApplication.
class PaletteColors final : public SystemColors {
 public:
    Color color(SystemColor index) const override;
};

}  // namespace mobrel
