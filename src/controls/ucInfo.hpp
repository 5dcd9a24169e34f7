// SPDX-License-Identifier: MIT
// The status bar of the main window: three texts, and a grip to size the window by.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>

#include "platform/base/Event.hpp"
#include "platform/control/Control.hpp"

namespace mobrel {

/// It takes the width it gets and asks for its height: 20 design pixels, or more for a large font. A written
/// text is painted at once.
class ucInfo : public Control {
 public:
    const std::string& TextFile() const noexcept { return m_texts[kFile]; }
    void setTextFile(std::string text) { setText(kFile, std::move(text)); }
    /// The room of the first text in device pixels, for which a path can be shortened. Not above 0 while
    /// there is none.
    int TextFileWidth() const noexcept { return m_textRects[kFile].width(); }

    const std::string& TextInfo() const noexcept { return m_texts[kInfo]; }
    void setTextInfo(std::string text) { setText(kInfo, std::move(text)); }

    const std::string& TextZoom() const noexcept { return m_texts[kZoom]; }
    void setTextZoom(std::string text) { setText(kZoom, std::move(text)); }

    /// Raised after a layout, when TextFileWidth is that of the new size.
    Event<> Resize;

    void pointerPressed(const PointerInput& input) override;
    void pointerMoved(const PointerInput& input) override;
    void appearanceChanged() override { layOut(); }

    AccessibleRole accessibleRole() const override { return AccessibleRole::StatusBar; }
    /// The texts that are not empty, with commas between them.
    std::string accessibleValue() const override;

 protected:
    void hostChanged() override { layOut(); }
    void sizeChanged() override { layOut(); }

 private:
    static constexpr std::size_t kFile = 0;
    static constexpr std::size_t kInfo = 1;
    static constexpr std::size_t kZoom = 2;
    static constexpr std::size_t kPanes = 3;

    void setText(std::size_t pane, std::string text);
    int fittingHeight() const;
    int paneWidth(int designed, const char* text) const;
    void layOut();
    void placePanes();
    void repaint();
    bool isOnGrip(const PointerInput& input) const;

    std::array<std::string, kPanes> m_texts;
    Rect m_grip;
    std::array<Rect, kPanes> m_panes;
    std::array<Rect, kPanes> m_textRects;
};

}  // namespace mobrel
