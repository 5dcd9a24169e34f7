// SPDX-License-Identifier: MIT
// A widget shows its control pixel by pixel, and hands on what its user does. Runs at several display scales.
#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

#include "desktop/ControlWidget.hpp"
#include "desktop/SampleControl.hpp"

namespace mobrel {
namespace {

using Heard = std::vector<std::string>;

class Widget : public testing::Test {
 protected:
    /// The number of pixels that differ from the control's, which begin at a place of the picture.
    static int wrongPixels(const QImage& picture, const test::SampleControl& control, QPoint first) {
        int wrong = 0;
        for (int y = 0; y < control.height(); ++y) {
            for (int x = 0; x < control.width(); ++x) {
                const bool isInside = picture.rect().contains(first + QPoint(x, y));
                const auto seen = isInside ? picture.pixel(first + QPoint(x, y)) & 0xFFFFFF : ~0U;
                wrong += seen != test::SampleControl::pixel(x, y);
            }
        }
        return wrong;
    }

    double scale() const { return m_window.devicePixelRatioF(); }

    test::SampleControl m_control;
    QWidget m_window;
};

TEST_F(Widget, PixelsAreDevicePixels) {
    m_window.resize(80, 80);
    ControlWidget widget(m_control, &m_window);
    for (const QRect place :
         {QRect(0, 0, 40, 30), QRect(3, 5, 41, 27), QRect(7, 1, 33, 33), QRect(2, 2, 1, 1)}) {
        widget.setGeometry(place);
        const QImage picture = m_window.grab().toImage();
        EXPECT_EQ(m_control.width(), qFloor(place.width() * scale()));
        EXPECT_EQ(m_control.height(), qFloor(place.height() * scale()));
        EXPECT_EQ(m_control.scale(), scale());
        const QPoint first(qRound(place.x() * scale()), qRound(place.y() * scale()));
        EXPECT_EQ(wrongPixels(picture, m_control, first), 0) << place.x();
    }
}

TEST_F(Widget, ChangesAreShownAtOnce) {
    ControlWidget widget(m_control, &m_window);
    widget.setGeometry(3, 5, 41, 27);
    m_window.resize(60, 50);
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
    // What the user sees is what the window's paint events painted.
    struct Painted : QObject {
        QRegion region;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) region += static_cast<QPaintEvent*>(event)->region();
            return false;
        }
    } painted;
    widget.installEventFilter(&painted);
    m_control.showChange({10, 8, 20, 12});
    const QRect expected(QPoint(qFloor(10 / scale()), qFloor(8 / scale())),
                         QPoint(qCeil(20 / scale()) - 1, qCeil(12 / scale()) - 1));
    EXPECT_TRUE(painted.region.boundingRect().contains(expected));
    EXPECT_TRUE(expected.adjusted(-1, -1, 1, 1).contains(painted.region.boundingRect()));
}

TEST_F(Widget, GivesTheSizeThatIsAskedFor) {
    m_control.wantedHeight = 33;
    ControlWidget widget(m_control, &m_window);
    EXPECT_EQ(m_control.height(), 33);
    EXPECT_EQ(widget.sizeHint().height(), qCeil(33 / scale()));
    widget.resize(70, 90);
    m_window.grab();
    EXPECT_EQ(m_control.width(), qFloor(70 * scale()));
    EXPECT_EQ(m_control.height(), 33);
    EXPECT_EQ(widget.height(), qCeil(33 / scale()));

    test::SampleControl control;
    QWidget other;
    auto* const layout = new QHBoxLayout(&other);
    control.wantedHeight = 33;
    auto* const laidOut = new ControlWidget(control);
    laidOut->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    layout->addWidget(laidOut);
    other.resize(200, 200);
    const QImage picture = other.grab().toImage();
    EXPECT_EQ(control.height(), 33);
    EXPECT_EQ(laidOut->height(), qCeil(33 / scale()));
    EXPECT_LT(control.sizes, 10);
    // what a broken scale leaves over is the window's colour
    const QPoint below = ((laidOut->geometry().bottomLeft() + QPointF(0, 1)) * scale()).toPoint();
    EXPECT_EQ(picture.pixelColor(below + QPoint(5, 1)), other.palette().color(QPalette::Window));
}

TEST_F(Widget, APictureOfNoSizeIsTheWindowsColour) {
    ControlWidget widget(m_control);
    widget.resize(20, 20);
    widget.show();
    m_control.setSize(0, 0, scale());
    EXPECT_EQ(widget.grab().toImage().pixelColor(9, 9), m_window.palette().color(QPalette::Window));
}

TEST_F(Widget, LetsGoOfItsControl) {
    {
        const ControlWidget widget(m_control);
        EXPECT_NE(m_control.host(), nullptr);
    }
    EXPECT_EQ(m_control.host(), nullptr);
    m_control.showAll();
}

TEST_F(Widget, PointerInDevicePixels) {
    ControlWidget widget(m_control);
    widget.resize(100, 100);
    const auto at = [this](int x, int y) {
        return " at " + std::to_string(static_cast<int>(x * scale())) + "," +
               std::to_string(static_cast<int>(y * scale()));
    };
    QTest::mousePress(&widget, Qt::LeftButton, Qt::ShiftModifier, QPoint(10, 20));
    QTest::mousePress(&widget, Qt::RightButton, Qt::ControlModifier | Qt::AltModifier, QPoint(10, 20));
    QTest::mouseMove(&widget, QPoint(-4, 200));
    QTest::mouseRelease(&widget, Qt::RightButton, {}, QPoint(-4, 200));
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, QPoint(-4, 200));
    QTest::mouseDClick(&widget, Qt::MiddleButton, {}, QPoint(1, 2));
    QTest::mousePress(&widget, Qt::BackButton, {}, QPoint(1, 2));  // a button without a number
    EXPECT_EQ(m_control.takeHeard(),
              Heard({"press 1 shift 1" + at(10, 20), "press 2 shift 6" + at(10, 20),
                     "move 3 shift 0" + at(-4, 200), "release 2 shift 0" + at(-4, 200),
                     "release 1 shift 0" + at(-4, 200), "double 4 shift 0" + at(1, 2)}));
}

TEST_F(Widget, ReleasesWhatIsHeldWhenItIsHidden) {
    ControlWidget widget(m_control);
    widget.show();
    QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(4, 4));
    m_control.takeHeard();
    widget.hide();
    const Heard heard = m_control.takeHeard();
    EXPECT_EQ(std::count_if(heard.begin(), heard.end(),
                            [](const std::string& text) { return text.starts_with("release 1 "); }),
              1);
    widget.show();
    widget.hide();
    for (const std::string& text : m_control.takeHeard()) EXPECT_FALSE(text.starts_with("release"));
}

TEST_F(Widget, Wheel) {
    struct Case {
        QPoint pixels;
        QPoint angle;
        Qt::KeyboardModifiers modifiers;
        std::string heard;
    };
    const Case cases[] = {
        {{}, {0, 120}, {}, "wheel 0 120 shift 0"},
        {{}, {0, -240}, Qt::ControlModifier, "wheel 0 -240 shift 2"},
        {{}, {30, 0}, Qt::ShiftModifier, "wheel 30 0 shift 1"},
        {{-3, 5}, {-8, 15}, {}, "wheel -8 15 shift 0"},  // a touchpad that tells both
        {{-4, 48}, {}, {}, "wheel -10 120 shift 0"},
    };
    ControlWidget widget(m_control);
    for (const Case& c : cases) {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), c.pixels, c.angle, Qt::NoButton, c.modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        EXPECT_EQ(m_control.takeHeard(), Heard{c.heard});
    }
}

TEST_F(Widget, Keys) {
    struct Case {
        int key;
        Qt::KeyboardModifiers modifiers;
        QString typed;
        Heard heard;
    };
    const Case cases[] = {
        {Qt::Key_Left, {}, "", {"key 37 shift 0"}},
        {Qt::Key_Down, Qt::KeypadModifier, "", {"key 40 shift 0"}},
        {Qt::Key_PageUp, Qt::ControlModifier, "", {"key 33 shift 2"}},
        {Qt::Key_End, Qt::ShiftModifier | Qt::AltModifier, "", {"key 35 shift 5"}},
        {Qt::Key_Return, {}, "\r", {"key 13 shift 0", "typed 13"}},
        {Qt::Key_Enter, Qt::KeypadModifier, "\r", {"key 13 shift 0", "typed 13"}},
        {Qt::Key_Space, {}, " ", {"key 32 shift 0", "typed 32"}},
        {Qt::Key_Plus, Qt::KeypadModifier, "+", {"key 107 shift 0", "typed 43"}},
        {Qt::Key_Minus, Qt::KeypadModifier, "-", {"key 109 shift 0", "typed 45"}},
        {Qt::Key_Plus, {}, "+", {"key 187 shift 0", "typed 43"}},
        {Qt::Key_7, {}, "7", {"key 55 shift 0", "typed 55"}},
        {Qt::Key_7, Qt::KeypadModifier, "7", {"key 103 shift 0", "typed 55"}},
        {Qt::Key_Q, Qt::ShiftModifier, "Q", {"key 81 shift 1", "typed 81"}},
        {Qt::Key_F24, {}, "", {"key 135 shift 0"}},
        {Qt::Key_Adiaeresis, {}, "ä", {"typed 228"}},  // a key without a code
        {Qt::Key_unknown, {}, QString::fromUtf8("\xF0\x9F\x8E\xA8"), {"typed 127912"}},
    };
    ControlWidget widget(m_control);
    for (const bool takes : {false, true}) {
        for (const Case& c : cases) {
            m_control.takesKeys = takes;
            QKeyEvent event(QEvent::KeyPress, c.key, c.modifiers, c.typed);
            QApplication::sendEvent(&widget, &event);
            EXPECT_EQ(m_control.takeHeard(), c.heard);
            const bool isKey = c.heard.front().starts_with("key");
            EXPECT_EQ(event.isAccepted(), takes && isKey) << c.heard.front();
        }
    }
    QKeyEvent repeated(QEvent::KeyRelease, Qt::Key_Up, {}, "", true);
    QApplication::sendEvent(&widget, &repeated);
    QKeyEvent released(QEvent::KeyRelease, Qt::Key_Up, {});
    QApplication::sendEvent(&widget, &released);
    EXPECT_EQ(m_control.takeHeard(), Heard{"key up 38"});
}

TEST_F(Widget, FocusByClickWhereKeysMeanSomething) {
    ControlWidget list(m_control, &m_window);
    test::SampleControl progress;
    progress.role = AccessibleRole::ProgressBar;
    ControlWidget bar(progress, &m_window);
    bar.move(0, 50);
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    m_window.setFocus();
    m_control.takeHeard();
    QTest::mouseClick(&bar, Qt::LeftButton);
    EXPECT_FALSE(bar.hasFocus());
    QTest::mousePress(&list, Qt::LeftButton);
    Heard heard = m_control.takeHeard();
    EXPECT_TRUE(list.hasFocus());
    EXPECT_EQ(heard.at(0), "focus");
    EXPECT_TRUE(heard.at(1).starts_with("press"));
    list.clearFocus();
    EXPECT_EQ(m_control.takeHeard(), Heard{"no focus"});
}

TEST_F(Widget, MenuTellsTheChosenLine) {
    ControlWidget widget(m_control, &m_window);
    m_window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    widget.setFocus();
    m_control.takeHeard();
    const MenuLine lines[] = {{"Crop"}, {"Copy", false}, {"-"}, {"Remove frame"}};
    const auto choose = [&](const std::function<void(QMenu&)>& act) {
        QTimer timer;
        int left = 200;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu != nullptr) {
                act(*menu);
            } else if (--left == 0) {
                QApplication::exit();
            }
        });
        timer.start(5);
        return m_control.host()->popUp(lines, 10, 10);
    };
    EXPECT_EQ(choose([this](QMenu& menu) {
                  for (const std::string& heard : m_control.takeHeard()) EXPECT_NE(heard, "no focus");
                  EXPECT_TRUE(menu.actions().at(2)->isSeparator());
                  EXPECT_FALSE(menu.actions().at(1)->isEnabled());
                  QTest::mouseClick(&menu, Qt::LeftButton, {},
                                    menu.actionGeometry(menu.actions().at(3)).center());
              }),
              3);
    EXPECT_EQ(choose([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); }), -1);
}

TEST_F(Widget, CursorsFollowTheScale) {
    ControlWidget widget(m_control);
    for (const Cursor cursor : {Cursor::HandOver, Cursor::HandCatch, Cursor::PickColor}) {
        m_control.host()->setCursor(cursor);
        const QPixmap picture = widget.cursor().pixmap();
        EXPECT_EQ(picture.devicePixelRatio(), scale());
        EXPECT_EQ(picture.width(), qRound(24 * scale()));
        EXPECT_TRUE(QRect(0, 0, 24, 24).contains(widget.cursor().hotSpot()));
    }
    m_control.host()->setCursor(Cursor::SizeNorthWestSouthEast);
    EXPECT_EQ(widget.cursor().shape(), Qt::SizeFDiagCursor);
    m_control.host()->setCursor(Cursor::Default);
    EXPECT_EQ(widget.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Widget, WaitingInputComesInWhereALoopAsksForIt) {
    ControlWidget widget(m_control);
    widget.resize(50, 50);
    QTimer::singleShot(0, [&] { QTest::mouseRelease(&widget, Qt::LeftButton); });
    Heard inside;
    m_control.next = [&] {
        const std::uint32_t start = m_control.host()->GetTickCount();
        while (m_control.heard.size() < 2 && m_control.host()->GetTickCount() - start < 5000) {
            m_control.host()->runPendingEvents(5);
        }
        inside = m_control.heard;
    };
    QTest::mousePress(&widget, Qt::LeftButton);
    ASSERT_EQ(inside.size(), 2U);
    EXPECT_TRUE(inside[1].starts_with("release 1"));
}

TEST_F(Widget, TellsWhetherItsWindowIsMaximized) {
    const ControlWidget widget(m_control, &m_window);
    EXPECT_FALSE(m_control.host()->isWindowMaximized());
    m_window.showMaximized();
    EXPECT_TRUE(m_control.host()->isWindowMaximized());
}

}  // namespace
}  // namespace mobrel
