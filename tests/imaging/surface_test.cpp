// SPDX-License-Identifier: MIT
#include "imaging/Surface.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "imaging/cDIB.hpp"
#include "imaging/cDIB32.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "platform/base/RuntimeError.hpp"

namespace mobrel {
namespace {

/// Pixel values line by line from the top, whatever the row order.
template <typename AnySurface>
std::vector<std::vector<int>> grid(const AnySurface& surface) {
    std::vector<std::vector<int>> lines;
    for (int y = 0; y < surface.Height(); ++y) {
        const std::uint8_t* line = surface.hDIBDC()->line(y);
        auto& values = lines.emplace_back();
        for (int x = 0; x < surface.Width(); ++x) values.push_back(line[x * 4]);
    }
    return lines;
}

/// A picture whose blue bytes are numbered line by line from the top, from 1.
template <typename AnySurface>
void number(AnySurface& surface, int width, int height) {
    ASSERT_TRUE(surface.Create(width, height, 0));
    for (int y = 0, value = 1; y < height; ++y) {
        for (int x = 0; x < width; ++x) surface.hDIBDC()->line(y)[x * 4] = static_cast<std::uint8_t>(value++);
    }
}

template <typename AnySurface>
class SurfaceTest : public testing::Test {};
using BothSurfaces = testing::Types<cDIB, cDIB32>;
TYPED_TEST_SUITE(SurfaceTest, BothSurfaces);

TYPED_TEST(SurfaceTest, CreateFillsWithTheColourAndClearsByte3) {
    TypeParam surface;
    ASSERT_TRUE(surface.Create(3, 2, 0x00112233));
    for (int i = 0; i < 6; ++i) {
        const std::uint8_t* pixel = surface.DIBitsPtr() + i * 4;
        EXPECT_EQ(std::vector<int>(pixel, pixel + 4), (std::vector<int>{0x11, 0x22, 0x33, 0}));
    }
    EXPECT_EQ(surface.BytesPerScanLine(), 12);
}

TYPED_TEST(SurfaceTest, CreateRefusesWhatNoSurfaceCanHold) {
    TypeParam surface;
    ASSERT_TRUE(surface.Create(4, 4, 0));
    const std::pair<int, int> sizes[] = {{0, 5},  {5, 0},         {-1, 5},
                                         {5, -1}, {32768, 16384}, {2147483647, 2147483647}};
    for (const auto& [width, height] : sizes) {
        EXPECT_FALSE(surface.Create(width, height, 0)) << width << 'x' << height;
        EXPECT_EQ(surface.hDIB(), nullptr);
        EXPECT_EQ(surface.hDIBDC(), nullptr);
        EXPECT_EQ(surface.DIBitsPtr(), nullptr);
    }
}

TYPED_TEST(SurfaceTest, DestroyKeepsTheSize) {
    TypeParam surface;
    ASSERT_TRUE(surface.Create(7, 9, 0));
    surface.Destroy();
    EXPECT_EQ(surface.hDIB(), nullptr);
    EXPECT_EQ(surface.Width(), 7);
    EXPECT_EQ(surface.Height(), 9);
}

TYPED_TEST(SurfaceTest, EmptySurfacesTakeAndGiveNothing) {
    TypeParam empty;
    TypeParam live;
    number(live, 2, 2);
    int events = 0;
    empty.ProgressEnd.connect([&] { ++events; });
    empty.Orientation(true, true, true);
    empty.LoadBlt(*live.hDIBDC());
    empty.LoadDIBBlt(live);
    live.LoadDIBBlt(empty);
    empty.Paint(*live.hDIBDC(), 0, 0, 1);
    EXPECT_EQ(events, 0);
    EXPECT_EQ(empty.hDIB(), nullptr);
    EXPECT_EQ(grid(live), (std::vector<std::vector<int>>{{1, 2}, {3, 4}}));
}

TYPED_TEST(SurfaceTest, OrientationTurnsCounterClockwiseAfterTheMirrors) {
    struct Case {
        bool rotate, flipH, flipV;
        std::vector<std::vector<int>> expected;
    };
    // from 1 2 3
    //      4 5 6
    const Case cases[] = {
        {false, false, false, {{1, 2, 3}, {4, 5, 6}}},
        {false, true, false, {{3, 2, 1}, {6, 5, 4}}},
        {false, false, true, {{4, 5, 6}, {1, 2, 3}}},
        {false, true, true, {{6, 5, 4}, {3, 2, 1}}},
        {true, false, false, {{3, 6}, {2, 5}, {1, 4}}},
        {true, true, false, {{6, 3}, {5, 2}, {4, 1}}},  // the turned picture, mirrored left to right
        {true, false, true, {{1, 4}, {2, 5}, {3, 6}}},
        {true, true, true, {{4, 1}, {5, 2}, {6, 3}}},
    };
    for (const auto& [rotate, flipH, flipV, expected] : cases) {
        TypeParam surface;
        number(surface, 3, 2);
        std::vector<int> events;
        surface.Progress.connect([&](std::int32_t row) { events.push_back(row); });
        surface.ProgressEnd.connect([&] { events.push_back(-1); });
        surface.Orientation(rotate, flipH, flipV);
        EXPECT_EQ(grid(surface), expected) << rotate << flipH << flipV;
        EXPECT_EQ(events, rotate ? (std::vector<int>{0, 1, -1}) : std::vector<int>{-1});
        EXPECT_EQ(surface.Width(), rotate ? 2 : 3);
        EXPECT_EQ(surface.hDIBDC()->width(), surface.Width());
    }
}

TYPED_TEST(SurfaceTest, StretchPutsTheTargetsModeBack) {
    TypeParam source;
    TypeParam target;
    number(source, 2, 1);
    number(target, 4, 1);
    target.hDIBDC()->SetStretchBltMode(StretchMode::Halftone);
    target.LoadDIBBlt(source);
    EXPECT_EQ(grid(target), (std::vector<std::vector<int>>{{1, 1, 2, 2}}));
    EXPECT_EQ(target.hDIBDC()->GetStretchBltMode(), StretchMode::Halftone);
}

TYPED_TEST(SurfaceTest, PaintEnlargesByAWholeFactor) {
    TypeParam source;
    TypeParam target;
    number(source, 2, 1);
    ASSERT_TRUE(target.Create(5, 3, 0));
    source.Paint(*target.hDIBDC(), 1, 1, 2);
    EXPECT_EQ(grid(target),
              (std::vector<std::vector<int>>{{0, 0, 0, 0, 0}, {0, 1, 1, 2, 2}, {0, 1, 1, 2, 2}}));
}

TEST(Surface, GetBestFitInfo) {
    struct Case {
        int width, height, dstW, dstH;
        bool stretch;
        BestFitInfo expected;
    };
    const Case cases[] = {
        {640, 480, 320, 320, false, {0, 40, 320, 240}},
        {5, 10, 5, 5, false, {1, 0, 2, 5}},  // 2.5 goes to the even neighbour
        {100, 50, 400, 400, false, {150, 175, 100, 50}},
        {100, 50, 400, 400, true, {0, 100, 400, 200}},
        {200, 100, 100, 50, false, {0, 0, 100, 50}},  // equal ratios
        {1000, 1, 100, 100, false, {0, 50, 100, 0}},
        {3, 7, 2, 2, false, {0, 0, 1, 2}},
        {10, 10, 5, 4, false, {0, 0, 4, 4}},  // 1 div 2
        // the factor is a float: 100 / 3 x 3 is not 100 in doubles of it, and rounds back
        {3, 2, 100, 100, true, {0, 16, 100, 67}},
    };
    for (const auto& c : cases) {
        cDIB surface;
        ASSERT_TRUE(surface.Create(c.width, c.height, 0));
        EXPECT_EQ(surface.GetBestFitInfo(c.dstW, c.dstH, c.stretch), c.expected)
            << c.width << 'x' << c.height;
    }
    EXPECT_THROW(cDIB().GetBestFitInfo(5, 5, true), RuntimeError);
}

TEST(Surface, SizeIsToldForBottomUpRowsOnly) {
    cDIB bottomUp;
    cDIB32 topDown;
    ASSERT_TRUE(bottomUp.Create(3, 5, 0));
    ASSERT_TRUE(topDown.Create(3, 5, 0));
    EXPECT_EQ(bottomUp.Size(), 60);
    EXPECT_EQ(topDown.Size(), 0);
}

TEST(Surface, RowsLieBottomUpAndTopDown) {
    cDIB bottomUp;
    cDIB32 topDown;
    number(bottomUp, 1, 2);
    number(topDown, 1, 2);
    EXPECT_EQ(bottomUp.DIBitsPtr()[0], 2);
    EXPECT_EQ(topDown.DIBitsPtr()[0], 1);
}

/// A picture object of 2 x 2 pixels, blue 1 2 over 3 4.
std::unique_ptr<StdPicture> smallPicture(int bitsPixel) {
    auto picture = std::make_unique<StdPicture>();
    picture->bitsPixel = bitsPixel;
    picture->pixels = std::move(*PixelBuffer::create(2, 2));
    const std::uint8_t blues[] = {3, 4, 1, 2};
    for (int i = 0; i < 4; ++i) picture->pixels.bits()[i * 4] = blues[i];
    if (bitsPixel < 9) {
        picture->colorTable.resize(std::size_t{1} << bitsPixel);
        picture->colorTable[1] = {10, 20, 30, 0};
        picture->indices.assign(8, 0x5A);
    }
    return picture;
}

TEST(CreateFromStdPicture, CountsDepthsAsTheDocumentDoes) {
    const std::pair<int, int> depths[] = {{1, 1}, {4, 4}, {8, 8}, {16, 24}, {24, 24}, {32, 24}};
    for (const auto& [source, expected] : depths) {
        cDIB surface;
        cDIBPal palette;
        cDIBDither dither;
        EXPECT_EQ(surface.CreateFromStdPicture(smallPicture(source), palette, &dither), expected);
        EXPECT_EQ(grid(surface), (std::vector<std::vector<int>>{{1, 2}, {3, 4}}));
        EXPECT_EQ(palette.Count(), source < 9 ? 1 << source : 0);
        EXPECT_EQ(dither.PalID().size(), source < 9 ? 8U : 0U);
        if (source < 9) {
            EXPECT_EQ(palette.rgbR(1), 30);
            EXPECT_EQ(dither.PalID()[7], 0x5A);
        }
    }
}

TEST(CreateFromStdPicture, RefusesWhatIsNoBitmap) {
    cDIB surface;
    cDIBPal palette;
    number(surface, 1, 1);
    auto icon = smallPicture(24);
    icon->objectType = ObjectType::Other;
    EXPECT_EQ(surface.CreateFromStdPicture(std::move(icon), palette, nullptr), 0);
    EXPECT_EQ(surface.CreateFromStdPicture(nullptr, palette, nullptr), 0);
    EXPECT_EQ(grid(surface), (std::vector<std::vector<int>>{{1}}));
}

TEST(CreateFromStdPicture, APalettePictureNeedsADither) {
    cDIB surface;
    cDIBPal palette;
    try {
        surface.CreateFromStdPicture(smallPicture(8), palette, nullptr);
        FAIL() << "no error";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), ErrorNumber::ObjectNotSet);
    }
}

TEST(CreateFromStdPicture, TopDownSurfacesTurnTheRowsOver) {
    cDIB32 surface;
    EXPECT_TRUE(surface.CreateFromStdPicture(smallPicture(8)));
    EXPECT_EQ(grid(surface), (std::vector<std::vector<int>>{{1, 2}, {3, 4}}));
    EXPECT_FALSE(surface.CreateFromStdPicture(nullptr));
}

}  // namespace
}  // namespace mobrel
