// SPDX-License-Identifier: MIT
// What is drawn in system colours, and the focus rectangle, pixel by pixel.
#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "platform/drawing/DeviceContext.hpp"
#include "platform/drawing/SystemColors.hpp"
#include "support/PictureGrid.hpp"

namespace mobrel {
namespace {

using test::PictureGrid;

constexpr RowOrder kOrders[] = {RowOrder::TopDown, RowOrder::BottomUp};
constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

/// Gives each system colour a value of its own; in the classic scheme some are alike.
class EdgesTest : public testing::Test, private SystemColors {
 protected:
    EdgesTest() { setSystemColors(this); }
    ~EdgesTest() override { setSystemColors(nullptr); }

    /// Letters of the pictures here, and the pixels they stand for.
    static std::map<char, std::uint32_t> letters() {
        const std::map<char, int> indexes = {{'f', 15}, {'s', 16}, {'h', 20}, {'d', 21}, {'l', 22}};
        std::map<char, std::uint32_t> pixels;
        for (const auto& [letter, index] : indexes) pixels[letter] = 0x304000U + static_cast<unsigned>(index);
        return pixels;
    }
    static PictureGrid picture(const std::vector<std::string>& rows) {
        return PictureGrid::fromLetters(rows, RowOrder::TopDown, letters());
    }

 private:
    Color color(SystemColor index) const override { return static_cast<Color>(index) << 16 | 0x4030; }
};

TEST_F(EdgesTest, EdgesHaveTheirRingsAndCornersOfTheBottomAndRight) {
    const struct {
        Edge edge;
        Rect rect;
        int thickness;
        std::vector<std::string> expected;
    } kRows[] = {
        {Edge::Sunken, {0, 0, 6, 6}, 1, {"sssssh", "sdddlh", "sd..lh", "sd..lh", "sllllh", "hhhhhh"}},
        {Edge::Raised, {0, 0, 6, 6}, 1, {"lllllD", "lhhhsD", "lh..sD", "lh..sD", "lssssD", "DDDDDD"}},
        {Edge::SunkenOuter, {1, 1, 5, 5}, 1, {"......", ".sssh.", ".s..h.", ".s..h.", ".hhhh.", "......"}},
        {Edge::RaisedInner, {1, 1, 5, 5}, 1, {"......", ".hhhs.", ".h..s.", ".h..s.", ".ssss.", "......"}},
        {Edge::RaisedOuter, {1, 1, 5, 5}, 1, {"......", ".lllD.", ".l..D.", ".l..D.", ".DDDD.", "......"}},
        {Edge::SunkenInner, {1, 1, 5, 5}, 1, {"......", ".dddl.", ".d..l.", ".d..l.", ".llll.", "......"}},
        {Edge::SunkenOuter, {0, 0, 6, 6}, 2, {"sssshh", "sssshh", "ss..hh", "ss..hh", "hhhhhh", "hhhhhh"}},
        {Edge::SunkenOuter, {1, 1, 5, 5}, -1, {"......", ".sssh.", ".s..h.", ".s..h.", ".hhhh.", "......"}},
        {Edge::None, {0, 0, 6, 6}, 1, {"......", "......", "......", "......", "......", "......"}},
        {Edge::Sunken, {-1, -1, 3, 9}, 1, {"dlh...", "dlh...", "dlh...", "dlh...", "dlh...", "dlh..."}},
        {Edge::Sunken, {3, 3, kMax, kMax}, 1, {"......", "......", "......", "...sss", "...sdd", "...sd."}},
        {Edge::Sunken, {1, 1, 4, 2}, 1, {"......", ".hhh..", "......", "......", "......", "......"}},
        {Edge::Sunken, {1, 1, 4, 4}, 2, {"......", ".shh..", ".hhh..", ".hhh..", "......", "......"}},
        {Edge::Sunken, {4, 4, 2, 5}, 1, {"......", "......", "......", "......", "......", "......"}},
    };
    for (const RowOrder order : kOrders) {
        int number = 0;
        for (const auto& row : kRows) {
            std::vector<std::string> expected = row.expected;
            for (std::string& line : expected) {
                for (char& letter : line) letter = letter == 'D' ? 'd' : letter;
            }
            PictureGrid grid(6, 6, order);
            grid.context().DrawEdge(row.rect, row.edge, row.thickness);
            EXPECT_EQ(grid, picture(expected)) << "row " << number;
            ++number;
        }
    }
}

TEST_F(EdgesTest, GripsStandInTheLowerRightCorner) {
    const struct {
        Rect rect;
        int thickness;
        std::vector<std::string> expected;
    } kRows[] = {
        {{0, 0, 9, 5}, 1, {"hssfhssfh", "ssfhssfhs", "sfhssfhss", "fhssfhssf", "hssfhssff"}},
        {{1, 0, 9, 3}, 2, {".hhssssff", ".ssssffff", ".ssssffff"}},
        {{7, -1, 12, 2}, 0, {".......fh", ".......hs", "........."}},
        {{3, 1, 3, 9}, 1, {"...", "..."}},
        {{9, 9, 2, 2}, 1, {"...", "..."}},
    };
    for (const auto& row : kRows) {
        PictureGrid expected = picture(row.expected);
        PictureGrid grid(expected.width(), expected.height());
        grid.context().DrawSizeGrip(row.rect, row.thickness);
        EXPECT_EQ(grid, expected) << "rectangle at " << row.rect.left << ' ' << row.rect.top;
    }
}

TEST_F(EdgesTest, GripsHaveThreeBands) {
    PictureGrid grid(18, 1);
    grid.context().DrawSizeGrip({0, -17, 18, 1});
    EXPECT_EQ(grid, picture({"fffffhssfhssfhssff"}));
}

/// The picture of a focus rectangle on black: # is an inverted pixel.
PictureGrid inverted(const std::vector<std::string>& rows) {
    return PictureGrid::fromLetters(rows, RowOrder::TopDown, {{'#', 0x00FFFFFF}});
}

TEST(FocusRectTest, EverySecondPixelOfTheOutlineIsInverted) {
    const struct {
        const char* what;
        Rect rect;
        int thickness;
        std::vector<std::string> expected;
    } kRows[] = {
        {"even sides",
         {0, 0, 10, 8},
         1,
         {".#.#.#.#.#", "#.........", ".........#", "#.........", ".........#", "#.........", ".........#",
          "#.#.#.#.#."}},
        {"odd sides",
         {2, 1, 9, 6},
         1,
         {".........", "..#.#.#.#", ".........", "..#.....#", ".........", "..#.#.#.#", "........."}},
        {"inverted",
         {9, 6, 2, 1},
         1,
         {".........", "..#.#.#.#", ".........", "..#.....#", ".........", "..#.#.#.#", "........."}},
        {"cut at the left and top",
         {-3, -2, 7, 6},
         1,
         {"......#.", "........", "......#.", "........", "......#.", ".#.#.#..", "........"}},
        {"cut at the right and bottom", {1, 1, 11, 9}, 1, {"....", "..#.", ".#..", "....", ".#.."}},
        {"widest", {kMin, 1, kMax, kMax}, 1, {"....", "#.#.", "....", "...."}},
        {"one pixel", {1, 1, 2, 2}, 1, {"...", "...", "..."}},
        {"one line, no thickness", {1, 1, 7, 2}, 0, {"........", "......#.", "........"}},
        {"no width", {1, 1, 1, 3}, 1, {"...", "...", "..."}},
        {"thick", {0, 0, 7, 6}, 2, {"..#..##", "..#..##", "##.....", "##.....", "..##.##", "..##.##"}},
    };
    for (const RowOrder order : kOrders) {
        for (const auto& row : kRows) {
            const PictureGrid expected = inverted(row.expected);
            PictureGrid grid(expected.width(), expected.height(), order);
            grid.context().DrawFocusRect(row.rect, row.thickness);
            EXPECT_EQ(grid, expected) << row.what;
        }
    }
}

TEST(FocusRectTest, ASecondCallBringsThePictureBack) {
    std::mt19937 random(7);
    const auto number = [&](int low, int high) { return std::uniform_int_distribution(low, high)(random); };
    for (int i = 0; i < 3000 && !testing::Test::HasFailure(); ++i) {
        PictureGrid grid = PictureGrid::numbered(number(1, 12), number(1, 12));
        const PictureGrid before = grid;
        const Rect rect{number(-4, 14), number(-4, 14), number(-4, 14), number(-4, 14)};
        const int thickness = number(1, 4);
        DeviceContext target = grid.context();
        target.DrawFocusRect(rect, thickness);
        target.DrawFocusRect(rect, thickness);
        EXPECT_EQ(grid, before) << rect.left << ' ' << rect.top << ' ' << rect.right << ' ' << rect.bottom;
    }
}

}  // namespace
}  // namespace mobrel
