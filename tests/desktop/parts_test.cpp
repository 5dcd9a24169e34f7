// SPDX-License-Identifier: MIT
// The parts of a window that a control works with: scroll bar and editor.
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>

#include "desktop/ControlWidget.hpp"
#include "desktop/SampleControl.hpp"

namespace mobrel {
namespace {

class Parts : public testing::Test {
 protected:
    void SetUp() override {
        m_widget.setGeometry(0, 0, 120, 200);
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    ScrollBar& bar() { return m_control.host()->verticalScrollBar(); }
    EditBox& box() { return m_control.host()->editBox(); }

    test::SampleControl m_control;
    QWidget m_window;
    ControlWidget m_widget{m_control, &m_window};
};

class ScrollBarParts : public Parts {
 protected:
    void SetUp() override {
        Parts::SetUp();
        bar().Change.connect([this] { m_values.push_back(bar().Value()); });
        bar().place({100, 0, 120, 200});
        bar().setVisible(true);
        m_bar = m_widget.findChild<QScrollBar*>();
    }

    void click(QStyle::SubControl part) {
        QStyleOptionSlider option;
        option.initFrom(m_bar);
        option.subControls = QStyle::SC_All;
        option.orientation = Qt::Vertical;
        option.minimum = m_bar->minimum();
        option.maximum = m_bar->maximum();
        option.sliderPosition = option.sliderValue = m_bar->value();
        option.singleStep = m_bar->singleStep();
        option.pageStep = m_bar->pageStep();
        const QRect place = m_bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, m_bar);
        QTest::mouseClick(m_bar, Qt::LeftButton, {}, place.center());
    }

    QScrollBar* m_bar = nullptr;
    std::vector<int> m_values;
};

TEST_F(ScrollBarParts, UserMovesTheValue) {
    bar().setMax(1000);
    bar().setSmallChange(3);
    bar().setLargeChange(70);
    bar().setValue(500);
    click(QStyle::SC_ScrollBarAddLine);
    click(QStyle::SC_ScrollBarSubLine);
    click(QStyle::SC_ScrollBarSubPage);
    click(QStyle::SC_ScrollBarAddPage);
    m_bar->setSliderPosition(17);  // as a drag does
    EXPECT_EQ(m_values, std::vector<int>({500, 503, 500, 430, 500, 17}));
}

TEST_F(ScrollBarParts, ReversedRange) {
    bar().setMin(100);
    bar().setMax(-100);
    bar().setSmallChange(5);
    bar().setValue(20);
    m_values.clear();
    click(QStyle::SC_ScrollBarAddLine);  // downwards, towards Max
    m_bar->setSliderPosition(200);
    EXPECT_EQ(m_values, std::vector<int>({15, -100}));
}

TEST_F(ScrollBarParts, CodeMovesTheBar) {
    bar().setMin(-32768);
    bar().setMax(32767);
    for (const int value : {-32768, 0, 32767}) {
        bar().setValue(static_cast<std::int16_t>(value));
        EXPECT_EQ(m_bar->value(), value + 32768);
    }
    m_values.clear();
    bar().setValue(32767);  // no change
    bar().setMax(50);       // takes the value with it
    bar().setValue(400);    // ends at the limit
    EXPECT_EQ(m_values, std::vector<int>({50}));
    EXPECT_EQ(bar().Value(), 50);
}

TEST_F(ScrollBarParts, HandlersMaySetTheBar) {
    bar().setMax(100);
    bool isFirst = true;
    bar().Change.connect([&] {
        if (std::exchange(isFirst, false)) bar().setValue(99);
    });
    click(QStyle::SC_ScrollBarAddLine);
    EXPECT_EQ(m_bar->value(), 99);
    EXPECT_EQ(bar().Value(), 99);
}

TEST_F(ScrollBarParts, StandsAsThickAsTheStyleHasIt) {
    EXPECT_EQ(bar().thickness(), m_bar->sizeHint().width() * m_widget.devicePixelRatio());
    EXPECT_EQ(m_bar->geometry(), QRect(100, 0, 20, 200));
    EXPECT_TRUE(bar().Visible());
    bar().setVisible(false);
    EXPECT_FALSE(m_bar->isVisible());
}

class EditParts : public Parts {
 protected:
    void SetUp() override {
        Parts::SetUp();
        m_other = new QLineEdit(&m_window);
        m_other->setGeometry(0, 210, 50, 20);
        m_other->show();
        m_widget.setFocus();
        box().KeyDown.connect([this](std::int16_t key) {
            m_heard.push_back("key " + std::to_string(key) + " " + box().Text());
            box().close();
        });
        box().LostFocus.connect([this] { m_heard.emplace_back("lost"); });
    }

    void open(bool wrapsLines) {
        EditBox::Look look;
        look.place = {10, 20, 90, 40};
        look.background = 0x112233;
        look.text = 0x00FF00;
        look.wrapsLines = wrapsLines;
        look.alignment = DT_RIGHT;
        box().open("old", look);
        m_editor = QApplication::focusWidget();
    }

    QLineEdit* m_other = nullptr;
    QWidget* m_editor = nullptr;
    std::vector<std::string> m_heard;
};

TEST_F(EditParts, TakesTheKeyboardWithItsTextSelected) {
    for (const bool wraps : {false, true}) {
        open(wraps);
        ASSERT_NE(m_editor, &m_widget);
        EXPECT_EQ(m_editor->geometry(), QRect(10, 20, 80, 20));
        EXPECT_EQ(m_editor->palette().color(QPalette::Base), QColor(0x33, 0x22, 0x11));
        QTest::keyClicks(m_editor, "new");
        EXPECT_EQ(box().Text(), "new");
        m_control.takeHeard();
        box().close();
        EXPECT_EQ(box().Text(), "new");
        EXPECT_TRUE(m_widget.hasFocus());
        EXPECT_EQ(m_control.takeHeard(), std::vector<std::string>{"focus"});
    }
}

TEST_F(EditParts, EnterAndEscapeAreTold) {
    for (const bool wraps : {false, true}) {
        for (const auto& [key, number] : {std::pair(Qt::Key_Return, "13"), std::pair(Qt::Key_Enter, "13"),
                                          std::pair(Qt::Key_Escape, "27")}) {
            open(wraps);
            m_heard.clear();
            m_control.takeHeard();
            QTest::keyClicks(m_editor, "x");
            QTest::keyClick(m_editor, Qt::Key_PageDown);
            EXPECT_EQ(m_control.takeHeard(), std::vector<std::string>());
            QTest::keyClick(m_editor, key);
            EXPECT_EQ(m_heard, std::vector<std::string>({std::string("key ") + number + " x", "lost"}));
            EXPECT_TRUE(m_widget.hasFocus());
            EXPECT_EQ(m_control.takeHeard().at(0), "focus");
        }
    }
}

TEST_F(EditParts, LossOfTheKeyboardIsToldOnce) {
    box().LostFocus.connect([this] { box().close(); });
    for (const bool wraps : {false, true}) {
        open(wraps);
        m_heard.clear();
        m_other->setFocus();
        EXPECT_EQ(m_heard, std::vector<std::string>{"lost"});
        EXPECT_TRUE(m_other->hasFocus());
        box().close();  // nothing is open
        EXPECT_EQ(m_heard.size(), 1U);
    }
}

TEST_F(EditParts, ItsMenuIsNoLoss) {
    open(false);
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QApplication::sendEvent(m_editor, &menu);
    EXPECT_EQ(m_heard, std::vector<std::string>());
    EXPECT_TRUE(m_editor->isVisible());
}

}  // namespace
}  // namespace mobrel
