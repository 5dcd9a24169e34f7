// SPDX-License-Identifier: MIT
// Every filter against its plain recipe, over sweeps of sizes and pictures: bytes and events.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "filters/cDIBFilter.hpp"
#include "support/EventLog.hpp"
#include "support/FilterRecipes.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::EventLog;
using test::Picture;

struct SweepCase {
    std::string name;
    std::function<void(cDIBFilter&, cDIB&)> filter;
    std::function<void(Picture&, EventLog&)> recipe;

    friend void PrintTo(const SweepCase& c, std::ostream* out) { *out << c.name; }
};

/// One filter with each of several single arguments.
template <typename Filter, typename Recipe>
void addLevels(std::vector<SweepCase>& cases, const std::string& name, Filter filter, Recipe recipe,
               std::initializer_list<std::int32_t> levels) {
    for (const std::int32_t level : levels) {
        cases.push_back({name + (level < 0 ? "_minus" : "_") + std::to_string(level < 0 ? -level : level),
                         [=](cDIBFilter& f, cDIB& d) { (f.*filter)(d, level); },
                         [=](Picture& p, EventLog& log) { recipe(p, level, log); }});
    }
}

template <typename Filter, typename Recipe>
void add(std::vector<SweepCase>& cases, const std::string& name, Filter filter, Recipe recipe) {
    cases.push_back({name, filter, recipe});
}

std::vector<SweepCase> sweepCases() {
    using F = cDIBFilter;
    std::vector<SweepCase> cases;
    addLevels(cases, "Contrast", &F::Contrast, recipes::contrast, {-300, -100, -40, 0, 30, 250, 4000});
    addLevels(cases, "Saturation", &F::Saturation, recipes::saturation, {-250, -100, -33, 0, 70, 250});
    add(
        cases, "Despeckle", [](F& f, cDIB& d) { f.Despeckle(d); }, recipes::despeckle);
    add(
        cases, "Greys", [](F& f, cDIB& d) { f.Greys(d); }, recipes::greys);
    add(
        cases, "Negative", [](F& f, cDIB& d) { f.Negative(d); }, recipes::negative);
    for (const auto& [r, g, b] :
         {std::array{20, 0, -20}, std::array{-255, 255, 7}, std::array{1, 2147483647, -2147483647}}) {
        add(
            cases, "ShiftRGB_" + std::to_string(r & 0xFFFF), [=](F& f, cDIB& d) { f.ShiftRGB(d, r, g, b); },
            [=](Picture& p, EventLog& log) { recipes::shiftRGB(p, r, g, b, log); });
    }
    for (const auto& [h, s, l] :
         {std::array{0.5F, 0.25F, 1.0F}, std::array{-1.0F, 1.0F, 0.7F}, std::array{4.99F, 0.5F, 1.0F},
          std::array{2.5F, 0.0F, 1.0F}, std::array{1.0F, 1.0F, 1.0F}, std::array{3.3F, 0.9F, 0.4F}}) {
        add(
            cases, "Colorize_" + std::to_string(static_cast<int>(h * 100 + 100)),
            [=](F& f, cDIB& d) { f.Colorize(d, h, s, l); },
            [=](Picture& p, EventLog& log) { recipes::colorize(p, h, s, l, log); });
    }
    return cases;
}

class FilterSweep : public testing::TestWithParam<SweepCase> {};

TEST_P(FilterSweep, GivesTheBytesAndEventsOfItsRecipe) {
    for (const auto& size : test::sweepSizes()) {
        for (const auto& [name, picture] : test::sweepPictures(size)) {
            Picture expected = picture;
            EventLog expectedLog;
            GetParam().recipe(expected, expectedLog);

            cDIB surface;
            toSurface(picture, surface);
            cDIBFilter filter;
            EventLog log;
            log.attach(filter);
            GetParam().filter(filter, surface);
            ASSERT_EQ(firstDifference(expected, test::fromSurface(surface)), "")
                << name << ' ' << size.width << 'x' << size.height;
            ASSERT_EQ(log, expectedLog) << name << ' ' << size.width << 'x' << size.height;
        }
    }
}

TEST_P(FilterSweep, DoesNothingOnAnEmptySurface) {
    cDIB surface;
    cDIBFilter filter;
    EventLog log;
    log.attach(filter);
    GetParam().filter(filter, surface);
    EXPECT_TRUE(log.isEmpty());
    EXPECT_EQ(surface.hDIB(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Filters, FilterSweep, testing::ValuesIn(sweepCases()),
                         [](const auto& swept) { return swept.param.name; });

// Two orders of the same sum differ on some of these colours.
TEST(Greys, DecidesTiesByTheOrderOfTheSum) {
    const auto& ties = test::greyTies();
    Picture picture(static_cast<int>(ties.size()), 1);
    picture.pixels = ties;
    Picture expected = picture;
    EventLog log;
    recipes::greys(expected, log);
    cDIB surface;
    toSurface(picture, surface);
    cDIBFilter().Greys(surface);
    EXPECT_EQ(firstDifference(expected, test::fromSurface(surface)), "");
}

struct ErrorCase {
    const char* name;
    std::function<void(cDIBFilter&, cDIB&)> filter;
    ErrorNumber number;
};

TEST(FilterErrors, ComeWithTheirNumbersAndNoEndEvent) {
    const ErrorCase cases[] = {
        {"Saturation", [](cDIBFilter& f, cDIB& d) { f.Saturation(d, 2147483647); }, ErrorNumber::Overflow},
        {"Contrast", [](cDIBFilter& f, cDIB& d) { f.Contrast(d, 2000000000); }, ErrorNumber::Overflow},
        {"Colorize", [](cDIBFilter& f, cDIB& d) { f.Colorize(d, 0.5F, 1.0F, 3.0F); }, ErrorNumber::Overflow},
    };
    for (const auto& c : cases) {
        Picture picture(2, 1);
        picture.pixels = {{0, 10, 200, 0}, {250, 255, 240, 0}};
        cDIB surface;
        toSurface(picture, surface);
        cDIBFilter filter;
        int ends = 0;
        filter.ProgressEnd.connect([&] { ++ends; });
        try {
            c.filter(filter, surface);
            ADD_FAILURE() << c.name << ": no error";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), c.number) << c.name;
        }
        EXPECT_EQ(ends, 0) << c.name;
    }
}

}  // namespace
}  // namespace mobrel
