// SPDX-License-Identifier: MIT
#include "imaging/CDIBb.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "support/PictureGrid.hpp"

namespace mobrel {
namespace {

using test::PictureGrid;
using Bytes = std::vector<int>;
using Lines = std::vector<std::vector<std::uint32_t>>;
using Operation = std::function<void(CDIBb&)>;

constexpr RasterOperation kSrcCopy = RasterOperation::SrcCopy;

Bytes memory(CDIBb& surface) {
    MappedBytes bytes;
    surface.MapArray(bytes);
    Bytes values;
    for (int i = 1; i <= bytes.upperBound(); ++i) values.push_back(bytes[i]);
    return values;
}

/// Makes the surface with these bytes, padding included.
void setMemory(CDIBb& surface, int width, int height, const Bytes& values) {
    surface.Create(width, height);
    MappedBytes bytes;
    surface.MapArray(bytes);
    ASSERT_EQ(static_cast<std::size_t>(bytes.upperBound()), values.size());
    for (int i = 1; const int value : values) bytes[i++] = static_cast<std::uint8_t>(value);
}

/// Pixels as 0xRRGGBB, line by line from the top.
Lines pixels(const DeviceContext& target) {
    Lines lines;
    for (int y = 0; y < target.height(); ++y) {
        const std::uint8_t* p = target.line(y);
        auto& line = lines.emplace_back();
        for (int x = 0; x < target.width(); ++x, p += 4) {
            line.push_back(static_cast<std::uint32_t>(p[0] | p[1] << 8 | p[2] << 16));
        }
    }
    return lines;
}

/// Makes the surface with these pixels.
void setPixels(CDIBb& surface, const Lines& lines) {
    PictureGrid grid = PictureGrid::fromNumbers(lines);
    surface.Create(grid.width(), grid.height());
    surface.CloneHDC(grid.context(), kSrcCopy, 0, 0);
}

void expectError(int expected, const std::function<void()>& statement) {
    try {
        statement();
        ADD_FAILURE() << "no error " << expected;
    } catch (const RuntimeError& error) {
        EXPECT_EQ(static_cast<int>(error.number()), expected) << error.what();
    }
}

TEST(CDIBb, CreatePadsRowsToFourBytes) {
    CDIBb surface;
    MappedBytes bytes;
    for (const auto& [width, height, rowBytes] : {std::tuple(1, 1, 4), {2, 1, 8}, {3, 5, 12}, {4, 2, 12}}) {
        surface.Create(width, height);
        EXPECT_EQ(memory(surface), Bytes(static_cast<std::size_t>(rowBytes * height), 0));
        EXPECT_EQ(surface.MapArray(bytes), rowBytes) << width;
        bytes[1] = 9;  // does not outlast the next Create
    }
    expectError(9, [&] { bytes[0] = 1; });
    expectError(9, [&] { bytes[25] = 1; });
    surface.UnMapArray(bytes);
    expectError(9, [&] { bytes[1] = 1; });
}

TEST(CDIBb, ACreateThatFailsLeavesNothing) {
    CDIBb surface;
    for (const auto& [width, height] : {std::pair(0, 5), {5, -1}, {32768, 16384}, {INT_MAX, INT_MAX}}) {
        surface.Create(2, 2);
        expectError(825, [&, w = width, h = height] { surface.Create(w, h); });
        EXPECT_EQ(std::tuple(surface.Width(), surface.Height(), surface.RGBSize()), std::tuple(0, 0, 0));
        EXPECT_EQ(surface.hdc(), nullptr);
    }
    EXPECT_STREQ(CDIBbError::createFailed().what(),
                 "DIB failed to create\nPlease restart your system and try again");
}

TEST(CDIBb, WhatIsDrawnOnTheTargetComesIntoThePixels) {
    CDIBb surface;
    setMemory(surface, 2, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    surface.hdc()->FillRect({1, 0, 2, 1}, 0x00302010);
    EXPECT_EQ(memory(surface), (Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 0x30, 0x20, 0x10, 15, 16}));
    surface.CloneHDC(*surface.hdc(), kSrcCopy, 1, 0);  // from itself
    EXPECT_EQ(pixels(*surface.hdc()), (Lines{{0x102030, 0x102030}, {0x060504, 0x060504}}));
}

TEST(CDIBb, CloneFitsThePicture) {
    StdPicture picture;
    picture.pixels = std::move(*PixelBuffer::create(2, 2));
    for (int i = 0; i < 4; ++i) picture.pixels.bits()[i * 4] = static_cast<std::uint8_t>(i + 1);
    CDIBb surface;
    expectError(-1, [&] { surface.Clone(picture, false); });
    surface.Create(3, 1);
    surface.Clone(picture, false);
    EXPECT_EQ(pixels(*surface.hdc()), (Lines{{3, 3, 4}}));
    surface.Clone(picture, true);
    EXPECT_EQ(pixels(*surface.hdc()), (Lines{{3, 4}, {1, 2}}));
    picture.objectType = ObjectType::Other;
    surface.Clone(picture, true);
    EXPECT_EQ(pixels(*surface.hdc()), (Lines{{0, 0}, {0, 0}}));
    expectError(825, [&] { surface.Clone(StdPicture(), true); });
}

TEST(CDIBb, PaintsAtAnySizeByCopyOnly) {
    const struct {
        Lines picture;
        int percent;
        Lines expected;
    } kCases[] = {
        {{{1, 2}, {3, 4}}, 100, {{0, 0, 0}, {0, 1, 2}, {0, 3, 4}}},
        {{{1, 2, 3, 4, 5}}, 50, Lines(3, {0, 0, 0})},  // 0.5 becomes 0
        {{{1, 2, 3, 4, 5}, {6, 7, 8, 9, 10}, {11, 12, 13, 14, 15}}, 50, {{0, 0, 0}, {0, 2, 4}, {0, 12, 14}}},
        {{{1, 2}, {3, 4}}, -100, {{4, 3, 0}, {2, 1, 0}, {0, 0, 0}}},
    };
    for (const auto& c : kCases) {
        CDIBb surface;
        setPixels(surface, c.picture);
        PictureGrid grid(3, 3);
        DeviceContext target = grid.context();
        surface.PaintZoom(target, 1, 1, c.percent, kSrcCopy);
        EXPECT_EQ(pixels(target), c.expected) << c.percent;
        surface.PaintTo(target, 2, 1, kSrcCopy);
        EXPECT_EQ(pixels(target)[1][2], 1U);
    }
}

TEST(CDIBb, RasterOperationsCombineWhereTheSourceReaches) {
    using enum RasterOperation;
    const std::vector<std::pair<RasterOperation, std::uint32_t>> cases = {
        {Blackness, 0}, {NotSrcErase, 0xFFFFF1}, {NotSrcCopy, 0xFFFFF3},
        {SrcErase, 4},  {DstInvert, 0xFFFFF5},   {SrcInvert, 6},
        {SrcAnd, 8},    {MergePaint, 0xFFFFFB},  {SrcCopy, 12},
        {SrcPaint, 14}, {Whiteness, 0xFFFFFF},
    };
    for (const auto& [operation, expected] : cases) {
        CDIBb source;
        setPixels(source, {{12}});
        CDIBb surface;
        setPixels(surface, {{10, 10}});
        surface.CloneHDC(*source.hdc(), operation, 0, 0);
        EXPECT_EQ(pixels(*surface.hdc()), (Lines{{expected, 10}})) << static_cast<unsigned>(operation);
        setPixels(surface, {{10, 10, 10}});
        source.PaintZoom(*surface.hdc(), 1, 0, 100, operation);
        EXPECT_EQ(pixels(*surface.hdc()), (Lines{{10, expected, 10}}));
    }
    CDIBb surface;
    setPixels(surface, {{1}});
    constexpr auto kPatInvert = static_cast<RasterOperation>(0x005A0049);
    expectError(5, [&] { surface.PaintTo(*surface.hdc(), 0, 0, kPatInvert); });
}

TEST(CDIBb, PrintTxtAsksForTextOfItsSize) {
    CDIBb surface;
    surface.Create(1, 1);
    std::vector<std::pair<std::string, Rect>> asked;
    surface.DrawText.connect([&](DeviceContext& target, std::string_view text, const Rect& place) {
        asked.emplace_back(text, place);
        target.FillRect({0, 0, 1, 1}, 7);
    });
    surface.PrintTxt("a\u00E9z", 5, -3);
    EXPECT_EQ(asked, (decltype(asked){{"a\u00E9z", {5, -3, 53, 47}}}));
    EXPECT_EQ(memory(surface), (Bytes{0, 0, 7, 0}));
}

TEST(CDIBb, PointEffects) {
    const Bytes sample = {10, 100, 200};  // blue, green, red
    const struct {
        const char* name;
        Operation run;
        Bytes before, after;
    } kCases[] = {
        {"shift up", [](CDIBb& s) { s.ShiftColors(300, 0, 0); }, sample, {10, 100, 255}},
        {"shift down", [](CDIBb& s) { s.ShiftColors(-300, 0, 0); }, sample, {10, 100, 0}},
        {"shift all", [](CDIBb& s) { s.ShiftColors(5, -7, -11); }, sample, {0, 93, 205}},
        {"shift far", [](CDIBb& s) { s.ShiftColors(INT_MAX, INT_MIN, 0); }, sample, {10, 0, 255}},
        {"except this", [](CDIBb& s) { s.ShiftColorsEx(1, 2, 3, 0x000A64C8); }, sample, sample},
        {"except other", [](CDIBb& s) { s.ShiftColorsEx(1, 2, 3, 0x00C8640A); }, sample, {13, 102, 201}},
        {"brightness", [](CDIBb& s) { s.Brightness(60); }, sample, {70, 160, 255}},
        {"exchange 0", [](CDIBb& s) { s.ExchangeRGB(0); }, sample, sample},
        {"exchange 1", [](CDIBb& s) { s.ExchangeRGB(1); }, sample, {100, 200, 10}},
        {"exchange 2", [](CDIBb& s) { s.ExchangeRGB(2); }, sample, {200, 10, 100}},
        {"exchange 3", [](CDIBb& s) { s.ExchangeRGB(3); }, sample, {200, 100, 10}},
        {"greyscale", [](CDIBb& s) { s.Greyscale(); }, {10, 101, 200}, {103, 103, 103}},
        {"filter out", [](CDIBb& s) { s.FilterOutColors(true, false, false); }, sample, {0, 0, 200}},
        {"white", [](CDIBb& s) { s.Monochrome(103); }, sample, {255, 255, 255}},
        {"black", [](CDIBb& s) { s.Monochrome(104); }, sample, {0, 0, 0}},
        {"brown", [](CDIBb& s) { s.Brown(); }, {200, 240, 9}, {108, 147, 188}},  // r from 187.5
        {"brown, even", [](CDIBb& s) { s.Brown(); }, {1, 128, 9}, {0, 0, 0}},    // r from 0.5
        {"night shade", [](CDIBb& s) { s.NightShade(); }, {1, 2, 10}, {10, 10, 54}},
        {"purple stain", [](CDIBb& s) { s.PurpleStain(); }, {11, 101, 201}, {206, 61, 201}},
        {"purple stain, full", [](CDIBb& s) { s.PurpleStain(); }, {200, 210, 220}, {255, 255, 255}},
        {"spooky", [](CDIBb& s) { s.Spooky(); }, {11, 101, 150}, {155, 200, 150}},
        {"spooky, full", [](CDIBb& s) { s.Spooky(); }, {200, 210, 220}, {255, 255, 220}},
        {"flame", [](CDIBb& s) { s.Flame(); }, sample, {0, 55, 255}},
        {"freeze", [](CDIBb& s) { s.Freeze(); }, {250, 240, 230}, {255, 255, 210}},
        {"aqua", [](CDIBb& s) { s.Aqua(); }, sample, {78, 255, 63}},
        {"psycho", [](CDIBb& s) { s.Psycho(); }, sample, {255, 112, 148}},
    };
    for (const auto& c : kCases) {
        CDIBb surface;
        setMemory(surface, 1, 1, {c.before[0], c.before[1], c.before[2], 77});
        c.run(surface);
        EXPECT_EQ(memory(surface), (Bytes{c.after[0], c.after[1], c.after[2], 77})) << c.name;
    }
}

TEST(CDIBb, FlatEffectsWalkThroughThePadding) {
    const Bytes count = {1, 2, 3, 4, 5, 6, 7, 8};                            // a column of 2 pixels
    const Bytes mixed = {100, 50, 200, 150, 60, 10, 0, 250, 0, 30, 30, 30};  // a row of 4
    const struct {
        Operation run;
        Bytes before, after;
    } kCases[] = {
        {[](CDIBb& s) { s.InvertColors(); }, count, {254, 253, 252, 251, 250, 249, 248, 247}},
        {[](CDIBb& s) { s.ExchangeRGB(3); }, count, {3, 2, 1, 6, 5, 4, 0, 8}},
        {[](CDIBb& s) { s.FastRot(); }, count, {4, 5, 6, 1, 2, 3, 7, 8}},
        {[](CDIBb& s) { s.Sharpen(); }, count, {0, 0, 0, 1, 2, 12, 14, 16}},
        {[](CDIBb& s) { s.MakeEmboss(10, true, false); }, count, {3, 12, 13, 14, 15, 16, 17, 18}},
        {[](CDIBb& s) { s.FlipVert(); }, count, {5, 6, 7, 8, 1, 2, 3, 4}},
        // A negative value takes what the clamp before it wrote.
        {[](CDIBb& s) { s.Sharpen(); }, mixed, {50, 40, 255, 255, 255, 20, 20, 255, 255, 60, 60, 60}},
        {[](CDIBb& s) { s.MakeEmboss(0, false, false); },
         mixed,
         {0, 0, 190, 150, 150, 10, 10, 220, 220, 30, 30, 30}},
        {[](CDIBb& s) { s.MakeEmboss(128, false, true); },
         mixed,
         {150, 150, 150, 216, 216, 216, 150, 150, 150, 158, 158, 158}},
        {[](CDIBb& s) { s.MakeEmboss(INT_MIN, false, false); }, mixed, Bytes(12, 0)},
        {[](CDIBb& s) { s.MakeEmboss(INT_MAX, false, true); }, mixed, Bytes(12, 255)},
    };
    for (const auto& c : kCases) {
        CDIBb surface;
        const bool isRow = c.before.size() == mixed.size();
        setMemory(surface, isRow ? 4 : 1, isRow ? 1 : 2, c.before);
        c.run(surface);
        EXPECT_EQ(memory(surface), c.after) << &c - kCases;
    }
}

TEST(CDIBb, EffectsThatKeepToTheRows) {
    const Lines grid = {{0x102030, 0x405060, 3}, {4, 5, 6}};
    const Lines spots = {{9, 0, 0}, {0, 0, 0}, {0, 0, 90 << 16}};
    const Lines blurred = {{2, 1, 0}, {1, 0xA0001, 0xF0000}, {0, 0xF0000, 0x160000}};
    const Lines line = {{10, 20, 30, 40, 51}};
    const Lines column = {{1}, {2}, {3}, {4}};
    const Lines black(4, {0});
    const struct {
        const char* name;
        Operation run;
        Lines before, after;
    } kCases[] = {
        {"mirror", [](CDIBb& s) { s.FlipHorZ(); }, grid, {{3, 0x405060, 0x102030}, {6, 5, 4}}},
        {"quarter turn", [](CDIBb& s) { s.RotatePic(); }, grid, {{3, 6}, {0x405060, 5}, {0x102030, 4}}},
        {"quarter turn of one", [](CDIBb& s) { s.RotatePic(); }, {{7}}, {{7}}},
        {"no scan lines", [](CDIBb& s) { s.ScanLines(0); }, column, column},
        {"negative scan lines", [](CDIBb& s) { s.ScanLines(-50); }, column, column},
        {"every third line", [](CDIBb& s) { s.ScanLines(30); }, column, {{0}, {2}, {3}, {0}}},
        {"every second line", [](CDIBb& s) { s.ScanLines(40); }, column, {{1}, {0}, {3}, {0}}},  // 2.5
        {"every line", [](CDIBb& s) { s.ScanLines(300); }, column, black},                       // 0.3
        {"blur 0", [](CDIBb& s) { s.DynamicBlur(0); }, spots, spots},
        {"blur 1", [](CDIBb& s) { s.DynamicBlur(1); }, spots, blurred},
        {"blur all", [](CDIBb& s) { s.DynamicBlur(INT_MAX); }, spots, Lines(3, {0xA0001, 0xA0001, 0xA0001})},
        {"blur a line", [](CDIBb& s) { s.DynamicBlur(1); }, line, {{15, 20, 30, 40, 45}}},
        {"blur wider", [](CDIBb& s) { s.DynamicBlur(2); }, line, {{20, 25, 30, 35, 40}}},
        {"blur a column",
         [](CDIBb& s) { s.DynamicBlur(1); },
         {{10}, {21}, {31}, {1}},
         {{15}, {20}, {17}, {16}}},
        {"fast blur", [](CDIBb& s) { s.FastBlur(); }, line, {{15, 25, 35, 45, 51}}},
        {"fast blur by rows",
         [](CDIBb& s) { s.FastBlur(); },
         spots,
         {{4, 0, 0}, {0, 0, 0}, {0, 0x2D0000, 0x5A0000}}},
        {"fast blur of one", [](CDIBb& s) { s.FastBlur(); }, {{7}}, {{7}}},
    };
    for (const auto& c : kCases) {
        CDIBb surface;
        setPixels(surface, c.before);
        c.run(surface);
        EXPECT_EQ(pixels(*surface.hdc()), c.after) << c.name;
    }
}

TEST(CDIBb, AlphaBlendMixesTheCommonPart) {
    PictureGrid source = PictureGrid::fromNumbers({{200, 1}});
    for (const auto& [alpha, mixed] : {std::pair(-5, 10U), {0, 10U}, {64, 57U}, {255, 200U}, {300, 200U}}) {
        CDIBb surface;
        setPixels(surface, {{10}, {10}});
        surface.AlphaBlend(source.context(), alpha);
        EXPECT_EQ(pixels(*surface.hdc()), (Lines{{mixed}, {10}})) << alpha;
    }
}

TEST(CDIBb, AnEmptySurfaceDoesNothing) {
    PictureGrid other = PictureGrid::numbered(1, 1);
    const PictureGrid before = other;
    DeviceContext target = other.context();
    CDIBb empty;
    empty.DrawText.connect([](DeviceContext&, std::string_view, const Rect&) { ADD_FAILURE(); });
    empty.CloneHDC(target, kSrcCopy, 0, 0);
    empty.PaintTo(target, 0, 0, kSrcCopy);
    empty.PaintZoom(target, 0, 0, 100, kSrcCopy);
    empty.AlphaBlend(target, 255);
    empty.PrintTxt("text", 0, 0);
    for (const auto operation : {&CDIBb::Cls, &CDIBb::RotatePic, &CDIBb::FlipHorZ, &CDIBb::FlipVert,
                                 &CDIBb::FastRot, &CDIBb::FastBlur, &CDIBb::Sharpen, &CDIBb::InvertColors}) {
        (empty.*operation)();
    }
    empty.ScanLines(50);
    empty.DynamicBlur(1);
    EXPECT_EQ(other, before);
    EXPECT_EQ(empty.RGBSize(), 0);
    MappedBytes bytes;
    expectError(11, [&] { empty.MapArray(bytes); });
}

}  // namespace
}  // namespace mobrel
