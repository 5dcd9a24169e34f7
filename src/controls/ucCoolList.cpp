// SPDX-License-Identifier: MIT
// Items and their selection.
#include "controls/ucCoolList.hpp"

#include <algorithm>

#include "platform/base/NumberText.hpp"

namespace mobrel {

ucCoolList::ucCoolList() {
    m_scroll.setMax(0);
    m_scroll.Change.connect([this] { change([this] { scrolled(); }); });
}

/// In their order, unless a handler ends the list.
void ucCoolList::raiseNoted() {
    const auto life = this->life();
    for (const auto& raise : std::exchange(m_noted, {})) {
        if (life.expired()) return;
        raise();
    }
}

void ucCoolList::SetImageList(std::shared_ptr<const ImageList> Source) {
    m_imageList = std::move(Source);
    repaint();
}

void ucCoolList::setProperties(ucCoolListProperties value) {
    m_properties = std::move(value);
    if (!m_properties.Enabled) m_isMouseDown = false;
    showCursor();
    relayout();
}

void ucCoolList::setDesignName(std::string name) {
    m_designName = std::move(name);
    repaint();
}

void ucCoolList::setEnabled(bool value) {
    m_properties.Enabled = value;
    if (value) return;
    m_isMouseDown = false;
    closeEdit();
}

/// Of an item in m_items.
std::size_t ucCoolList::placeOf(int index) const {
    if (!isItem(index)) throw RuntimeError(ErrorNumber::InvalidPropertyIndex);
    return static_cast<std::size_t>(index);
}

/// A place where an item stands or may be put.
void ucCoolList::checkPlace(int index) const {
    if (ListCount() == 0 || index < 0 || index > ListCount()) {
        throw RuntimeError(ErrorNumber::InvalidPropertyIndex);
    }
}

void ucCoolList::AddItem(std::string_view Text, std::int16_t Icon, std::int16_t IconSelected) {
    change([&] {
        const int added = ListCount();
        m_items.back() = {std::string(Text), Icon, IconSelected};
        m_items.emplace_back();
        if (m_topIndex < 0) m_topIndex = 0;
        layoutScrollBar();
        drawRow(added);
        tellAccessible();
    });
}

void ucCoolList::InsertItem(int Index, std::string_view Text, std::int16_t Icon, std::int16_t IconSelected) {
    checkPlace(Index);
    change([&] {
        m_items.insert(m_items.begin() + Index, Item{std::string(Text), Icon, IconSelected});
        layoutScrollBar();
        if (m_listIndex >= Index) {
            m_scrollsIntoView = false;
            moveTo(m_listIndex + 1);
        }
        repaint();
        tellAccessible();
    });
}

void ucCoolList::ModifyItem(int Index, std::optional<std::string_view> Text, std::int16_t Icon,
                            std::int16_t IconSelected) {
    checkPlace(Index);
    Item& item = m_items[static_cast<std::size_t>(Index)];
    // kept: a text that is the number 0 counts as not given, so "0" can only be set by ItemText
    if (Text && numberOf(*Text) != 0.0) item.Text = *Text;
    if (Icon >= 0) item.Icon = Icon;
    if (IconSelected >= 0) item.IconSelected = IconSelected;
    drawRow(Index);
    tellAccessible();
}

void ucCoolList::RemoveItem(int Index) {
    placeOf(Index);
    change([&] {
        m_items.erase(m_items.begin() + Index);
        if (m_listIndex == Index) {
            moveTo(-1);
        } else if (m_listIndex > Index) {
            m_scrollsIntoView = false;
            moveTo(m_listIndex - 1);
        }
        layoutScrollBar();
        repaint();
        tellAccessible();
    });
}

void ucCoolList::Clear() {
    change([&] {
        closeEdit();
        m_items.assign(1, {});
        m_listIndex = -1;
        layoutScrollBar();
        m_topIndex = -1;
        repaint();
        tellAccessible();
    });
}

void ucCoolList::setListIndex(int value) {
    if (value < -1 || value >= ListCount()) throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    change([&] { moveTo(value); });
}

/// What setting ListIndex does.
void ucCoolList::moveTo(int index) {
    const bool scrolls = std::exchange(m_scrollsIntoView, true);
    closeEdit();
    const int previous = std::exchange(m_listIndex, index);
    if (index < 0) m_lastMouseY = -1;
    if (!isMultiple()) {
        if (isItem(previous)) itemAt(previous).isSelected = false;
        if (isItem(index)) itemAt(index).isSelected = true;
    }
    drawRow(previous);
    drawRow(index);
    if (scrolls) bringIntoView();
    tellAccessible();
    note(ListIndexChange);
}

int ucCoolList::SelectedCount() const {
    return static_cast<int>(std::ranges::count(m_items, true, &Item::isSelected));
}

void ucCoolList::setItemText(int Index, std::string_view value) {
    itemAt(Index).Text = value;
    drawRow(Index);
    tellAccessible();
}

void ucCoolList::setItemIcon(int Index, std::int16_t value) {
    itemAt(Index).Icon = value;
    drawRow(Index);
}

void ucCoolList::setItemIconSelected(int Index, std::int16_t value) {
    itemAt(Index).IconSelected = value;
    drawRow(Index);
}

void ucCoolList::setItemSelected(int Index, bool value) {
    itemAt(Index).isSelected = value;
    drawRow(Index);
    tellAccessible();
}

std::string ucCoolList::accessibleItemText(int item) const {
    return isItem(item) ? itemAt(item).Text : std::string();
}

bool ucCoolList::isAccessibleItemSelected(int item) const {
    return isItem(item) && itemAt(item).isSelected;
}

void ucCoolList::selectAccessibleItem(int item) {
    if (!isItem(item) || !m_properties.Enabled) return;
    change([&] {
        itemAt(item).isSelected = true;
        moveTo(item);
        note(Click);
    });
}

Rect ucCoolList::accessibleItemRect(int item) const {
    return isItem(item) && isRowVisible(item) ? inImage(rowRect(item)) : Rect{};
}

}  // namespace mobrel
