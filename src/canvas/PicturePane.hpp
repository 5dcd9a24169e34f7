// SPDX-License-Identifier: MIT
// A picture box.
#pragma once

#include "imaging/cDIB.hpp"
#include "platform/base/Event.hpp"
#include "platform/control/Control.hpp"

namespace mobrel {

/// Shows a surface at a place of it, a picture pixel a device pixel, on the workspace's ground.
class PicturePane : public Control {
 public:
    /// Paints at once. The surface is looked at until the next call, and must live that long.
    void show(const cDIB& picture, int left, int top);

    /// After a change of its size.
    Event<> Resized;

    void appearanceChanged() override { paint(); }

    AccessibleRole accessibleRole() const override { return AccessibleRole::Graphic; }

 protected:
    void sizeChanged() override;

 private:
    void paint();

    const cDIB* m_picture = nullptr;
    int m_left = 0;
    int m_top = 0;
};

}  // namespace mobrel
