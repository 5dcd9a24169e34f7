// SPDX-License-Identifier: MIT
// What rows look like.
#include <algorithm>

#include "controls/ucCoolList.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

void ucCoolList::repaint() {
    auto target = image();
    if (!target) return;
    paintBorder(*target);
    DeviceContext surface = target->part(surfaceRect());
    if (m_designName.empty()) {
        paintRows(surface);
    } else {
        paintName(surface);
    }
    showAll();
}

void ucCoolList::drawRow(int item) {
    auto target = image();
    if (!target || !m_designName.empty() || !isItem(item) || !isRowVisible(item)) return;
    DeviceContext surface = target->part(surfaceRect());
    paintRow(surface, item);
    showChange(inImage(rowRect(item)));
}

void ucCoolList::paintBorder(DeviceContext& image) {
    if (m_properties.BorderStyle == ListBorder::None) return;
    if (m_properties.Appearance == ListAppearance::ThreeD) {
        image.DrawEdge(bounds(), Edge::Sunken, lineWidth());
        return;
    }
    for (int ring = 0; ring < border(); ++ring) {
        image.FrameRect(shrunk(bounds(), ring), GetSysColor(SystemColor::WindowText));
    }
}

void ucCoolList::paintName(DeviceContext& surface) {
    const Rect whole = surface.bounds();
    surface.FillRect(whole, OleTranslateColor(m_properties.BackNormal));
    DrawTextA(surface, whole, m_designName, m_properties.Font, scale(),
              OleTranslateColor(m_properties.FontNormal), static_cast<unsigned>(m_properties.Alignment));
}

void ucCoolList::paintRows(DeviceContext& surface) {
    const int behind = std::min(firstRow() + m_visibleRows, ListCount());
    for (int item = firstRow(); item < behind; ++item) paintRow(surface, item);
    const int bottom = std::max(behind - firstRow(), 0) * m_rowHeight;
    surface.FillRect({0, bottom, surface.width(), surface.height()},
                     OleTranslateColor(m_properties.BackNormal));
}

/// The focus rectangle is a part of the current row: it inverts, so it comes with each fresh row once.
void ucCoolList::paintRow(DeviceContext& surface, int item) {
    const Item& record = itemAt(item);
    const bool isSelected = record.isSelected;
    const Rect place = rowRect(item);
    DeviceContext row = surface.part(place);
    const Rect whole{0, 0, place.width(), place.height()};

    if (isSelected) {
        paintBackground(row, whole);
    } else {
        row.FillRect(whole, OleTranslateColor(m_properties.BackNormal));
    }
    paintIcon(row, isSelected ? record.IconSelected : record.Icon);
    if (isSelected && m_properties.SelectModeStyle == ListLook::Tinted) {
        row.PatBlt(whole, OleTranslateColor(m_properties.BackSelected), PatternOperation::PatAnd);
    }
    paintText(row, textRect(whole), record.Text, isSelected);
    if (item == m_listIndex && m_properties.Focus && m_hasFocus) row.DrawFocusRect(whole, lineWidth());
}

/// Of a selected row.
void ucCoolList::paintBackground(DeviceContext& row, const Rect& rect) {
    const Color normal = OleTranslateColor(m_properties.BackNormal);
    const Color selected = OleTranslateColor(m_properties.BackSelected);
    const Color from = OleTranslateColor(m_properties.BackSelectedG1);
    const Color to = OleTranslateColor(m_properties.BackSelectedG2);
    switch (m_properties.SelectModeStyle) {
        case ListLook::Solid:
            row.FillRect(rect, selected);
            break;
        case ListLook::Tinted:
        case ListLook::Bold:
            row.FillRect(rect, normal);
            break;
        case ListLook::VerticalGradient:
            row.GradientFill(rect, from, to, GradientDirection::Vertical);
            break;
        case ListLook::HorizontalGradient:
            row.GradientFill(rect, from, to, GradientDirection::Horizontal);
            break;
        case ListLook::Box:
            row.FillRect(rect, normal);
            paintBox(row, rect);
            break;
        case ListLook::Picture:
            row.FillRect(rect, selected);
            if (m_properties.SelectionPicture) drawControlPicture(row, rect, *m_properties.SelectionPicture);
            break;
    }
}

void ucCoolList::paintBox(DeviceContext& row, const Rect& rect) {
    const int offset = scaled(m_properties.BoxOffset);
    const int corner = scaled(m_properties.BoxRadius);
    row.RoundRect(shrunk(rect, offset), corner, corner, OleTranslateColor(m_properties.BoxBorder),
                  OleTranslateColor(m_properties.BackSelected), lineWidth());
}

void ucCoolList::paintIcon(DeviceContext& row, int index) {
    if (!m_imageList) return;
    skipErrors([&] {
        const int offset = scaled(m_properties.ItemOffset);
        const int centred = div(row.height() - m_imageList->imageHeight(), 2);
        m_imageList->draw(row, offset, m_properties.WordWrap ? offset : centred, index,
                          ImageStyle::Transparent);
    });
}

void ucCoolList::paintText(DeviceContext& row, const Rect& rect, const std::string& text, bool isSelected) {
    if (rect.isEmpty()) return;
    TextFont font = m_properties.Font;
    if (isSelected && m_properties.SelectModeStyle == ListLook::Bold) font.bold = true;
    const Color color = OleTranslateColor(isSelected ? m_properties.FontSelected : m_properties.FontNormal);
    // kept: a row of one line stands at the left whatever Alignment says
    const unsigned flags = m_properties.WordWrap
                               ? static_cast<unsigned>(m_properties.Alignment) | DT_WORDBREAK
                               : DT_VCENTER | DT_SINGLELINE;
    DrawTextA(row, rect, text, font, scale(), color, flags);
}

}  // namespace mobrel
