// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <vector>

#include "canvas/cFrame.hpp"
#include "support/PictureGrid.hpp"
#include "support/PrintRect.hpp"

namespace mobrel {

namespace {

using test::PictureGrid;
using Rows = std::vector<std::string>;

TEST(cFrame, PutsSidesInOrderAndCutsThemToTheBounds) {
    const struct {
        Rect given;
        std::optional<Rect> uncut, cut;
    } cases[] = {
        {{2, 3, 7, 8}, Rect{2, 3, 7, 8}, Rect{2, 3, 7, 8}},
        {{7, 8, 2, 3}, Rect{2, 3, 7, 8}, Rect{2, 3, 7, 8}},
        {{-5, 4, 30, -2}, Rect{-5, -2, 30, 4}, Rect{0, 0, 20, 4}},
        {{0, 0, 20, 10}, Rect{0, 0, 20, 10}, Rect{0, 0, 20, 10}},
        {{25, 2, 30, 5}, Rect{25, 2, 30, 5}, std::nullopt},
        {{4, 2, 4, 5}, std::nullopt, std::nullopt},
    };
    for (const auto& [given, uncut, cut] : cases) {
        cFrame frame;
        frame.Init(0, 0, 20, 10);
        frame.SetFrameRect(given.left, given.top, given.right, given.bottom, false);
        EXPECT_EQ(frame.GetFrameRect(false), uncut);
        EXPECT_EQ(frame.IsFrameEmpty(), !uncut);
        frame.SetFrameRect(given.left, given.top, given.right, given.bottom, true);
        EXPECT_EQ(frame.GetFrameRect(false), cut);
        frame.Clear();
        EXPECT_TRUE(frame.IsFrameEmpty());
    }
}

TEST(cFrame, ScalesEachSideWithTiesToEven) {
    cFrame frame;
    frame.SetFrameRect(1, 3, 5, 7, false);
    frame.setScaleFactor(0.5F);
    EXPECT_EQ(frame.GetFrameRect(true), (Rect{0, 2, 2, 4}));
    frame.setScaleFactor(3);
    EXPECT_EQ(frame.GetFrameRect(true), (Rect{3, 9, 15, 21}));
    frame.Offset(-2, 1);
    EXPECT_EQ(frame.GetFrameRect(true), (Rect{-3, 12, 9, 24}));
    frame.setScaleFactor(0);
    EXPECT_EQ(frame.ScaleFactor(), 0.001F);
    constexpr int kMost = std::numeric_limits<int>::max();
    frame.SetFrameRect(-kMost, 0, kMost, 1, false);
    frame.setScaleFactor(100);
    EXPECT_EQ(frame.GetFrameRect(true), (Rect{-kMost - 1, 0, kMost, 100}));
}

/// White W, black k; what the picture holds is a dot.
Rows outlineOf(const cFrame& frame, int xOffset, int yOffset) {
    PictureGrid grid(14, 6);
    grid.fill([](int, int) { return 0x00336699U; });
    DeviceContext target = grid.context();
    frame.PaintToDC(target, xOffset, yOffset);
    Rows rows(6);
    for (int y = 0; y < 6; ++y) {
        for (int x = 0; x < 14; ++x) {
            const std::uint32_t pixel = grid.at(x, y);
            rows[static_cast<std::size_t>(y)] += pixel == 0xFFFFFF ? 'W' : pixel == 0 ? 'k' : '.';
        }
    }
    EXPECT_TRUE(grid.isGuardIntact());
    return rows;
}

TEST(cFrame, DrawsStripesThatHoldToTheTarget) {
    cFrame frame;
    EXPECT_EQ(outlineOf(frame, 0, 0), Rows(6, ".............."));
    frame.SetFrameRect(1, 1, 6, 3, false);
    frame.setScaleFactor(2);
    const Rows atItsPlace = {"..............", "..............", "..WWkkWWkkWW..",
                             "..k........W..", "..k........k..", "..WkkWWkkWWk.."};
    EXPECT_EQ(outlineOf(frame, 0, 0), atItsPlace);
    // moved by (-2, -1), and cut at the left
    const Rows moved = {"..............", "kWWkkWWkkW....", "k........k....",
                        "W........k....", "WWkkWWkkWW....", ".............."};
    EXPECT_EQ(outlineOf(frame, -2, -1), moved);
}

TEST(cFrame, HasEightPhasesOfStripes) {
    cFrame frame;
    frame.SetFrameRect(0, 0, 8, 1, false);
    const std::vector<std::string> phases = {"WWkkWWkk", "kWWkkWWk", "kkWWkkWW", "WkkWWkkW"};
    for (std::size_t k = 0; k < 17; ++k) {
        EXPECT_EQ(outlineOf(frame, 0, 0)[0], phases[k % 4] + "......") << k;
        frame.RotateBrush();
    }
}

}  // namespace
}  // namespace mobrel
