// SPDX-License-Identifier: MIT
// The scroll bar of the user's style, under the platform's rules.
#pragma once

#include <QScrollBar>

#include "platform/control/ControlHost.hpp"

namespace mobrel {

/// Vertical, a child of the widget whose control uses it. Min may be above Max: then the way down counts
/// down. A value outside the range goes to the nearer end.
class PlatformScrollBar final : public ScrollBar {
 public:
    explicit PlatformScrollBar(QWidget& parent);

    std::int16_t Min() const override { return m_min; }
    std::int16_t Max() const override { return m_max; }
    std::int16_t SmallChange() const override { return m_smallChange; }
    std::int16_t LargeChange() const override { return m_largeChange; }
    std::int16_t Value() const override { return m_value; }
    void setMin(std::int16_t value) override;
    void setMax(std::int16_t value) override;
    void setSmallChange(std::int16_t value) override;
    void setLargeChange(std::int16_t value) override;
    void setValue(std::int16_t value) override;

    bool Visible() const override { return !m_bar.isHidden(); }
    void setVisible(bool visible) override { m_bar.setVisible(visible); }
    int thickness() const override;
    void place(const Rect& rect) override;

 private:
    void setRange(std::int16_t least, std::int16_t greatest);
    void barMoved(int position);

    std::int16_t m_min = 0;
    std::int16_t m_max = 32767;
    std::int16_t m_smallChange = 1;
    std::int16_t m_largeChange = 1;
    std::int16_t m_value = 0;
    QScrollBar m_bar;  // its position is the distance of Value from Min
};

}  // namespace mobrel
