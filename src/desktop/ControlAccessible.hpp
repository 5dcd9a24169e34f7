// SPDX-License-Identifier: MIT
// What assistive programs see of self-drawn controls.
#pragma once

class QWidget;

namespace mobrel {

class Control;

/// Makes Qt ask here for every ControlWidget. Once a process.
void installControlAccessibility();

/// Tells assistive programs that value, selection or content of a widget's control have changed.
void tellAccessibleChange(QWidget& widget, const Control& control);

}  // namespace mobrel
