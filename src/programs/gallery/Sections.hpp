// SPDX-License-Identifier: MIT
// The parts of the gallery, one a kind of control.
#pragma once

#include <QWidget>

namespace mobrel::gallery {

QWidget* makeLists();
QWidget* makeSliders();
QWidget* makeProgressBars();
QWidget* makeCanvases();
QWidget* makeTips();
QWidget* makePointers();
QWidget* makeInfo();

}  // namespace mobrel::gallery
