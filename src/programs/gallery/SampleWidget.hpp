// SPDX-License-Identifier: MIT
// A control and the widget that shows it, in one.
#pragma once

#include "desktop/ControlWidget.hpp"

namespace mobrel::gallery {

/// A base that stands before the widget, so that the control is there before it and after it.
template <typename Shown>
struct ControlHolder {
    Shown shown;
};

template <typename Shown>
class SampleWidget : private ControlHolder<Shown>, public ControlWidget {
 public:
    SampleWidget() : ControlWidget(ControlHolder<Shown>::shown) {}

    Shown& shown() { return ControlHolder<Shown>::shown; }
};

}  // namespace mobrel::gallery
