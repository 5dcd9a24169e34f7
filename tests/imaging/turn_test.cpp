// SPDX-License-Identifier: MIT
// The quarter turn of a surface: every size of tile, the events' promise, and no memory for it.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "imaging/cDIB.hpp"
#include "imaging/cDIB32.hpp"
#include "support/EventLog.hpp"
#include "support/MemoryLimit.hpp"

namespace mobrel {
namespace {

std::uint32_t pixelAt(const DeviceContext& picture, int x, int y) {
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, picture.line(y) + x * 4, 4);
    return pixel;
}

std::uint32_t valueOf(int x, int y) {
    return 0x80000000U + static_cast<std::uint32_t>(y * 1000 + x);
}

template <typename AnySurface>
void number(AnySurface& surface, int width, int height) {
    ASSERT_TRUE(surface.Create(width, height, 0));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::uint32_t value = valueOf(x, y);
            std::memcpy(surface.hDIBDC()->line(y) + x * 4, &value, 4);
        }
    }
}

/// Pixels of the old picture's line that are not where the turn puts them.
template <typename AnySurface>
int wrongPixels(const AnySurface& turned, int y) {
    const int oldWidth = turned.Height();
    int wrong = 0;
    for (int x = 0; x < oldWidth; ++x) {
        wrong += pixelAt(*turned.hDIBDC(), y, oldWidth - 1 - x) != valueOf(x, y);
    }
    return wrong;
}

template <typename AnySurface>
class TurnTest : public testing::Test {};
using BothSurfaces = testing::Types<cDIB, cDIB32>;
TYPED_TEST_SUITE(TurnTest, BothSurfaces);

TYPED_TEST(TurnTest, EveryRowIsInPlaceWhenItsEventComes) {
    constexpr bool kBottomUp = std::is_same_v<TypeParam, cDIB>;
    const std::pair<int, int> sizes[] = {{1, 1},   {1, 40},  {40, 1},  {15, 17}, {16, 16},
                                         {17, 15}, {33, 50}, {70, 31}, {64, 64}};
    for (const auto& size : sizes) {
        const auto [width, height] = size;
        SCOPED_TRACE(testing::Message() << width << 'x' << height);
        TypeParam surface;
        number(surface, width, height);
        int wrong = 0;
        test::EventLog events;
        events.attach(surface);
        const int lines = height;
        surface.Progress.connect(
            [&](std::int32_t row) { wrong += wrongPixels(surface, kBottomUp ? lines - 1 - row : row); });
        surface.Orientation(true, false, false);
        EXPECT_EQ(surface.Width(), height);
        EXPECT_EQ(surface.Height(), width);
        EXPECT_EQ(wrong, 0);
        test::EventLog expected;
        for (int row = 0; row < height; ++row) expected.progress(row);
        expected.progressEnd();
        EXPECT_EQ(events, expected);
    }
}

TYPED_TEST(TurnTest, WithoutMemoryThePictureIsGone) {
    TypeParam surface;
    ASSERT_TRUE(surface.Create(4000, 3000, 0));
    test::EventLog events;
    events.attach(surface);
    {
        const test::MemoryLimit limit(32 * test::kMiB);  // less than a picture
        ASSERT_TRUE(limit.isSet());
        surface.Orientation(true, true, false);
    }
    EXPECT_EQ(surface.hDIB(), nullptr);
    EXPECT_EQ(surface.hDIBDC(), nullptr);
    EXPECT_EQ(surface.DIBitsPtr(), nullptr);
    EXPECT_EQ(surface.Width(), 3000);
    EXPECT_EQ(surface.Height(), 4000);
    EXPECT_EQ(events.toString(), "end");
}

TYPED_TEST(TurnTest, AListenerThatThrowsLeavesALiveSurface) {
    TypeParam surface;
    number(surface, 20, 50);
    surface.Progress.connect([](std::int32_t row) {
        if (row == 17) throw std::runtime_error("enough");
    });
    EXPECT_THROW(surface.Orientation(true, false, false), std::runtime_error);
    ASSERT_NE(surface.hDIBDC(), nullptr);
    EXPECT_EQ(surface.hDIBDC()->width(), 50);
    EXPECT_EQ(surface.hDIBDC()->height(), 20);
    EXPECT_EQ(surface.DIBitsPtr(), surface.hDIB()->bits());
}

}  // namespace
}  // namespace mobrel
