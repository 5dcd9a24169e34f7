// SPDX-License-Identifier: MIT
// The look of the slider, pixel by pixel.
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/zenSlider.hpp"
#include "support/FakeHost.hpp"
#include "support/LetterColors.hpp"
#include "support/PictureGrid.hpp"

namespace mobrel {
namespace {

using test::FakeHost;
using test::LetterColors;
using test::PictureGrid;

constexpr auto kHorizontal = SliderOrientation::Horizontal;
constexpr auto kVertical = SliderOrientation::Vertical;

std::shared_ptr<const ControlPicture> picture(const std::vector<std::string>& rows,
                                              std::optional<Color> transparent = std::nullopt) {
    const PictureGrid grid = PictureGrid::fromLetters(rows);
    return copyAsControlPicture({grid.bits(), grid.width() * 4, grid.width(), grid.height()}, transparent);
}

/// The colour of a letter's pixel.
Color colorOf(char letter) {
    const std::uint32_t pixel = PictureGrid::letterPixel(letter);
    return (pixel >> 16 & 0xFF) | (pixel & 0xFF00) | (pixel & 0xFF) << 16;
}

std::vector<std::string> turned(const std::vector<std::string>& rows) {
    std::vector<std::string> columns(rows.at(0).size());
    for (const std::string& row : rows) {
        for (std::size_t x = 0; x < row.size(); ++x) columns[x] += row[x];
    }
    return columns;
}

std::vector<std::string> doubled(const std::vector<std::string>& rows) {
    std::vector<std::string> result;
    for (const std::string& row : rows) {
        std::string wide;
        for (const char letter : row) wide += std::string(2, letter);
        result.insert(result.end(), 2, wide);
    }
    return result;
}

std::string many(std::size_t count, char letter) {
    return std::string(count, letter);
}

TEST(ZenSliderDrawing, TheBuiltInKnobIsARaisedHatchedButtonAtEveryScale) {
    const std::vector<std::string> hatch = {"hsfhsfhsfh", "sfhsfhsfhs", "fhsfhsfhsf"};
    std::vector<std::string> rows = {many(15, 'l') + "d", "l" + many(13, 'h') + "sd",
                                     "lh" + many(12, 'f') + "sd"};
    for (std::size_t row = 0; row < 10; ++row) rows.push_back("lhf" + hatch[row % 3] + "fsd");
    rows.insert(rows.end(), {"lh" + many(12, 'f') + "sd", "l" + many(14, 's') + "d", many(16, 'd')});

    const LetterColors colors;
    zenSlider slider;
    FakeHost host(slider, 16, 16);
    EXPECT_EQ(host.copyOfImage(), LetterColors::picture(rows));
    host.resize(32, 32, 2);
    EXPECT_EQ(host.copyOfImage(), LetterColors::picture(doubled(rows)));
    // In between, lines stay one pixel thick and the face grows.
    host.resize(20, 20, 1.25);
    const PictureGrid between = host.copyOfImage();
    EXPECT_EQ(between.at(1, 10), between.at(10, 1));
    EXPECT_EQ(between.at(3, 3), between.at(6, 3));
    EXPECT_EQ(between.at(3, 3), between.at(16, 5));
}

TEST(ZenSliderDrawing, TheRailHasTheEdgeOfItsStyle) {
    const LetterColors colors;
    const std::string free = many(8, 'k') + many(16, 'f');  // the knob, and what the rail leaves free
    // Behind the knob: four rows of the rail, whose right end is two pixels from the control's.
    const auto withRail = [&](const std::vector<std::string>& rail) {
        std::vector<std::string> rows = {free, free};
        for (const std::string& row : rail) rows.push_back(many(8, 'k') + row + "ff");
        rows.insert(rows.end(), {free, free});
        return rows;
    };
    const struct {
        SliderRail style;
        std::vector<std::string> rows;
    } kRows[] = {
        {SliderRail::Sunken,
         withRail({many(13, 's') + "h", many(12, 'd') + "lh", many(13, 'l') + "h", many(14, 'h')})},
        {SliderRail::Raised,
         withRail({many(13, 'l') + "d", many(12, 'h') + "sd", many(13, 's') + "d", many(14, 'd')})},
        {SliderRail::SunkenOuter,
         withRail({many(13, 's') + "h", many(13, 'f') + "h", many(13, 'f') + "h", many(14, 'h')})},
        {SliderRail::RaisedInner,
         withRail({many(13, 'h') + "s", many(13, 'f') + "s", many(13, 'f') + "s", many(14, 's')})},
        {SliderRail::NoEdge, withRail({many(14, 'f'), many(14, 'f'), many(14, 'f'), many(14, 'f')})},
        {SliderRail{5}, withRail({many(14, 'f'), many(14, 'f'), many(14, 'f'), many(14, 'f')})},
        // There is no picture.
        {SliderRail::Picture, withRail({many(14, 'f'), many(14, 'f'), many(14, 'f'), many(14, 'f')})},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(static_cast<int>(row.style));
        zenSlider slider;
        FakeHost host(slider, 24, 8);
        slider.setOrientation(kHorizontal);
        slider.setSliderIcon(picture(std::vector<std::string>(8, many(8, 'k'))));
        host.resize(24, 8, 1);
        slider.setRailStyle(row.style);
        EXPECT_EQ(host.copyOfImage(), LetterColors::picture(row.rows));
        EXPECT_TRUE(host.isAllShown());
        // Upright, the knob at the top is the maximum's.
        slider.setOrientation(kVertical);
        host.resize(8, 24, 1);
        slider.setValue(10);
        EXPECT_EQ(host.copyOfImage(), LetterColors::picture(turned(row.rows)));
    }
}

TEST(ZenSliderDrawing, PicturesLetTheirTransparentColourThrough) {
    const LetterColors colors;
    zenSlider slider;
    FakeHost host(slider, 9, 4);
    slider.setOrientation(kHorizontal);
    slider.setRailPicture(picture({"aaaat", "atbbb"}, colorOf('t')));
    slider.setSliderIcon(picture({"tk", "kt", "kk", "kk"}, colorOf('t')));
    slider.setRailStyle(SliderRail::Picture);
    const std::vector<std::string> atMin = {"fkfffffff", "kfaaaafff", "kkafbbbff", "kkfffffff"};
    EXPECT_EQ(host.copyOfImage(), LetterColors::picture(atMin));
    slider.setValue(10);
    const std::vector<std::string> atMax = {"ffffffffk", "ffaaaafkf", "ffafbbbkk", "fffffffkk"};
    EXPECT_EQ(host.copyOfImage(), LetterColors::picture(atMax));
    host.resize(18, 8, 2);
    EXPECT_EQ(host.copyOfImage(), LetterColors::picture(doubled(atMax)));
}

TEST(ZenSliderDrawing, FollowsColours) {
    zenSlider slider;
    FakeHost host(slider, 16, 40);
    const LetterColors colors;
    slider.appearanceChanged();
    EXPECT_EQ(host.copyOfImage().at(0, 0), LetterColors::picture({"f"}).at(0, 0));
    slider.setBackColor(0x332211);
    EXPECT_EQ(host.copyOfImage().at(0, 0), 0x112233U);
    slider.setBackColor(systemColorValue(SystemColor::Window));
    EXPECT_EQ(host.copyOfImage().at(0, 0), LetterColors::picture({"w"}).at(0, 0));
    EXPECT_TRUE(host.isAllShown());
}

TEST(ZenSliderDrawing, ShowsTheFocusOfTheKeyboardUnderTheKnob) {
    const LetterColors colors;
    zenSlider slider;
    FakeHost host(slider, 16, 24);
    PictureGrid plain = host.copyOfImage();
    PictureGrid focused = plain;
    focused.context().DrawFocusRect({0, 0, 16, 24});
    focused.context().BitBlt(0, 8, 16, 16, plain.context(), 0, 8);
    slider.focusChanged(true);
    EXPECT_EQ(host.screen(), focused);
    slider.focusChanged(false);
    EXPECT_EQ(host.screen(), plain);
    slider.focusChanged(true);  // by the press that follows
    slider.pointerPressed({MouseButton::kLeft, 0, 5, 20});
    slider.pointerReleased({MouseButton::kLeft, 0, 5, 20});
    EXPECT_EQ(host.screen(), plain);
    slider.keyPressed({KeyCode::kHome, 0});
    EXPECT_EQ(host.screen(), focused);
}

}  // namespace
}  // namespace mobrel
