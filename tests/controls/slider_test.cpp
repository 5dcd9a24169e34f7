// SPDX-License-Identifier: MIT
// The slider: places, values, events, what the user does, what is stored.
#include "controls/zenSlider.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "support/FakeHost.hpp"
#include "support/FakePropertyBag.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {
namespace {

using test::FakeHost;
using test::FakePropertyBag;

constexpr auto kHorizontal = SliderOrientation::Horizontal;
constexpr auto kVertical = SliderOrientation::Vertical;
constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();

/// A slider in a window, horizontal with a travel of 100 unless told otherwise; notes its events.
struct Stage {
    explicit Stage(int width = 116, int height = 16, SliderOrientation orientation = kHorizontal,
                   double scale = 1) {
        slider.setOrientation(orientation);
        host.resize(width, height, scale);
        slider.Click.connect([this] { note("Click"); });
        slider.ArrivedFirst.connect([this] { note("First"); });
        slider.ArrivedLast.connect([this] { note("Last"); });
        slider.ValueChanged.connect([this] { note(std::to_string(slider.Value())); });
        slider.MouseDown.connect([this](std::int16_t& shift) { note("Down/" + std::to_string(shift)); });
        slider.MouseUp.connect([this](std::int16_t& shift) { note("Up/" + std::to_string(shift)); });
    }

    void note(const std::string& event) { events += (events.empty() ? "" : " ") + event; }
    std::string takeEvents() { return std::exchange(events, {}); }

    void press(float x, float y, std::int16_t button = MouseButton::kLeft) {
        slider.pointerPressed({button, ShiftState::kControl, x, y});
    }
    void move(float x, float y) { slider.pointerMoved({MouseButton::kLeft, 0, x, y}); }
    void release(float x, float y, std::int16_t button = MouseButton::kLeft) {
        slider.pointerReleased({button, ShiftState::kShift, x, y});
    }
    void turn(int vertical, int horizontal = 0) { slider.wheelTurned({0, 5, 5, horizontal, vertical}); }
    bool key(std::int16_t code, std::int16_t shift = 0) { return slider.keyPressed({code, shift}); }

    zenSlider slider;
    FakeHost host{slider, 0, 0};
    std::string events;
};

using Acts = std::function<void(Stage&)>;

std::shared_ptr<const ControlPicture> greyPicture(int width, int height) {
    const std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width * height * 4), 0x80);
    return copyAsControlPicture({pixels.data(), width * 4, width, height});
}

TEST(ZenSlider, TakesItsThicknessFromTheKnobAndStandsAtItsValue) {
    const struct {
        SliderOrientation orientation;
        double scale;
        int givenWidth, givenHeight, width, height;
        std::int32_t value;
        Rect knob, rail;
    } kRows[] = {
        {kHorizontal, 1, 116, 40, 116, 16, 0, {0, 0, 16, 16}, {6, 6, 110, 10}},
        {kHorizontal, 1, 117, 16, 117, 16, 3, {30, 0, 46, 16}, {6, 6, 111, 10}},  // at 30.3
        {kHorizontal, 1, 0, 0, 16, 16, 5, {0, 0, 16, 16}, {6, 6, 10, 10}},
        {kHorizontal, 1, 8, 16, 8, 16, 10, {-8, 0, 8, 16}, {6, 6, 2, 10}},
        {kHorizontal, 1.25, 145, 9, 145, 20, 10, {125, 0, 145, 20}, {8, 8, 138, 13}},
        {kHorizontal, 1.5, 174, 9, 174, 24, 5, {75, 0, 99, 24}, {9, 9, 165, 15}},
        {kVertical, 1, 40, 116, 16, 116, 0, {0, 100, 16, 116}, {6, 6, 10, 110}},
        {kVertical, 1, 16, 116, 16, 116, 10, {0, 0, 16, 16}, {6, 6, 10, 110}},
        {kVertical, 2, 16, 0, 32, 32, 10, {0, 0, 32, 32}, {12, 12, 20, 20}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(&row - kRows);
        Stage stage(row.givenWidth, row.givenHeight, row.orientation, row.scale);
        stage.slider.setValue(row.value);
        EXPECT_EQ(stage.slider.width(), row.width);
        EXPECT_EQ(stage.slider.height(), row.height);
        EXPECT_EQ(stage.slider.knobRect(), row.knob);
        EXPECT_EQ(stage.slider.railRect(), row.rail);
    }
}

TEST(ZenSlider, TakesItsSizeFromARailPictureAndCentresTheKnobOnIt) {
    const struct {
        SliderOrientation orientation;
        double scale;
        int pictureWidth, pictureHeight, width, height;
        Rect knob;
    } kRows[] = {
        {kHorizontal, 1, 100, 20, 104, 20, {44, 2, 60, 18}},
        {kHorizontal, 2, 100, 6, 208, 32, {88, 0, 120, 32}},
        {kVertical, 1, 21, 100, 21, 104, {2, 44, 18, 60}},  // at 2.5
        {kVertical, 1, 5, 100, 16, 104, {0, 44, 16, 60}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(&row - kRows);
        Stage stage(50, 50, row.orientation, row.scale);
        stage.slider.setValue(5);
        stage.slider.setRailPicture(greyPicture(row.pictureWidth, row.pictureHeight));
        stage.slider.setRailStyle(SliderRail::Picture);
        EXPECT_EQ(stage.slider.width(), row.width);
        EXPECT_EQ(stage.slider.height(), row.height);
        EXPECT_EQ(stage.slider.knobRect(), row.knob);
    }
    Stage refused;  // it goes on with the size there is
    refused.host.grantsSizes = false;
    refused.host.resize(50, 30, 1);
    refused.slider.setValue(10);
    EXPECT_EQ(refused.host.requestedHeight, 16);
    EXPECT_EQ(refused.slider.knobRect(), (Rect{34, 0, 50, 16}));
}

TEST(ZenSlider, RefusesValuesAndLimitsThatDoNotFit) {
    Stage stage;
    stage.slider.setMin(2);
    stage.slider.setValue(4);
    stage.takeEvents();
    for (const Acts& act :
         {Acts([](Stage& s) { s.slider.setValue(1); }), Acts([](Stage& s) { s.slider.setValue(11); }),
          Acts([](Stage& s) { s.slider.setMax(2); }), Acts([](Stage& s) { s.slider.setMax(kLeast); }),
          Acts([](Stage& s) { s.slider.setMin(10); }), Acts([](Stage& s) { s.slider.setMin(kGreatest); })}) {
        try {
            act(stage);
            ADD_FAILURE() << "no error";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), ErrorNumber::InvalidPropertyValue);
        }
    }
    EXPECT_EQ(stage.slider.Min(), 2);
    EXPECT_EQ(stage.slider.Max(), 10);
    EXPECT_EQ(stage.slider.Value(), 4);
    EXPECT_EQ(stage.takeEvents(), "");
}

TEST(ZenSlider, MovesToANewMinimumButNotToANewMaximum) {
    Stage stage;
    stage.slider.setValue(5);
    stage.takeEvents();
    stage.slider.setMax(20);
    EXPECT_EQ(stage.takeEvents(), "");
    EXPECT_EQ(stage.slider.knobRect().left, 50);
    stage.press(33, 3);  // where 5 of 20 stands
    EXPECT_EQ(stage.slider.knobRect().left, 25);
    const auto shown = stage.host.screen();
    stage.slider.appearanceChanged();
    EXPECT_EQ(shown, stage.host.screen());
    stage.release(200, 3);
    stage.takeEvents();
    stage.slider.setMin(-5);
    EXPECT_EQ(stage.takeEvents(), "-5 First");
    EXPECT_EQ(stage.slider.knobRect().left, 0);
    stage.slider.setValue(0);
    EXPECT_EQ(stage.slider.knobRect().left, 20);  // 5 of 25
}

TEST(ZenSlider, KnowsTheWidestRange) {
    Stage stage;
    stage.slider.setMin(kLeast);
    stage.slider.setMax(kGreatest);
    stage.slider.setValue(kGreatest);
    EXPECT_EQ(stage.slider.knobRect().left, 100);
    stage.press(108, 8);
    stage.move(8, 8);
    EXPECT_EQ(stage.slider.Value(), kLeast);
    stage.move(500, 8);
    stage.release(500, 8);
    EXPECT_EQ(stage.slider.Value(), kGreatest);
    stage.key(KeyCode::kPageUp);
    EXPECT_EQ(stage.slider.Value(), kGreatest);
    // A value far above a new Max puts the knob out of sight, wherever that is.
    stage.slider.setMax(kLeast + 1);
    stage.host.resize(200, 16, 1);
    EXPECT_EQ(stage.slider.knobRect().left, 200);
}

TEST(ZenSlider, SnapsToTheNearestValueWhileDragged) {
    const struct {
        float place;
        std::int32_t value;
    } kRows[] = {{55, 6}, {45, 4}, {46, 5}, {5, 0}, {4, 0}, {-50, 0}, {100, 10}, {1000, 10}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.place);
        Stage across;
        across.press(3, 3);
        across.move(row.place + 3, 500);
        EXPECT_EQ(across.slider.Value(), row.value);
        EXPECT_EQ(across.slider.knobRect(), (Rect{row.value * 10, 0, row.value * 10 + 16, 16}));

        Stage upright(16, 116, kVertical);
        upright.press(3, 103);
        upright.move(500, 100 - row.place + 3);
        EXPECT_EQ(upright.slider.Value(), row.value);
        EXPECT_EQ(upright.slider.knobRect(), (Rect{0, 100 - row.value * 10, 16, 116 - row.value * 10}));
    }
}

TEST(ZenSlider, RaisesItsEventsInOrder) {
    const struct {
        Acts act;
        const char* events;
    } kRows[] = {
        {[](Stage& s) { s.slider.setValue(0), s.slider.setValue(5), s.slider.setValue(5); }, "5"},
        {[](Stage& s) { s.slider.setValue(10), s.slider.setValue(0); }, "10 Last 0 First"},
        {[](Stage& s) { s.press(16, 16), s.release(15, 15); }, "Down/2 Click Up/1"},
        {[](Stage& s) { s.press(58, 3), s.release(58, 3); }, "5 Down/2 Click Up/1"},
        {[](Stage& s) { s.press(3, 3), s.release(116, 3); }, "Down/2 Up/1"},
        {[](Stage& s) { s.press(3, 3), s.release(3, -0.5F); }, "Down/2 Up/1"},
        {[](Stage& s) { s.press(58, 3, 2), s.move(70, 3), s.release(58, 3, 2); }, ""},
        {[](Stage& s) { s.press(3, 3), s.release(3, 3, 2), s.move(50, 3); }, "Down/2 Up/1"},
        {[](Stage& s) { s.press(3, 3), s.move(60, 3), s.move(200, 3), s.move(201, 3), s.move(0, 3); },
         "Down/2 6 10 Last 0 First"},
        {[](Stage& s) { s.slider.setEnabled(false), s.press(58, 3), s.move(70, 3), s.release(58, 3); }, ""},
        {[](Stage& s) { s.slider.setEnabled(false), s.slider.setValue(10); }, "10 Last"},
        {[](Stage& s) { s.move(58, 3); }, ""},
        {[](Stage& s) { s.press(3, 3), s.slider.pointerMoved({}), s.move(58, 3); }, "Down/2"},
        {[](Stage& s) {
             s.slider.pointerDoubleClicked({1, 0, 58, 3}), s.move(68, 3);
         },
         "5 Down/0 6"},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(&row - kRows);
        Stage stage;
        row.act(stage);
        EXPECT_EQ(stage.takeEvents(), row.events);
        EXPECT_TRUE(stage.host.isAllShown());
    }
}

TEST(ZenSlider, StandsHandlersThatChangeIt) {
    Stage stage;
    stage.slider.ValueChanged.connect([&] {
        if (stage.slider.Value() == 4) stage.slider.setValue(10);
    });
    stage.slider.setValue(4);
    EXPECT_EQ(stage.takeEvents(), "4 10 Last Last");  // both end with the new value
    EXPECT_EQ(stage.slider.knobRect().left, 100);

    Stage limits;
    limits.slider.setValue(5);
    limits.slider.ValueChanged.connect([&] {
        if (limits.slider.Max() == 10) limits.slider.setMax(3), limits.slider.setMin(-7);
    });
    limits.slider.setMin(1);
    EXPECT_EQ(limits.slider.Value(), -7);
    limits.slider.setValue(-2);
    EXPECT_EQ(limits.slider.knobRect().left, 50);

    Stage shrinking;
    shrinking.slider.ValueChanged.connect([&] { shrinking.host.resize(0, 0, 1); });
    shrinking.press(100, 8);
    EXPECT_EQ(shrinking.slider.width(), 16);
}

TEST(ZenSlider, StandsHandlersThatEndIt) {
    const Acts steps[] = {[](Stage& s) { s.press(108, 3); }, [](Stage& s) { s.release(108, 3); },
                          [](Stage& s) { s.slider.setMin(-5); }, [](Stage& s) { s.key(KeyCode::kEnd); }};
    constexpr int kEvents = 9;  // 10 Last Down, Click Up, -5 First, 10 Last
    for (int last = 1; last <= kEvents; ++last) {
        auto stage = std::make_unique<Stage>();
        int raised = 0;
        const auto count = [&](auto&&...) {
            if (++raised == last) stage.reset();
        };
        zenSlider& slider = stage->slider;
        for (Event<>* event :
             {&slider.Click, &slider.ArrivedFirst, &slider.ArrivedLast, &slider.ValueChanged}) {
            event->connect(count);
        }
        for (auto* event : {&slider.MouseDown, &slider.MouseUp}) event->connect(count);
        for (const Acts& step : steps) {
            if (stage) step(*stage);
        }
        EXPECT_EQ(stage, nullptr);
        EXPECT_EQ(raised, last);
    }
}

TEST(ZenSlider, LeavesTheKnobWhereThereIsNothingToChoose) {
    FakePropertyBag bag;
    bag.writeNumber("Min", 5);
    bag.writeNumber("Max", 5);
    bag.writeNumber("Value", 5);
    bag.writeNumber("Orientation", 0);
    Stage single;
    single.slider.load(bag);
    Stage narrow(16);
    for (Stage* stage : {&single, &narrow}) {
        const std::int32_t value = stage->slider.Value();
        stage->press(80, 8);
        stage->move(20, 8);
        EXPECT_EQ(stage->slider.Value(), value);
        EXPECT_EQ(stage->slider.knobRect().left, 0);
    }
}

TEST(ZenSlider, FollowsKeysWheelAndAssistivePrograms) {
    const struct {
        Acts act;
        std::int32_t value;  // from 50 of 0 to 105
    } kRows[] = {
        {[](Stage& s) { EXPECT_TRUE(s.key(KeyCode::kLeft) && s.key(KeyCode::kDown)); }, 48},
        {[](Stage& s) { EXPECT_TRUE(s.key(KeyCode::kRight) && s.key(KeyCode::kUp)); }, 52},
        {[](Stage& s) { s.key(KeyCode::kPageUp); }, 60},
        {[](Stage& s) { s.key(KeyCode::kPageDown); }, 40},
        {[](Stage& s) { s.key(KeyCode::kHome); }, 0},
        {[](Stage& s) { s.key(KeyCode::kEnd), s.key(KeyCode::kPageUp); }, 105},
        {[](Stage& s) { EXPECT_FALSE(s.key(KeyCode::kSpace)); }, 50},
        {[](Stage& s) { EXPECT_FALSE(s.key(KeyCode::kUp, ShiftState::kControl)); }, 50},
        {[](Stage& s) { s.press(50, 5), s.key(KeyCode::kUp), s.turn(120); }, 50},  // while dragged
        {[](Stage& s) { s.slider.setEnabled(false), s.key(KeyCode::kUp), s.turn(120); }, 50},
        {[](Stage& s) { s.turn(120); }, 51},
        {[](Stage& s) { s.turn(-240); }, 48},
        {[](Stage& s) { s.turn(0, -120); }, 51},
        {[](Stage& s) { s.turn(50), s.turn(50), s.turn(50), s.turn(89); }, 51},
        {[](Stage& s) { s.turn(119), s.turn(-119), s.turn(-119); }, 50},
        {[](Stage& s) { s.slider.setAccessibleValue(7); }, 7},
        {[](Stage& s) { s.slider.setAccessibleValue(kGreatest); }, 105},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(&row - kRows);
        Stage stage;
        stage.slider.setMax(105);
        stage.slider.setValue(50);
        stage.host.accessibleChanges = 0;
        row.act(stage);
        EXPECT_EQ(stage.slider.Value(), row.value);
        EXPECT_EQ(stage.slider.accessibleRange()->value, row.value);
        EXPECT_EQ(stage.slider.accessibleRange()->greatest, 105);
        EXPECT_EQ(stage.host.accessibleChanges > 0, row.value != 50);
    }
    Stage small;  // a tenth of a range below 10 is a step
    small.key(KeyCode::kPageUp);
    EXPECT_EQ(small.slider.Value(), 1);
}

TEST(ZenSlider, LoadsQuietly) {
    FakePropertyBag bag;
    bag.values = {{"Orientation", 0}, {"Max", 90},       {"Min", -3},
                  {"Value", 30},      {"RailStyle", 99}, {"RailPicture", greyPicture(96, 1)}};
    Stage stage;
    stage.slider.load(bag);
    EXPECT_EQ(stage.slider.width(), 100);
    EXPECT_EQ(stage.slider.knobRect().left, 30);  // 33 of 93, of 84
    stage.slider.setValue(30);
    EXPECT_EQ(stage.takeEvents(), "");  // the value that was read counts as told
}

}  // namespace
}  // namespace mobrel
