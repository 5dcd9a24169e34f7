// SPDX-License-Identifier: MIT
// Errors of the core stop where Qt called it; messages are answered.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "desktop/ControlWidget.hpp"
#include "desktop/QtDesktop.hpp"
#include "desktop/SampleControl.hpp"
#include "platform/base/RuntimeError.hpp"

namespace mobrel {
namespace {

/// Does something to the next message box.
void whenBoxOpens(const std::function<void(QMessageBox&)>& act) {
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, [=] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isVisible()) return;
        timer->stop();
        timer->deleteLater();
        act(*box);
    });
    timer->start(5);
}

TEST(Message, ButtonsAndAnswers) {
    struct Case {
        MessageButtons buttons;
        std::function<void(QMessageBox&)> act;
        MessageAnswer answer;
    };
    const auto press = [](Qt::Key key) { return [key](QMessageBox& box) { QTest::keyClick(&box, key); }; };
    const auto click = [](QMessageBox::StandardButton button) {
        return [button](QMessageBox& box) { box.button(button)->click(); };
    };
    const Case cases[] = {
        {MessageButtons::Ok, press(Qt::Key_Return), MessageAnswer::Ok},
        {MessageButtons::Ok, press(Qt::Key_Escape), MessageAnswer::Ok},
        {MessageButtons::YesNoCancel, press(Qt::Key_Return), MessageAnswer::Yes},
        {MessageButtons::YesNoCancel, click(QMessageBox::No), MessageAnswer::No},
        {MessageButtons::YesNoCancel, press(Qt::Key_Escape), MessageAnswer::Cancel},
    };
    for (const Case& c : cases) {
        QString text;
        whenBoxOpens([&](QMessageBox& box) {
            text = box.text();
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
            c.act(box);
        });
        const Desktop desktop = qtDesktop();
        desktop.windows->setHourglass(true);
        EXPECT_EQ(desktop.windows->message("<b>a.bmp", MessageIcon::Question, c.buttons), c.answer);
        EXPECT_EQ(text, "<b>a.bmp");
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        desktop.windows->setHourglass(true);  // one hourglass is enough
        desktop.windows->setHourglass(false);
        desktop.windows->setHourglass(false);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

class BoundaryDeathTest : public testing::Test {
 protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// In a process of its own. The box's text goes to standard error.
    static void fail(test::SampleControl& control) {
        whenBoxOpens([](QMessageBox& box) {
            std::fprintf(stderr, "box: %s\n", qPrintable(box.text()));
            box.button(QMessageBox::Ok)->click();
        });
        control.next = [] { throw RuntimeError{ErrorNumber::InvalidPropertyValue}; };
    }
};

TEST_F(BoundaryDeathTest, AnErrorInAHandlerEndsTheProgramWithItsText) {
    const std::string text = std::string("box: ") + errorText(ErrorNumber::InvalidPropertyValue);
    const std::function<void(ControlWidget&)> entries[] = {
        [](ControlWidget& widget) { QTest::mousePress(&widget, Qt::LeftButton); },
        [](ControlWidget& widget) { QTest::keyClick(&widget, Qt::Key_A); },
        [](ControlWidget& widget) {
            QFocusEvent event(QEvent::FocusIn);
            QApplication::sendEvent(&widget, &event);
        },
    };
    for (const auto& entry : entries) {
        EXPECT_EXIT(
            {
                test::SampleControl control;
                ControlWidget widget(control);
                fail(control);
                entry(widget);
            },
            testing::ExitedWithCode(1), text);
    }
}

TEST_F(BoundaryDeathTest, AnErrorInAScrollBarsHandlerToo) {
    EXPECT_EXIT(
        {
            test::SampleControl control;
            ControlWidget widget(control);
            fail(control);
            ScrollBar& bar = control.host()->verticalScrollBar();
            bar.Change.connect([&] { control.note("changed"); });
            widget.findChild<QScrollBar*>()->triggerAction(QAbstractSlider::SliderSingleStepAdd);
        },
        testing::ExitedWithCode(1), errorText(ErrorNumber::InvalidPropertyValue));
}

TEST(Boundary, AnErrorThatIsOnlyToldLetsTheProgramGoOn) {
    setErrorPolicy(ErrorPolicy::Tell);
    QString text;
    whenBoxOpens([&](QMessageBox& box) {
        text = box.text();
        box.button(QMessageBox::Ok)->click();
    });
    test::SampleControl control;
    ControlWidget widget(control);
    control.next = [] { throw RuntimeError{ErrorNumber::InvalidPropertyValue}; };
    QTest::mousePress(&widget, Qt::LeftButton);
    setErrorPolicy(ErrorPolicy::EndRun);
    EXPECT_EQ(text, errorText(ErrorNumber::InvalidPropertyValue));
}

TEST(Boundary, CodeThatSetsTheBarGetsItsOwnErrors) {
    test::SampleControl control;
    const ControlWidget widget(control);
    ScrollBar& bar = control.host()->verticalScrollBar();
    bar.Change.connect([] { throw RuntimeError{ErrorNumber::InvalidPropertyValue}; });
    EXPECT_THROW(bar.setValue(5), RuntimeError);
}

}  // namespace
}  // namespace mobrel
