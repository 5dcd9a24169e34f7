// SPDX-License-Identifier: MIT
// A user's gestures on the real controls, from the window system's events on.
#include <gtest/gtest.h>

#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include "canvas/ucCanvas.hpp"
#include "controls/ucCoolList.hpp"
#include "controls/zenSlider.hpp"
#include "desktop/OwningControlWidget.hpp"

namespace mobrel {
namespace {

/// A canvas of 100 x 80 device pixels with a picture of 60 x 40 at zoom 1, which so stands at (20, 20).
class CanvasGestures : public testing::Test {
 protected:
    void SetUp() override {
        ASSERT_TRUE(canvas().DIB.Create(60, 40, 0x808080));
        m_widget.resize(100, 80);
        m_widget.show();
        canvas().Resize();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_widget));
    }

    ucCanvas& canvas() { return m_widget.owned(); }

    void drag(Qt::MouseButton button, QPoint from, QPoint to) {
        QTest::mousePress(&m_widget, button, {}, from);
        QTest::mouseMove(&m_widget, (from + to) / 2);
        QTest::mouseMove(&m_widget, to);
        QTest::mouseRelease(&m_widget, button, {}, to);
    }

    void turnWheel(QPoint place, int angle, Qt::KeyboardModifiers modifiers) {
        QWheelEvent event(place, m_widget.mapToGlobal(place), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&m_widget, &event);
    }

    OwningControlWidget<ucCanvas> m_widget;
};

TEST_F(CanvasGestures, AFrameIsDrawnAndCutOutByItsMenu) {
    canvas().setWorkMode(ucCanvas::kCropMode);
    drag(Qt::LeftButton, {30, 25}, {55, 45});
    QTimer chooser;
    QObject::connect(&chooser, &QTimer::timeout, [&] {
        auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        chooser.stop();
        QTest::mouseClick(menu, Qt::LeftButton, {},
                          menu->actionGeometry(menu->actions().constFirst()).center());
    });
    chooser.start(5);
    QTest::mouseClick(&m_widget, Qt::RightButton, {}, {40, 35});
    EXPECT_EQ(std::pair(canvas().DIB.Width(), canvas().DIB.Height()), std::pair(25, 20));
}

TEST_F(CanvasGestures, TheHandMovesAnEnlargedPicture) {
    canvas().setZoom(5);
    canvas().Resize();
    canvas().SetScrollInfo(100, 60);
    drag(Qt::LeftButton, {50, 40}, {30, 50});
    const ucCanvas::ScrollInfo scroll = canvas().GetScrollInfo();
    EXPECT_EQ(std::pair(scroll.lHPos, scroll.lVPos), std::pair(120, 50));
}

TEST_F(CanvasGestures, TheWheelZoomsAboutThePointer) {
    const auto pixelUnderPointer = [&] {
        const ucCanvas::ScrollInfo scroll = canvas().GetScrollInfo();
        return std::pair((50 + scroll.lHPos) / canvas().Zoom(), (40 + scroll.lVPos) / canvas().Zoom());
    };
    for (int i = 0; i < 4; ++i) turnWheel({50, 40}, 120, Qt::ControlModifier);
    EXPECT_EQ(canvas().Zoom(), 5);
    const auto before = pixelUnderPointer();
    for (int i = 0; i < 16; ++i)
        turnWheel({50, 40}, 30, Qt::ControlModifier);  // a touchpad's parts of a notch
    EXPECT_EQ(canvas().Zoom(), 9);
    EXPECT_EQ(pixelUnderPointer(), before);
}

TEST(SliderGestures, DragAndKeys) {
    OwningControlWidget<zenSlider> widget;
    zenSlider& slider = widget.owned();
    slider.setOrientation(SliderOrientation::Horizontal);
    widget.resize(116, 16);  // the knob has 16
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    std::vector<std::int32_t> values;
    slider.ValueChanged.connect([&] { values.push_back(slider.Value()); });
    QTest::mousePress(&widget, Qt::LeftButton, {}, {8, 8});
    for (const int x : {30, 58, 300}) QTest::mouseMove(&widget, {x, 8});
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {300, 8});
    for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Home, Qt::Key_Right, Qt::Key_Up})
        QTest::keyClick(&widget, key);
    EXPECT_EQ(values, (std::vector<std::int32_t>{2, 5, 10, 9, 0, 1, 2}));
}

TEST(ListGestures, ADragPaintsTheStateOfItsFirstRow) {
    OwningControlWidget<ucCoolList> widget;
    ucCoolList& list = widget.owned();
    ucCoolListProperties properties;
    properties.SelectMode = ListSelectMode::Multiple;
    properties.BorderStyle = ListBorder::None;
    properties.ItemHeightAuto = false;
    properties.ItemHeight = 30;
    list.setProperties(properties);
    widget.resize(100, 150);
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    for (const char* text : {"a", "b", "c", "d"}) list.AddItem(text, 0, 0);
    QTest::mousePress(&widget, Qt::LeftButton, {}, {50, 15});
    for (const int y : {45, 75}) QTest::mouseMove(&widget, {50, y});
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, {50, 75});
    EXPECT_EQ(
        std::tuple(list.ItemSelected(0), list.ItemSelected(1), list.ItemSelected(2), list.ItemSelected(3)),
        std::tuple(true, true, true, false));
    QTest::keyClick(&widget, Qt::Key_End);
    QTest::keyClick(&widget, Qt::Key_Space);
    EXPECT_TRUE(list.ItemSelected(3));
}

}  // namespace
}  // namespace mobrel
