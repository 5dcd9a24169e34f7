// SPDX-License-Identifier: MIT
// The list control: rows with an icon and a text, in seven looks.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "canvas/CLongScroll.hpp"
#include "controls/ucCoolListImages.hpp"
#include "controls/ucCoolListProperties.hpp"
#include "platform/control/Control.hpp"
#include "platform/control/WheelTurns.hpp"

namespace mobrel {

/// Never shows a part of a row: it asks its host for a height of whole rows. Items count from 0, icons from
/// 1. A row is drawn alone wherever possible. Events are raised when the list is in order again, so that
/// their handlers may change it, and destroy it.
class ucCoolList : public Control {
 public:
    ucCoolList();

    Event<> Click;
    Event<> DblClick;
    /// Key code and held keys.
    Event<std::int16_t, std::int16_t> KeyDown;
    Event<char32_t> KeyPress;
    Event<std::int16_t, std::int16_t> KeyUp;
    Event<> ListIndexChange;
    /// Button, held keys, and the place in device pixels from the left top corner of the rows.
    Event<std::int16_t, std::int16_t, float, float> MouseDown;
    Event<std::int16_t, std::int16_t, float, float> MouseMove;
    Event<std::int16_t, std::int16_t, float, float> MouseUp;
    Event<> Scroll;
    Event<> TopIndexChange;

    /// The icons; null for none.
    void SetImageList(std::shared_ptr<const ImageList> Source);

    void AddItem(std::string_view Text, std::int16_t Icon = 0, std::int16_t IconSelected = 0);
    /// Puts an item before another or, at ListCount, behind the last. Error 381 on an empty list and for
    /// an Index out of 0 to ListCount.
    void InsertItem(int Index, std::string_view Text, std::int16_t Icon = 0, std::int16_t IconSelected = 0);
    /// Changes an item but for a text that is not given or is the number 0, and for negative icons. Errors
    /// as InsertItem: the spare record behind the last item may be changed too.
    void ModifyItem(int Index, std::optional<std::string_view> Text = std::nullopt, std::int16_t Icon = -1,
                    std::int16_t IconSelected = -1);
    /// Error 381 when there is no such item.
    void RemoveItem(int Index);
    void Clear();

    /// The first item from Start on, the spare record included, that has the text at its very start, or,
    /// without Exact, anywhere but there; letter case does not count. -1 when there is none. Error 381 on an
    /// empty list and for a negative Start.
    int FindFirst(std::string_view Find, int Start = 0, bool Exact = false) const;

    /// Sorts by the bytes of the texts, as OrderType says. Nothing is selected afterwards.
    void Order();

    /// Opens an editor over the item at ListIndex; nothing when there is none.
    void StartEdit();
    /// Ends an open edit: with Save as Enter does, otherwise by hiding the editor.
    void EndEdit(bool Save);

    int ListCount() const noexcept { return static_cast<int>(m_items.size()) - 1; }
    int ListIndex() const noexcept { return m_listIndex; }
    /// -1 is no item. Selects the item in single selection and scrolls it into view. Error 380 when there is
    /// no such item.
    void setListIndex(int value);
    int SelectedCount() const;

    /// The first visible item; -1 after Clear.
    int TopIndex() const noexcept { return m_topIndex; }
    /// Error 380 below 0 and above ListCount minus the visible rows.
    void setTopIndex(int value);

    /// Error 381 when there is no such item.
    const std::string& ItemText(int Index) const { return itemAt(Index).Text; }
    std::int16_t ItemIcon(int Index) const { return itemAt(Index).Icon; }
    std::int16_t ItemIconSelected(int Index) const { return itemAt(Index).IconSelected; }
    bool ItemSelected(int Index) const { return itemAt(Index).isSelected; }
    void setItemText(int Index, std::string_view value);
    void setItemIcon(int Index, std::int16_t value);
    void setItemIconSelected(int Index, std::int16_t value);
    void setItemSelected(int Index, bool value);

    /// All design-time properties; each one also stands alone below.
    const ucCoolListProperties& properties() const noexcept { return m_properties; }
    void setProperties(ucCoolListProperties value);
    /// While it is not empty, the list shows this name in place of rows, as on a form that is being designed.
    void setDesignName(std::string name);

    ListAlignment Alignment() const noexcept { return m_properties.Alignment; }
    void setAlignment(ListAlignment value) { changeLook(m_properties.Alignment, value); }
    ListAppearance Appearance() const noexcept { return m_properties.Appearance; }
    void setAppearance(ListAppearance value) { changeGeometry(m_properties.Appearance, value); }
    std::uint32_t BackNormal() const noexcept { return m_properties.BackNormal; }
    void setBackNormal(std::uint32_t value) { changeLook(m_properties.BackNormal, value); }
    std::uint32_t BackSelected() const noexcept { return m_properties.BackSelected; }
    void setBackSelected(std::uint32_t value) { changeLook(m_properties.BackSelected, value); }
    std::uint32_t BackSelectedG1() const noexcept { return m_properties.BackSelectedG1; }
    void setBackSelectedG1(std::uint32_t value) { changeLook(m_properties.BackSelectedG1, value); }
    std::uint32_t BackSelectedG2() const noexcept { return m_properties.BackSelectedG2; }
    void setBackSelectedG2(std::uint32_t value) { changeLook(m_properties.BackSelectedG2, value); }
    ListBorder BorderStyle() const noexcept { return m_properties.BorderStyle; }
    void setBorderStyle(ListBorder value) { changeGeometry(m_properties.BorderStyle, value); }
    std::uint32_t BoxBorder() const noexcept { return m_properties.BoxBorder; }
    void setBoxBorder(std::uint32_t value) { changeLook(m_properties.BoxBorder, value); }
    std::int16_t BoxOffset() const noexcept { return m_properties.BoxOffset; }
    void setBoxOffset(std::int16_t value) { changeLook(m_properties.BoxOffset, value); }
    std::int16_t BoxRadius() const noexcept { return m_properties.BoxRadius; }
    void setBoxRadius(std::int16_t value) { changeLook(m_properties.BoxRadius, value); }
    bool Enabled() const noexcept { return m_properties.Enabled; }
    void setEnabled(bool value);
    bool Focus() const noexcept { return m_properties.Focus; }
    void setFocus(bool value) { changeLook(m_properties.Focus, value); }
    const TextFont& Font() const noexcept { return m_properties.Font; }
    void setFont(TextFont value) { changeGeometry(m_properties.Font, std::move(value)); }
    std::uint32_t FontNormal() const noexcept { return m_properties.FontNormal; }
    void setFontNormal(std::uint32_t value) { changeLook(m_properties.FontNormal, value); }
    std::uint32_t FontSelected() const noexcept { return m_properties.FontSelected; }
    void setFontSelected(std::uint32_t value) { changeLook(m_properties.FontSelected, value); }
    bool HoverSelection() const noexcept { return m_properties.HoverSelection; }
    void setHoverSelection(bool value) { m_properties.HoverSelection = value; }
    /// At first the height of a line of the font.
    std::int16_t ItemHeight() const;
    void setItemHeight(std::int16_t value) { changeGeometry(m_properties.ItemHeight, value); }
    bool ItemHeightAuto() const noexcept { return m_properties.ItemHeightAuto; }
    void setItemHeightAuto(bool value) { changeGeometry(m_properties.ItemHeightAuto, value); }
    std::int16_t ItemOffset() const noexcept { return m_properties.ItemOffset; }
    void setItemOffset(std::int16_t value) { changeLook(m_properties.ItemOffset, value); }
    std::int16_t ItemTextLeft() const noexcept { return m_properties.ItemTextLeft; }
    void setItemTextLeft(std::int16_t value) { changeLook(m_properties.ItemTextLeft, value); }
    const std::shared_ptr<const ControlPicture>& MouseIcon() const noexcept { return m_properties.MouseIcon; }
    void setMouseIcon(std::shared_ptr<const ControlPicture> value) {
        m_properties.MouseIcon = std::move(value);
    }
    std::int16_t MousePointer() const noexcept { return m_properties.MousePointer; }
    void setMousePointer(std::int16_t value);
    ListOrder OrderType() const noexcept { return m_properties.OrderType; }
    void setOrderType(ListOrder value) { m_properties.OrderType = value; }
    const std::shared_ptr<const ControlPicture>& SelectionPicture() const noexcept {
        return m_properties.SelectionPicture;
    }
    void setSelectionPicture(std::shared_ptr<const ControlPicture> value) {
        changeLook(m_properties.SelectionPicture, std::move(value));
    }
    ListSelectMode SelectMode() const noexcept { return m_properties.SelectMode; }
    void setSelectMode(ListSelectMode value) { m_properties.SelectMode = value; }
    ListLook SelectModeStyle() const noexcept { return m_properties.SelectModeStyle; }
    void setSelectModeStyle(ListLook value) { changeLook(m_properties.SelectModeStyle, value); }
    bool WordWrap() const noexcept { return m_properties.WordWrap; }
    void setWordWrap(bool value) { changeLook(m_properties.WordWrap, value); }

    void pointerPressed(const PointerInput& input) override;
    void pointerMoved(const PointerInput& input) override;
    void pointerReleased(const PointerInput& input) override;
    void pointerDoubleClicked(const PointerInput& input) override;
    void wheelTurned(const WheelInput& input) override;
    bool keyPressed(const KeyInput& input) override;
    void keyReleased(const KeyInput& input) override;
    void keyTyped(char32_t character) override;
    void focusChanged(bool hasFocus) override;
    void appearanceChanged() override { relayout(); }

    AccessibleRole accessibleRole() const override { return AccessibleRole::List; }
    std::string accessibleValue() const override { return accessibleItemText(m_listIndex); }
    int accessibleItemCount() const override { return ListCount(); }
    std::string accessibleItemText(int item) const override;
    bool isAccessibleItemSelected(int item) const override;
    /// As a click on the item, but that it never takes a selection back.
    void selectAccessibleItem(int item) override;
    Rect accessibleItemRect(int item) const override;

 protected:
    void hostChanged() override;
    void sizeChanged() override { relayout(); }

 private:
    struct Item {
        std::string Text;
        std::int16_t Icon = 0;
        std::int16_t IconSelected = 0;
        bool isSelected = false;
    };

    // Items and selection.
    bool isItem(int index) const noexcept { return index >= 0 && index < ListCount(); }
    std::size_t placeOf(int index) const;
    const Item& itemAt(int index) const { return m_items[placeOf(index)]; }
    Item& itemAt(int index) { return m_items[placeOf(index)]; }
    void checkPlace(int index) const;
    bool isMultiple() const noexcept { return m_properties.SelectMode == ListSelectMode::Multiple; }
    void moveTo(int index);
    void sortItems();

    /// Runs a change of the list and then, unless it is a part of another change, raises the events that were
    /// noted.
    template <typename Change>
    void change(Change&& apply) {
        const bool isWhole = !std::exchange(m_isChanging, true);
        apply();
        if (!isWhole) return;
        m_isChanging = false;
        raiseNoted();
    }
    template <typename... Args>
    void note(const Event<Args...>& event, std::type_identity_t<Args>... args) {
        m_noted.emplace_back([&event, args...] { event.raise(args...); });
    }
    void raiseNoted();

    // Places, in device pixels: of the surface, the rows' part of the image, unless told otherwise.
    int border() const;
    Rect surfaceRect() const;  // of the image
    int surfaceWidth() const { return surfaceRect().width(); }
    int surfaceHeight() const { return surfaceRect().height(); }
    int firstRow() const noexcept { return m_topIndex < 0 ? 0 : m_topIndex; }
    bool isRowVisible(int item) const noexcept;
    Rect rowRect(int item) const;
    Rect textRect(const Rect& row) const;
    Rect inImage(const Rect& rect) const;
    std::optional<int> visibleRowAt(float y) const;
    std::optional<int> itemUnder(float y) const;

    void relayout() {
        change([this] { layout(); });
    }
    void layout();
    void measureRows();
    void snapHeight();
    void layoutScrollBar();
    void placeScrollBar();
    void scrollTo(int top);
    void bringIntoView();
    void scrolled();

    // Drawing. What is painted is not yet shown.
    void repaint();
    void drawRow(int item);
    void paintBorder(DeviceContext& image);
    void paintName(DeviceContext& surface);
    void paintRows(DeviceContext& surface);
    void paintRow(DeviceContext& surface, int item);
    void paintBackground(DeviceContext& row, const Rect& rect);
    void paintBox(DeviceContext& row, const Rect& rect);
    void paintIcon(DeviceContext& row, int index);
    void paintText(DeviceContext& row, const Rect& rect, const std::string& text, bool isSelected);

    // Input.
    PointerInput onSurface(const PointerInput& input) const;
    bool isOnSurface(const PointerInput& input) const;
    void pressRow(int item, float y);
    void dragTo(float y);
    bool isOutside(float y) const;
    bool isDraggedOutside() const;
    void autoScroll();
    double stepTime() const;
    void stepOutwards();
    bool obeyKey(std::int16_t keyCode);
    void showCursor();

    // The editor.
    Rect editPlace() const;
    void openEdit();
    void connectEditBox();
    void editKeyPressed(std::int16_t keyCode);
    void closeEdit();

    template <typename Value>
    void changeLook(Value& property, Value value) {
        property = std::move(value);
        repaint();
    }
    template <typename Value>
    void changeGeometry(Value& property, Value value) {
        property = std::move(value);
        relayout();
    }

    ucCoolListProperties m_properties;
    std::string m_designName;
    std::shared_ptr<const ImageList> m_imageList;
    /// One spare record stands behind the last item.
    std::vector<Item> m_items = std::vector<Item>(1);
    int m_listIndex = -1;
    int m_topIndex = 0;
    /// The next ListIndex is scrolled into view.
    bool m_scrollsIntoView = true;
    bool m_isChanging = false;
    std::vector<std::function<void()>> m_noted;

    CLongScroll m_scroll;
    bool m_hasScrollBar = false;
    int m_rowHeight = 0;
    int m_visibleRows = 0;

    bool m_hasFocus = false;
    bool m_isMouseDown = false;
    bool m_isAutoScrolling = false;
    float m_mouseY = 0;
    float m_lastMouseY = -1;
    /// The state that a drag gives to the rows it crosses.
    bool m_dragValue = true;
    WheelTurns m_turns;

    bool m_isEditing = false;
    /// Of the host's editor.
    std::optional<Listener> m_editListener;
};

}  // namespace mobrel
