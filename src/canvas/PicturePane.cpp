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
    const bool hasPicture = m_picture != nullptr && m_picture->hDIB() != nullptr;
    const Rect place =
        hasPicture ? moved({0, 0, m_picture->Width(), m_picture->Height()}, m_left, m_top) : Rect{};
    target->fillAround(place, GetSysColor(SystemColor::ApplicationWorkspace));
    if (hasPicture) m_picture->Paint(*target, m_left, m_top, 1);
    showAll();
}

}  // namespace mobrel
