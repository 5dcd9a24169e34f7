// SPDX-License-Identifier: MIT
// Patterns, gradients, rounded rectangles and parts of a target, pixel by pixel.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/drawing/DeviceContext.hpp"
#include "support/PictureGrid.hpp"

namespace mobrel {
namespace {

using test::PictureGrid;

constexpr RowOrder kOrders[] = {RowOrder::TopDown, RowOrder::BottomUp};
constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

TEST(DrawingTest, PatternsLieStillUnderTheirFrames) {
    constexpr PatternBrush kStripes{{0xCC, 0x66, 0x33, 0x99, 0xCC, 0x66, 0x33, 0x99}};
    const struct {
        Rect rect;
        std::vector<std::string> expected;
    } kRows[] = {
        {{0, 0, 24, 16},
         {"BBTTBBTTBBTTBBTTBBTTBBTT", "T......................T", "T......................B",
          "B......................B", "B......................T", "T......................T",
          "T......................B", "B......................B", "B......................T",
          "T......................T", "T......................B", "B......................B",
          "B......................T", "T......................T", "T......................B",
          "BTTBBTTBBTTBBTTBBTTBBTTB"}},
        {{3, 2, 19, 13},
         {"...................", "...................", "...BTTBBTTBBTTBBTTB", "...B..............T",
          "...T..............T", "...T..............B", "...B..............B", "...B..............T",
          "...T..............T", "...T..............B", "...B..............B", "...B..............T",
          "...TBBTTBBTTBBTTBBT"}},
        {{-1, -1, 4, 3}, {"...T..", "...T..", "TTBB..", "......"}},
        {{1, 1, kMax, kMax}, {"......", ".BBTTB", ".T....", ".T...."}},
        {{2, 1, 3, 2}, {"....", "..B.", "...."}},
        {{2, 1, 2, 3}, {"....", "....", "...."}},
        {{3, 2, 1, 1}, {"....", "....", "...."}},
    };
    for (const RowOrder order : kOrders) {
        for (const auto& row : kRows) {
            const auto expected =
                PictureGrid::fromLetters(row.expected, RowOrder::TopDown, {{'B', 0x112233}, {'T', 0x445566}});
            PictureGrid grid(expected.width(), expected.height(), order);
            grid.context().FrameRect(row.rect, kStripes, 0x665544, 0x332211);
            EXPECT_EQ(grid, expected) << "rectangle at " << row.rect.left << ' ' << row.rect.top;
        }
    }
}

TEST(DrawingTest, PatternOperationsCombineBits) {
    const struct {
        PatternOperation operation;
        std::uint32_t expected;
    } kRows[] = {
        {PatternOperation::PatAnd, 0x00880008},
        {PatternOperation::PatCopy, 0x00CC330F},
        {PatternOperation::PatInvert, 0xAA66FFA7},
    };
    for (const auto& row : kRows) {
        PictureGrid grid = PictureGrid::fromNumbers({{0xAAAACCA8, 0xAAAACCA8}, {0xAAAACCA8, 0xAAAACCA8}});
        PictureGrid expected = grid;
        expected.set(1, 0, row.expected);
        grid.context().PatBlt({1, -3, kMax, 1}, 0xFF0F33CC, row.operation);
        grid.context().PatBlt({1, 1, 1, 2}, 0xFF0F33CC, row.operation);
        grid.context().PatBlt({1, 1, 0, 2}, 0xFF0F33CC, row.operation);
        EXPECT_EQ(grid, expected) << "operation " << static_cast<std::uint32_t>(row.operation);
    }
}

TEST(DrawingTest, GradientsEndOneStepBeforeTheirLastColour) {
    constexpr Color kBlue = 0x800000;
    constexpr Color kWhite = 0xFFFFFF;
    const std::uint32_t kExpected[] = {0x000080, 0x0F0F87, 0x1E1E8E, 0x2D2D96, 0x3C3C9D, 0x4B4BA5,
                                       0x5A5AAC, 0x6969B4, 0x7878BB, 0x8787C3, 0x9696CA, 0xA5A5D2,
                                       0xB4B4D9, 0xC3C3E1, 0xD2D2E8, 0xE1E1F0, 0xF0F0F7};
    PictureGrid wide(17, 2, RowOrder::BottomUp);
    PictureGrid tall(2, 17, RowOrder::BottomUp);
    PictureGrid cut(11, 1);
    wide.context().GradientFill({0, 0, 17, 2}, kBlue, kWhite, GradientDirection::Horizontal);
    tall.context().GradientFill({0, 0, 2, 17}, kBlue, kWhite, GradientDirection::Vertical);
    cut.context().GradientFill({-4, -3, 13, 1}, kBlue, kWhite, GradientDirection::Horizontal);
    wide.context().GradientFill({5, 0, 5, 2}, kWhite, kWhite, GradientDirection::Horizontal);
    tall.context().GradientFill({0, 9, 2, 5}, kWhite, kWhite, GradientDirection::Vertical);
    for (int i = 0; i < 17; ++i) {
        EXPECT_EQ(wide.at(i, 0), kExpected[i]) << "column " << i;
        EXPECT_EQ(wide.at(i, 1), kExpected[i]) << "column " << i;
        EXPECT_EQ(tall.at(0, i), kExpected[i]) << "line " << i;
        EXPECT_EQ(tall.at(1, i), kExpected[i]) << "line " << i;
    }
    for (int i = 0; i < 11; ++i) EXPECT_EQ(cut.at(i, 0), i + 4 < 17 ? kExpected[i + 4] : 0) << "column " << i;
}

TEST(DrawingTest, TheWidestGradientIsExact) {
    PictureGrid grid(1, 1);
    grid.context().GradientFill({kMin, 0, kMax, 1}, 0, 0xFFFFFF, GradientDirection::Horizontal);
    EXPECT_EQ(grid.at(0, 0), 0x7F7F7FU);
}

/// The empty pixels at the left of each line of a box with corners of diameter d.
std::vector<int> emptyPixels(int d) {
    PictureGrid grid(60, 50);
    grid.context().RoundRect({0, 0, 60, 50}, d, d, 0x0000FF, 0x00FF00);
    std::vector<int> counts;
    for (int y = 0; y < 25; ++y) {
        int x = 0;
        while (grid.at(x, y) == 0) ++x;
        if (x == 0) break;
        counts.push_back(x);
    }
    return counts;
}

TEST(DrawingTest, RoundCornersHaveTheirMeasuredLines) {
    const struct {
        std::vector<int> diameters;
        std::vector<int> expected;
    } kRows[] = {
        {{-3, 0, 1, 2}, {}},
        {{3, 4, 5}, {1}},
        {{6, 7, 8}, {2, 1}},
        {{9}, {3, 1, 1}},
        {{10, 11}, {3, 2, 1}},
        {{12}, {4, 2, 1, 1}},
        {{13}, {4, 3, 2, 1}},
        {{14, 15}, {5, 3, 2, 1, 1}},
        {{16}, {5, 4, 2, 2, 1}},
        {{17}, {6, 4, 3, 2, 1, 1}},
        {{18}, {6, 4, 3, 2, 1, 1}},
        {{19}, {7, 5, 3, 2, 2, 1, 1}},
        {{20, 21}, {7, 5, 4, 3, 2, 1, 1}},
        {{22}, {8, 6, 4, 3, 2, 2, 1, 1}},
        {{23}, {8, 6, 5, 3, 3, 2, 1, 1}},
        {{24}, {9, 6, 5, 4, 3, 2, 1, 1, 1}},
    };
    for (const auto& row : kRows) {
        for (const int d : row.diameters) EXPECT_EQ(emptyPixels(d), row.expected) << "diameter " << d;
    }
}

TEST(DrawingTest, RoundedBoxesAreOutlinedAndFilled) {
    const struct {
        const char* what;
        Rect rect;
        int cornerWidth, cornerHeight, thickness;
        std::vector<std::string> expected;
    } kRows[] = {
        {"corners",
         {0, 0, 12, 6},
         6,
         6,
         1,
         {"..########..", ".#oooooooo#.", "#oooooooooo#", "#oooooooooo#", ".#oooooooo#.", "..########.."}},
        {"a disc",
         {0, 0, 16, 16},
         16,
         16,
         1,
         {".....######.....", "....#oooooo#....", "..##oooooooo##..", "..#oooooooooo#..", ".#oooooooooooo#.",
          "#oooooooooooooo#", "#oooooooooooooo#", "#oooooooooooooo#", "#oooooooooooooo#", "#oooooooooooooo#",
          "#oooooooooooooo#", ".#oooooooooooo#.", "..#oooooooooo#..", "..##oooooooo##..", "....#oooooo#....",
          ".....######....."}},
        {"odd, corners cut to it",
         {1, 0, 6, 5},
         99,
         99,
         1,
         {"..###..", ".#ooo#.", ".#ooo#.", ".#ooo#.", "..###.."}},
        {"square", {1, 1, 5, 4}, 2, 9, 1, {"......", ".####.", ".#oo#.", ".####."}},
        {"cut at the left and top", {-6, -3, 4, 3}, 6, 6, 1, {"ooo#.", "oo#..", "##...", "....."}},
        {"one pixel wide", {1, 0, 2, 4}, 0, 0, 1, {"...", "..."}},
        {"one pixel high", {0, 1, 4, 2}, 0, 0, 1, {"...", "..."}},
        {"smallest", {0, 0, 2, 2}, 0, 0, 1, {"##.", "##."}},
        {"inverted", {4, 4, 1, 1}, 0, 0, 1, {"....", "...."}},
        {"thick",
         {0, 0, 9, 6},
         6,
         6,
         2,
         {"..#####..", ".#######.", "##ooooo##", "##ooooo##", ".#######.", "..#####.."}},
    };
    for (const RowOrder order : kOrders) {
        for (const auto& row : kRows) {
            const auto expected =
                PictureGrid::fromLetters(row.expected, RowOrder::TopDown, {{'#', 0x112233}, {'o', 0x445566}});
            PictureGrid grid(expected.width(), expected.height(), order);
            grid.context().RoundRect(row.rect, row.cornerWidth, row.cornerHeight, 0x332211, 0x665544,
                                     row.thickness);
            EXPECT_EQ(grid, expected) << row.what;
        }
    }
}

// Corners wider than high and higher than wide: closed outlines, mirrored, nothing outside.
TEST(DrawingTest, EveryEllipseIsClosed) {
    for (int w = 2; w <= 14; ++w) {
        for (int h = 2; h <= 14; ++h) {
            PictureGrid grid(w + 2, h + 2);
            grid.context().RoundRect({1, 1, w + 1, h + 1}, w, h, 0x0000FF, 0x00FF00);
            for (int y = 0; y < h + 2; ++y) {
                for (int x = 0; x < w + 2; ++x) {
                    const std::uint32_t pixel = grid.at(x, y);
                    const bool isBeside = x == 0 || y == 0 || x == w + 1 || y == h + 1;
                    ASSERT_TRUE(!isBeside || pixel == 0) << w << " x " << h << '\n' << grid.toString();
                    ASSERT_EQ(pixel, grid.at(w + 1 - x, y)) << w << " x " << h;
                    ASSERT_EQ(pixel, grid.at(x, h + 1 - y)) << w << " x " << h;
                    if (pixel != 0x00FF00) continue;
                    const std::uint32_t neighbours[] = {grid.at(x - 1, y), grid.at(x + 1, y),
                                                        grid.at(x, y - 1), grid.at(x, y + 1)};
                    for (const std::uint32_t n : neighbours) ASSERT_NE(n, 0U) << w << " x " << h;
                }
            }
        }
    }
}

TEST(DrawingTest, APartIsATargetOfItsOwn) {
    for (const RowOrder order : kOrders) {
        PictureGrid grid(6, 4, order);
        DeviceContext whole = grid.context();
        DeviceContext part = whole.part({2, 1, 5, 9});
        EXPECT_EQ(part.width(), 3);
        EXPECT_EQ(part.height(), 3);
        part.FillRect({-5, -5, 9, 9}, 0x332211);
        part.part({1, 1, 9, 2}).FillRect({0, 0, 1, 9}, 0x665544);
        const PictureGrid expected = PictureGrid::fromLetters({"......", "..aaa.", "..aba.", "..aaa."}, order,
                                                              {{'a', 0x112233}, {'b', 0x445566}});
        EXPECT_EQ(grid, expected);
        for (const Rect& nothing :
             {Rect{6, 0, 9, 4}, Rect{-3, 0, 0, 4}, Rect{2, 3, 2, 4}, Rect{4, 2, 1, 0}}) {
            DeviceContext none = whole.part(nothing);
            EXPECT_EQ(none.width() * none.height(), 0);
            none.FillRect({0, 0, 9, 9}, 0);
            none.BitBlt(0, 0, 6, 4, whole, 0, 0);
            whole.BitBlt(0, 0, 6, 4, none, 0, 0);
        }
        EXPECT_EQ(grid, expected);
    }
}

// Two parts of one surface, often over each other.
TEST(DrawingTest, BlitsBetweenPartsReadTheSourceFirst) {
    std::mt19937 random(31);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    const auto rect = [&] {
        const int left = number(0, 6);
        const int top = number(0, 6);
        return Rect{left, top, left + number(1, 5), top + number(1, 5)};
    };
    for (int i = 0; i < 6000 && !testing::Test::HasFailure(); ++i) {
        PictureGrid grid = PictureGrid::numbered(8, 8, kOrders[i % 2]);
        const PictureGrid before = grid;
        PictureGrid expected = grid;
        const Rect from = i % 4 == 0 ? Rect{1, 1, 6, 7} : rect();
        const Rect to = i % 4 == 0 ? from : rect();
        DeviceContext whole = grid.context();
        DeviceContext target = whole.part(to);
        const DeviceContext source = whole.part(from);
        const bool mirrors = i % 3 == 0;
        const int width = std::min(source.width(), target.width());
        const int height = std::min(source.height(), target.height());
        const int shift = i % 5 == 0 ? 1 : 0;
        target.StretchBlt(mirrors ? width - 1 : shift, 0, mirrors ? -width : width, height, source, 0, 0,
                          width, height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int column = mirrors ? width - 1 - x : shift + x;
                if (column >= target.width()) continue;
                expected.set(to.left + column, to.top + y, before.at(from.left + x, from.top + y));
            }
        }
        EXPECT_EQ(grid, expected) << "call " << i;
    }
}

}  // namespace
}  // namespace mobrel
