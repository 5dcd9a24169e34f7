// SPDX-License-Identifier: MIT
// The drawing target: mapping rule, clipping, row orders, calls onto the same memory, rectangles.
#include "platform/drawing/DeviceContext.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "support/PictureGrid.hpp"

namespace mobrel {
namespace {

using test::PictureGrid;

constexpr RowOrder kOrders[] = {RowOrder::TopDown, RowOrder::BottomUp};
constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

/// The numbers of one call: target and source rectangle.
struct Blt {
    int x, y, width, height;
    int xSource, ySource, sourceWidth, sourceHeight;
};

void stretch(DeviceContext& target, const DeviceContext& source, const Blt& b) {
    target.StretchBlt(b.x, b.y, b.width, b.height, source, b.xSource, b.ySource, b.sourceWidth,
                      b.sourceHeight);
}

/// Calls visit(target, source) for each pixel of a side, clipped by nothing.
template <typename Visit>
void walkSide(int origin, int size, int sourceOrigin, int sourceSize, Visit&& visit) {
    if (sourceSize == 0) return;
    for (int d = 0; d < std::abs(size); ++d) {
        const int m = ((2 * d + 1) * std::abs(sourceSize) - 1) / (2 * std::abs(size));
        visit(size < 0 ? origin - d : origin + d, sourceSize < 0 ? sourceOrigin - m : sourceOrigin + m);
    }
}

/// The rule pixel by pixel, from an untouched source.
void stretchSlowly(PictureGrid& target, const PictureGrid& source, const Blt& b) {
    const auto isOn = [](const PictureGrid& grid, int x, int y) {
        return x >= 0 && y >= 0 && x < grid.width() && y < grid.height();
    };
    walkSide(b.y, b.height, b.ySource, b.sourceHeight, [&](int y, int ySource) {
        walkSide(b.x, b.width, b.xSource, b.sourceWidth, [&](int x, int xSource) {
            if (isOn(target, x, y) && isOn(source, xSource, ySource)) {
                target.set(x, y, source.at(xSource, ySource));
            }
        });
    });
}

class RandomBlts {
 public:
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    RowOrder order() { return kOrders[number(0, 1)]; }
    Blt rectangles(const DeviceContext& target, const DeviceContext& source) {
        const auto [x, width] = side(target.width());
        const auto [y, height] = side(target.height());
        const auto [xSource, sourceWidth] = side(source.width());
        const auto [ySource, sourceHeight] = side(source.height());
        return {x, y, width, height, xSource, ySource, sourceWidth, sourceHeight};
    }

 private:
    /// Origin and size: a third anywhere, the rest the whole side forwards or backwards, or 1 off it.
    std::pair<int, int> side(int extent) {
        if (number(0, 2) == 0) return {number(-5, 12), number(-12, 14)};
        const int origin = number(-3, 3) / 3;
        const int size = extent + number(-3, 3) / 3;
        return number(0, 1) == 0 ? std::pair(origin, size) : std::pair(extent - 1 + origin, -size);
    }

    std::mt19937 m_random{20240229};
};

std::string describe(const Blt& b) {
    std::ostringstream out;
    out << "target " << b.x << ' ' << b.y << ' ' << b.width << ' ' << b.height << ", source " << b.xSource
        << ' ' << b.ySource << ' ' << b.sourceWidth << ' ' << b.sourceHeight;
    return out.str();
}

TEST(DeviceContextTest, StretchTakesThePixelUnderTheCentre) {
    const struct {
        int source, target, from;
        std::vector<std::uint32_t> expected;
    } kRows[] = {
        {7, 3, 0, {1, 3, 5}},
        {3, 7, 0, {0, 0, 1, 1, 1, 2, 2}},
        {5, 16, 0, {0, 0, 0, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 4, 4, 4}},
        {1, 4, 0, {0, 0, 0, 0}},
        {5, 1, 0, {2}},
        {2, 1, 0, {0}},
        {4, 2, 0, {0, 2}},
        {640, 150, 0, {2, 6, 10, 14, 19, 23}},
        {640, 150, 147, {629, 633, 637}},
        {99, 100, 0, {0, 1, 2, 3}},
        {99, 100, 48, {48, 49, 49, 50}},
        {99, 100, 97, {96, 97, 98}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(std::to_string(row.source) + " to " + std::to_string(row.target));
        PictureGrid wideSource = PictureGrid::numbered(row.source, 1, RowOrder::TopDown, 1000);
        PictureGrid tallSource = PictureGrid::numbered(1, row.source, RowOrder::BottomUp, 1000);
        PictureGrid wide(row.target, 1);
        PictureGrid tall(1, row.target);
        DeviceContext wideTarget = wide.context();
        DeviceContext tallTarget = tall.context();
        EXPECT_EQ(wideTarget.GetStretchBltMode(), StretchMode::BlackOnWhite);
        tallTarget.SetStretchBltMode(StretchMode::ColorOnColor);
        EXPECT_EQ(tallTarget.GetStretchBltMode(), StretchMode::ColorOnColor);
        stretch(wideTarget, wideSource.context(), {0, 0, row.target, 1, 0, 0, row.source, 1});
        stretch(tallTarget, tallSource.context(), {0, 0, 1, row.target, 0, 0, 1, row.source});
        for (int i = 0; i < static_cast<int>(row.expected.size()); ++i) {
            const std::uint32_t expected = 1000 + row.expected[static_cast<std::size_t>(i)];
            EXPECT_EQ(wide.at(row.from + i, 0), expected) << "column " << row.from + i;
            EXPECT_EQ(tall.at(0, row.from + i), expected) << "line " << row.from + i;
        }
    }
}

TEST(DeviceContextTest, StretchCountsLinesFromTheTopInEveryRowOrder) {
    for (const RowOrder sourceOrder : kOrders) {
        for (const RowOrder targetOrder : kOrders) {
            PictureGrid source = PictureGrid::fromLetters({"zzzz", "zabz", "zcdz", "zefz"}, sourceOrder);
            PictureGrid target =
                PictureGrid::fromLetters({"......", "......", "......", "......", "......"}, targetOrder);
            DeviceContext context = target.context();
            stretch(context, source.context(), {1, 0, 4, 4, 1, 1, 2, 3});
            EXPECT_EQ(target, PictureGrid::fromLetters({".aabb.", ".ccdd.", ".ccdd.", ".eeff.", "......"}));
        }
    }
}

TEST(DeviceContextTest, ClippingAndNegativeSizesKeepTheMapping) {
    const struct {
        const char* what;
        Blt blt;
        const char* expected;
    } kRows[] = {
        {"left of the target", {-2, 0, 8, 1, 0, 0, 4, 1}, "bbccdd"},
        {"left of the source", {0, 0, 6, 1, -2, 0, 6, 1}, "..abcd"},
        {"right of the source", {0, 0, 6, 1, 2, 0, 3, 1}, "ccdd.."},
        {"target leftwards", {3, 0, -4, 1, 0, 0, 4, 1}, "dcba.."},
        {"target leftwards, origin one too far", {4, 0, -4, 1, 0, 0, 4, 1}, ".dcba."},
        {"source leftwards", {0, 0, 4, 1, 3, 0, -4, 1}, "dcba.."},
        {"source leftwards, origin one too far", {0, 0, 4, 1, 4, 0, -4, 1}, ".dcb.."},
        {"tie while enlarging leftwards", {5, 0, -6, 1, 0, 0, 4, 1}, "dccbaa"},
        {"no source width", {0, 0, 6, 1, 0, 0, 0, 1}, "......"},
        {"widest target", {-kMax + 1, 0, kMax, 1, 0, 0, 4, 1}, "d....."},
        {"widest target leftwards", {5, 0, kMin, 1, 0, 0, 4, 1}, "aaaaaa"},
        {"widest source", {0, 0, 1, 1, -0x3FFFFFFF, 0, kMax, 1}, "a....."},
        {"widest both", {kMin, 0, kMax, 1, kMin, 0, kMax, 1}, "......"},
        {"furthest source", {kMax, 0, kMin, 1, kMin, 0, kMin, 1}, "......"},
        {"all extremes", {kMax, 0, kMin, 1, kMax, 0, kMin, 1}, "abcd.."},
    };
    for (const auto& row : kRows) {
        PictureGrid source = PictureGrid::fromLetters({"abcd"});
        PictureGrid target = PictureGrid::fromLetters({"......"});
        DeviceContext context = target.context();
        stretch(context, source.context(), row.blt);
        EXPECT_EQ(target, PictureGrid::fromLetters({row.expected})) << row.what;
    }
}

// Half of the sources lie in the target's own memory: the same surface, or a part in any row order.
TEST(DeviceContextTest, AnyCallEqualsReadingTheSourceFirst) {
    RandomBlts random;
    for (int i = 0; i < 16000 && !HasFailure(); ++i) {
        PictureGrid target = PictureGrid::numbered(random.number(1, 9), random.number(1, 9), random.order());
        PictureGrid other =
            PictureGrid::numbered(random.number(1, 9), random.number(1, 9), random.order(), 0x11000000);
        const bool isShared = i % 2 == 0;
        const bool isPart = i % 3 == 0;
        const int skipped = isPart ? random.number(0, target.height() - 1) : 0;
        const int width = isPart ? random.number(1, target.width()) : target.width();
        const int height = isPart ? random.number(1, target.height() - skipped) : target.height();
        const DeviceContext source = isShared
                                         ? DeviceContext(target.bits() + skipped * target.width() * 4, width,
                                                         height, isPart ? random.order() : target.order())
                                         : other.context();
        PictureGrid sourceBefore(source.width(), source.height());
        for (int y = 0; y < source.height(); ++y) {
            std::copy_n(source.line(y), source.width() * 4, sourceBefore.bits() + y * source.width() * 4);
        }
        PictureGrid expected = target;
        DeviceContext context = target.context();
        Blt blt = random.rectangles(target.context(), source);
        if (i % 4 < 2) {
            stretch(context, source, blt);
        } else {
            blt.sourceWidth = blt.width;
            blt.sourceHeight = blt.height;
            context.BitBlt(blt.x, blt.y, blt.width, blt.height, source, blt.xSource, blt.ySource);
        }
        stretchSlowly(expected, sourceBefore, blt);
        EXPECT_EQ(target, expected) << "call " << i << ": " << describe(blt);
        EXPECT_TRUE(isShared || other == sourceBefore) << "call " << i << " writes to its source";
    }
}

// Views begin and end inside a source pixel, and are wide enough for vectors.
TEST(DeviceContextTest, WholeEnlargementsEqualTheRule) {
    PictureGrid source = PictureGrid::numbered(45, 3, RowOrder::BottomUp);
    for (int zoom = 2; zoom <= 18; ++zoom) {
        for (int x = 3; x >= -2 * zoom; x -= 2) {
            for (const int width : {70, 93, 45 * zoom + x, 45 * zoom + 9}) {
                const Blt blt{x, -1, 45 * zoom, 3 * zoom, 0, 0, 45, 3};
                PictureGrid target(width, 7);
                PictureGrid expected(width, 7);
                DeviceContext context = target.context();
                stretch(context, source.context(), blt);
                stretchSlowly(expected, source, blt);
                ASSERT_TRUE(target == expected)
                    << "zoom " << zoom << ", " << width << " wide: " << describe(blt);
            }
        }
    }
}

TEST(DeviceContextTest, MirrorsInPlaceAreExactForEverySize) {
    for (const RowOrder order : kOrders) {
        for (int w = 1; w <= 12; ++w) {
            for (int h = 1; h <= 12; ++h) {
                const struct {
                    Blt blt;
                    bool leftRight, topBottom;
                } kMirrors[] = {
                    {{w - 1, 0, -w, h, 0, 0, w, h}, true, false},
                    {{0, h - 1, w, -h, 0, 0, w, h}, false, true},
                    {{w - 1, h - 1, -w, -h, 0, 0, w, h}, true, true},
                    {{0, 0, w, h, w - 1, 0, -w, h}, true, false},
                    {{0, 0, w, h, 0, 0, w, h}, false, false},
                };
                for (const auto& mirror : kMirrors) {
                    PictureGrid picture = PictureGrid::numbered(w, h, order);
                    PictureGrid expected(w, h);
                    expected.fill([&](int x, int y) {
                        return picture.at(mirror.leftRight ? w - 1 - x : x, mirror.topBottom ? h - 1 - y : y);
                    });
                    DeviceContext context = picture.context();
                    stretch(context, context, mirror.blt);
                    ASSERT_EQ(picture, expected) << describe(mirror.blt);
                }
            }
        }
    }
}

/// What FillRect and FrameRect make of a rectangle on a picture of 5 x 4.
const struct {
    Rect rect;
    std::vector<std::string> filled, framed;
} kRectangles[] = {
    {{0, 0, 5, 4}, {"XXXXX", "XXXXX", "XXXXX", "XXXXX"}, {"XXXXX", "X...X", "X...X", "XXXXX"}},
    {{1, 0, 4, 3}, {".XXX.", ".XXX.", ".XXX.", "....."}, {".XXX.", ".X.X.", ".XXX.", "....."}},
    {{2, 1, 3, 2}, {".....", "..X..", ".....", "....."}, {".....", "..X..", ".....", "....."}},
    {{2, 1, 4, 3}, {".....", "..XX.", "..XX.", "....."}, {".....", "..XX.", "..XX.", "....."}},
    {{-1, 1, 3, 9}, {".....", "XXX..", "XXX..", "XXX.."}, {".....", "XXX..", "..X..", "..X.."}},
    {{2, kMin, kMax, 3}, {"..XXX", "..XXX", "..XXX", "....."}, {"..X..", "..X..", "..XXX", "....."}},
    {{-1, -1, 6, 5}, {"XXXXX", "XXXXX", "XXXXX", "XXXXX"}, {".....", ".....", ".....", "....."}},
    {{5, 0, 9, 4}, {".....", ".....", ".....", "....."}, {".....", ".....", ".....", "....."}},
    {{2, 1, 2, 4}, {".....", ".....", ".....", "....."}, {".....", ".....", ".....", "....."}},
    {{1, 2, 4, 2}, {".....", ".....", ".....", "....."}, {".....", ".....", ".....", "....."}},
    {{3, 0, 1, 4}, {".....", ".....", ".....", "....."}, {".....", ".....", ".....", "....."}},
    {{kMax, 0, kMin, 4}, {".....", ".....", ".....", "....."}, {".....", ".....", ".....", "....."}},
};

TEST(DeviceContextTest, RectanglesAreClippedAndFramesLieInside) {
    for (const RowOrder order : kOrders) {
        for (const auto& row : kRectangles) {
            const auto [left, top, right, bottom] = row.rect;
            SCOPED_TRACE(testing::Message() << left << ' ' << top << ' ' << right << ' ' << bottom);
            PictureGrid filled(5, 4, order);
            PictureGrid framed(5, 4, order);
            filled.context().FillRect(row.rect, 0x332211);
            framed.context().FrameRect(row.rect, 0x332211);
            EXPECT_EQ(filled, PictureGrid::fromLetters(row.filled, order, {{'X', 0x112233}}));
            EXPECT_EQ(framed, PictureGrid::fromLetters(row.framed, order, {{'X', 0x112233}}));
        }
    }
}

TEST(DeviceContextTest, FillingClearsByteThree) {
    PictureGrid picture = PictureGrid::fromNumbers({{0x80010203, 0x80040506}});
    picture.context().FillRect({1, 0, 2, 1}, 0xFF332211);
    EXPECT_EQ(picture, PictureGrid::fromNumbers({{0x80010203, 0x00112233}}));
}

}  // namespace
}  // namespace mobrel
