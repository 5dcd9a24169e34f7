// SPDX-License-Identifier: MIT
// A control and the widget that shows it, in one.
#pragma once

#include "desktop/ControlWidget.hpp"

namespace mobrel {

/// A base that stands before the widget, so that the control is there before it and after it.
template <typename Owned>
struct ControlHolder {
    Owned control;
};

template <typename Owned>
class OwningControlWidget : private ControlHolder<Owned>, public ControlWidget {
 public:
    explicit OwningControlWidget(QWidget* parent = nullptr)
        : ControlWidget(ControlHolder<Owned>::control, parent) {}

    Owned& owned() { return ControlHolder<Owned>::control; }
};

}  // namespace mobrel
