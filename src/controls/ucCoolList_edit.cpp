// SPDX-License-Identifier: MIT
// Editing a text in place.
#include <algorithm>

#include "controls/ucCoolList.hpp"

namespace mobrel {

void ucCoolList::StartEdit() {
    if (m_listIndex < 0 || host() == nullptr) return;
    change([this] {
        closeEdit();
        bringIntoView();
        if (isRowVisible(m_listIndex)) openEdit();
    });
}

/// The list does not scroll until it is closed.
void ucCoolList::openEdit() {
    connectEditBox();
    m_scrollsIntoView = false;

    const bool looksSelected = ItemSelected(m_listIndex) && m_properties.SelectModeStyle != ListLook::Bold;
    EditBox::Look look;
    look.place = editPlace();
    look.font = m_properties.Font;
    look.background = OleTranslateColor(looksSelected ? m_properties.BackSelected : m_properties.BackNormal);
    look.text = OleTranslateColor(looksSelected ? m_properties.FontSelected : m_properties.FontNormal);
    look.alignment = m_properties.WordWrap ? static_cast<unsigned>(m_properties.Alignment) : DT_LEFT;
    look.wrapsLines = m_properties.WordWrap;
    m_isEditing = true;
    host()->editBox().open(ItemText(m_listIndex), look);
}

/// In the image.
Rect ucCoolList::editPlace() const {
    const Rect row = rowRect(m_listIndex);
    Rect place = textRect(row);
    if (m_properties.WordWrap) {
        const int offset = scaled(m_properties.ItemOffset);
        place.left += offset;
        place.right -= offset;
    } else {
        const int line = lineHeight(m_properties.Font, scale());
        place.top = row.top + (m_rowHeight - line) / 2;
        place.bottom = place.top + line;
    }
    place.right = std::max(place.right, place.left + 1);
    place.bottom = std::max(place.bottom, place.top + 1);
    return inImage(place);
}

void ucCoolList::connectEditBox() {
    if (m_editListener) return;
    m_editListener.emplace();
    EditBox& box = host()->editBox();
    box.KeyDown.connect(*m_editListener, [this](std::int16_t keyCode) { editKeyPressed(keyCode); });
    box.LostFocus.connect(*m_editListener, [this] { closeEdit(); });
}

void ucCoolList::editKeyPressed(std::int16_t keyCode) {
    if (!m_isEditing || (keyCode != KeyCode::kEnter && keyCode != KeyCode::kEscape)) return;
    change([&] {
        if (keyCode == KeyCode::kEnter) itemAt(m_listIndex).Text = host()->editBox().Text();
        moveTo(-1);
    });
}

void ucCoolList::EndEdit(bool Save) {
    if (Save) {
        editKeyPressed(KeyCode::kEnter);
    } else {
        closeEdit();
    }
}

/// Hides the editor, whose loss of the keyboard comes back here.
void ucCoolList::closeEdit() {
    if (!std::exchange(m_isEditing, false)) return;
    m_scrollsIntoView = true;
    if (host() != nullptr) host()->editBox().close();
}

}  // namespace mobrel
