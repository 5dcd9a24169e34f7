// SPDX-License-Identifier: MIT
// The long range on a short bar: where the thumb goes, and what the user's steps and drags come to.
#include "canvas/CLongScroll.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

#include "support/FakeHost.hpp"

namespace mobrel {
namespace {

constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();

class LongScroll : public testing::Test {
 protected:
    LongScroll() {
        scroll.setClient(&bar);
        scroll.Change.connect([this] { ++changes; });
    }

    void start(std::int32_t min, std::int32_t max, std::int32_t value) {
        scroll.setMin(min);
        scroll.setMax(max);
        changes = 0;
        scroll.setValue(value);
    }
    /// As the user moves the bar.
    void moveBar(int by) { bar.setValue(static_cast<std::int16_t>(bar.Value() + by)); }

    test::FakeScrollBar bar;
    CLongScroll scroll;
    int changes = 0;
};

TEST_F(LongScroll, PlacesTheThumbAndKeepsItOffAnEndNotReached) {
    const struct {
        std::int32_t min, max, value, stored;
        int thumb;
    } cases[] = {
        {0, 100000, 0, 0, 0},
        {0, 100000, 1, 1, 1},  // 0.33 of a step of the bar
        {0, 100000, 50000, 50000, 16384},
        {0, 100000, 99999, 99999, 32766},
        {0, 100000, 100000, 100000, 32767},
        {-50, 50, 0, 0, 16384},  // 16383.5
        {100, 0, 100, 100, 0},
        {100, 0, 25, 25, 24575},  // 24575.25
        {7, 7, 9, 7, 0},
        {kLeast, kGreatest, -1, -1, 16383},
        {kLeast, kGreatest, kGreatest, kGreatest, 32767},
    };
    for (const auto& c : cases) {
        start(c.min, c.max, c.value);
        EXPECT_EQ(std::tuple(scroll.Value(), int{bar.Value()}, changes), std::tuple(c.stored, c.thumb, 1))
            << c.min << " to " << c.max << " at " << c.value;
    }
}

TEST_F(LongScroll, TakesStepsByTheirLengthAndEverythingElseAsADrag) {
    const struct {
        std::int32_t min, max, value;
        int move;
        std::int32_t expected;
    } cases[] = {
        {0, 100000, 50000, 1, 50003},
        {0, 100000, 50000, 10, 50500},
        {0, 100000, 99999, 1, 100000},
        {0, 100000, 200, -10, 0},
        {0, 100000, 50000, 2, 50008},  // 16386 of 32767
        {100000, 0, 50000, 1, 49997},
        {100000, 0, 50000, -10, 50500},
        {100000, 0, 100000, 16384, 49998},
        {5, 5, 5, 40, 5},
        {kLeast, kGreatest, kGreatest, -1, kGreatest - 3},
    };
    scroll.setSmallChange(3);
    scroll.setLargeChange(500);
    for (const auto& c : cases) {
        start(c.min, c.max, c.value);
        moveBar(c.move);
        EXPECT_EQ(std::tuple(scroll.Value(), changes), std::tuple(c.expected, 2))
            << c.min << " to " << c.max << " at " << c.value << " by " << c.move;
    }
    start(0, 1000, 0);
    bar.setSmallChange(10);
    moveBar(10);
    EXPECT_EQ(scroll.Value(), 500) << "the large step wins";
}

TEST_F(LongScroll, ANewLimitMovesAValueThatLiesOutside) {
    constexpr auto kSetMin = &CLongScroll::setMin;
    constexpr auto kSetMax = &CLongScroll::setMax;
    const struct {
        void (CLongScroll::*setLimit)(std::int32_t);
        std::int32_t min, max, value, limit, expected;
        int changes;
    } cases[] = {
        {kSetMax, 0, 100, 80, 50, 50, 1},
        {kSetMax, 0, 100, 80, 80, 80, 0},
        {kSetMin, 0, 100, 20, 30, 30, 1},
        {kSetMin, 0, 100, 20, 20, 20, 0},
        {kSetMin, 0, 100, 20, 100, 100, 1},
        {kSetMin, 0, 100, 100, 100, 100, 0},
        {kSetMin, 100, 0, 80, 50, 80, 0},  // past the limit that was changed
        {kSetMax, 100, 0, 20, 30, 20, 0},
        {kSetMin, 0, 100, 20, 200, 100, 1},  // reversed now, and below the other limit
        {kSetMax, 0, 100, 20, -10, 0, 1},
        {kSetMin, 100, 0, 80, -10, 0, 1},  // no longer reversed, and above the other limit
        {kSetMax, 100, 0, 20, 200, 100, 1},
    };
    for (const auto& c : cases) {
        start(c.min, c.max, c.value);
        changes = 0;
        (scroll.*c.setLimit)(c.limit);
        EXPECT_EQ(std::tuple(scroll.Value(), changes), std::tuple(c.expected, c.changes))
            << c.min << " to " << c.max << " at " << c.value << ", limit " << c.limit;
    }
}

TEST_F(LongScroll, HearsOnlyTheBarItIsConnectedWith) {
    test::FakeEditBox edit;
    try {
        scroll.setClient(&edit);
        FAIL() << "taken";
    } catch (const ScrollClientError& error) {
        EXPECT_EQ(static_cast<unsigned>(error.number()), 0x80040201U);
        EXPECT_STREQ(error.source(), "CLongScroll");
        EXPECT_STREQ(error.what(), "Client object must be a scrollbar.");
    }
    EXPECT_EQ(scroll.Client(), &bar);
    moveBar(1);
    EXPECT_EQ(scroll.Value(), 1);

    test::FakeScrollBar other;
    other.setMax(50);
    other.setValue(7);
    scroll.setClient(&other);
    EXPECT_EQ(std::tuple(other.Min(), other.Max(), other.SmallChange(), other.LargeChange(), other.Value(),
                         changes),
              std::tuple(0, 32767, 1, 10, 0, 1));
    moveBar(1);
    EXPECT_EQ(scroll.Value(), 1);

    scroll.setClient(nullptr);
    other.setValue(5);
    scroll.setValue(40000);
    EXPECT_EQ(std::tuple(scroll.Value(), int{other.Value()}, scroll.Client()),
              std::tuple(32767, 5, static_cast<HostPart*>(nullptr)));
}

TEST_F(LongScroll, KeepsAValueThatAnotherListenerOfTheBarSets) {
    test::FakeScrollBar other;
    other.Change.connect([&] {
        if (scroll.Value() != 70001) scroll.setValue(70001);
    });
    scroll.setClient(&other);
    start(0, 100000, 20000);
    EXPECT_EQ(scroll.Value(), 70001);
}

}  // namespace
}  // namespace mobrel
