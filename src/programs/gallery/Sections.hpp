// SPDX-License-Identifier: MIT
// The sections of the gallery, one a kind of control.
#pragma once

#include <QGridLayout>
#include <QWidget>

namespace mobrel::gallery {

void addLists(QGridLayout& grid);
void addSliders(QGridLayout& grid);
void addProgressBars(QGridLayout& grid);
void addCanvases(QGridLayout& grid);
void addTips(QGridLayout& grid);
void addPointers(QGridLayout& grid);

/// The status bar.
QWidget* makeInfo();

}  // namespace mobrel::gallery
