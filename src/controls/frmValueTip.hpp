// SPDX-License-Identifier: MIT
// The tip that tells a value.
#pragma once

#include <string>

#include "platform/control/Control.hpp"

namespace mobrel {

/// One line of text in a 3-D frame. It asks for the size of its text.
class frmValueTip : public Control {
 public:
    const std::string& lblTip() const noexcept { return m_text; }
    void setLblTip(std::string text);

    void appearanceChanged() override { fitToText(); }

    AccessibleRole accessibleRole() const override { return AccessibleRole::Graphic; }
    std::string accessibleValue() const override { return m_text; }

 private:
    void hostChanged() override { fitToText(); }
    void sizeChanged() override { fitToText(); }

    void fitToText();
    void paint();

    std::string m_text;
};

}  // namespace mobrel
