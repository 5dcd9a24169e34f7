// SPDX-License-Identifier: MIT
// Where rows and scroll bar stand, and scrolling.
#include <algorithm>

#include "controls/ucCoolList.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

// Design pixels.
constexpr int kFlatBorder = 1;
constexpr int kSunkenBorder = 2;

}  // namespace

std::int16_t ucCoolList::ItemHeight() const {
    if (m_properties.ItemHeight > 0) return m_properties.ItemHeight;
    return static_cast<std::int16_t>(lineHeight(m_properties.Font, 1));
}

int ucCoolList::border() const {
    if (m_properties.BorderStyle == ListBorder::None) return 0;
    const bool isSunken = m_properties.Appearance == ListAppearance::ThreeD;
    return (isSunken ? kSunkenBorder : kFlatBorder) * lineWidth();
}

Rect ucCoolList::surfaceRect() const {
    const int edge = border();
    const int bar = m_hasScrollBar && host() != nullptr ? host()->verticalScrollBar().thickness() : 0;
    return {edge, edge, std::max(width() - edge - bar, edge), std::max(height() - edge, edge)};
}

bool ucCoolList::isRowVisible(int item) const noexcept {
    return item >= firstRow() && item - firstRow() < m_visibleRows;
}

Rect ucCoolList::rowRect(int item) const {
    const int top = (item - firstRow()) * m_rowHeight;
    return {0, top, surfaceWidth(), top + m_rowHeight};
}

Rect ucCoolList::textRect(const Rect& row) const {
    const int offset = scaled(m_properties.ItemOffset);
    return {row.left + scaled(m_properties.ItemTextLeft) + offset, row.top + offset, row.right - offset,
            row.bottom - offset};
}

Rect ucCoolList::inImage(const Rect& rect) const {
    const int edge = border();
    return moved(rect, edge, edge);
}

std::optional<int> ucCoolList::visibleRowAt(float y) const {
    if (y < 0 || y >= static_cast<float>(m_visibleRows * m_rowHeight)) return std::nullopt;
    return std::min(roundInt(y) / m_rowHeight, m_visibleRows - 1);
}

std::optional<int> ucCoolList::itemUnder(float y) const {
    const std::optional<int> row = visibleRowAt(y);
    return row && isItem(*row + firstRow()) ? std::optional(*row + firstRow()) : std::nullopt;
}

void ucCoolList::hostChanged() {
    m_isEditing = false;
    m_editListener.reset();
    m_isMouseDown = false;
    m_scroll.setClient(host() != nullptr ? &host()->verticalScrollBar() : nullptr);
    showCursor();
    relayout();
}

void ucCoolList::layout() {
    closeEdit();
    const bool hadRows = m_visibleRows > 0;
    measureRows();
    snapHeight();
    layoutScrollBar();
    placeScrollBar();
    if (!hadRows) bringIntoView();
    repaint();
}

void ucCoolList::measureRows() {
    const int line = std::max(lineHeight(m_properties.Font, scale()), 1);
    m_rowHeight = m_properties.ItemHeightAuto ? line : std::max(scaled(m_properties.ItemHeight), line);
    m_visibleRows = surfaceHeight() / m_rowHeight;
}

/// Asks for a height of whole rows, and goes on with the one it gets. A list too low for a row stays as it
/// is.
void ucCoolList::snapHeight() {
    const int wanted = m_visibleRows * m_rowHeight + 2 * border();
    if (m_visibleRows == 0 || wanted == height()) return;
    if (host() != nullptr) {
        requestSize(width(), wanted);
        measureRows();
    } else {
        setSize(width(), wanted, scale());
    }
}

/// Fits the scroll bar to the number of items and rows.
void ucCoolList::layoutScrollBar() {
    m_scroll.setLargeChange(std::max(m_visibleRows, 1));
    m_scroll.setMax(std::max(ListCount() - m_visibleRows, 0));
    const bool isNeeded = m_visibleRows > 0 && ListCount() > m_visibleRows;
    if (std::exchange(m_hasScrollBar, isNeeded) != isNeeded) {
        placeScrollBar();
        repaint();  // the rows are narrower or wider now
    }
    if (m_hasScrollBar) m_scroll.setValue(m_scroll.Value());  // the thumb follows the new range
}

void ucCoolList::placeScrollBar() {
    if (host() == nullptr) return;
    ScrollBar& bar = host()->verticalScrollBar();
    if (m_hasScrollBar) {
        const Rect surface = surfaceRect();
        bar.place({surface.right, surface.top, surface.right + bar.thickness(), surface.bottom});
    }
    if (bar.Visible() != m_hasScrollBar) bar.setVisible(m_hasScrollBar);
}

void ucCoolList::setTopIndex(int value) {
    // kept: a list with fewer items than rows refuses every value, 0 too
    if (value < 0 || value > ListCount() - m_visibleRows) {
        throw RuntimeError(ErrorNumber::InvalidPropertyValue);
    }
    change([&] { scrollTo(value); });
}

/// What setting TopIndex does.
void ucCoolList::scrollTo(int top) {
    closeEdit();
    m_topIndex = top;
    m_lastMouseY = -1;  // another row is under the pointer now
    m_scroll.setValue(top);
    repaint();
    note(TopIndexChange);
}

void ucCoolList::bringIntoView() {
    if (m_listIndex < 0 || m_visibleRows == 0) return;
    if (m_listIndex < m_topIndex) {
        scrollTo(m_listIndex);
    } else if (m_listIndex > m_topIndex + m_visibleRows - 1) {
        scrollTo(m_listIndex - m_visibleRows + 1);
    }
}

/// The scroll bar, or a change of its range, has moved the rows.
void ucCoolList::scrolled() {
    if (m_scroll.Value() == m_topIndex) return;
    m_topIndex = m_scroll.Value();
    m_lastMouseY = -1;
    closeEdit();
    repaint();
    note(Scroll);
    note(TopIndexChange);
}

}  // namespace mobrel
