// SPDX-License-Identifier: MIT
#include "canvas/PicturePane.hpp"

#include "platform/drawing/SystemColors.hpp"

namespace mobrel {

void PicturePane::show(const cDIB& picture, int left, int top) {
    m_picture = &picture;
    m_left = left;
    m_top = top;
    paint();
}

void PicturePane::sizeChanged() {
    paint();
    Resized.raise();
}

void PicturePane::paint() {
    auto target = image();
    if (!target) return;
    const Rect place = m_picture == nullptr || m_picture->hDIB() == nullptr
                           ? Rect{}
                           : Rect{m_left, m_top, m_left + m_picture->Width(), m_top + m_picture->Height()};
    const Color ground = GetSysColor(SystemColor::ApplicationWorkspace);
    target->FillRect({0, 0, width(), place.top}, ground);
    target->FillRect({0, place.bottom, width(), height()}, ground);
    target->FillRect({0, place.top, place.left, place.bottom}, ground);
    target->FillRect({place.right, place.top, width(), place.bottom}, ground);
    if (m_picture != nullptr) m_picture->Paint(*target, m_left, m_top, 1);
    showAll();
}

}  // namespace mobrel
