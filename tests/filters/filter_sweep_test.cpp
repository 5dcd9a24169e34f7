// SPDX-License-Identifier: MIT
// Every filter against its plain recipe, over sweeps of sizes and pictures: bytes and events.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <string>
#include <vector>

#include "filters/FilterCatalogue.hpp"
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

void addPlain(std::vector<SweepCase>& cases) {
    using F = cDIBFilter;
    add(
        cases, "Contour", [](F& f, cDIB& d) { f.Contour(d); }, recipes::contour);
    add(
        cases, "Despeckle", [](F& f, cDIB& d) { f.Despeckle(d); }, recipes::despeckle);
    add(
        cases, "DespeckleMore", [](F& f, cDIB& d) { f.DespeckleMore(d); }, recipes::despeckleMore);
    add(
        cases, "Greys", [](F& f, cDIB& d) { f.Greys(d); }, recipes::greys);
    add(
        cases, "Negative", [](F& f, cDIB& d) { f.Negative(d); }, recipes::negative);
    add(
        cases, "RankFilterMaximum", [](F& f, cDIB& d) { f.RankFilterMaximum(d); },
        recipes::rankFilterMaximum);
    add(
        cases, "RankFilterMinimum", [](F& f, cDIB& d) { f.RankFilterMinimum(d); },
        recipes::rankFilterMinimum);
}

void addWithOneNumber(std::vector<SweepCase>& cases) {
    using F = cDIBFilter;
    addLevels(cases, "Blur", &F::Blur, recipes::blur, {-8421395, -300, 0, 76, 99, 100, 101});
    addLevels(cases, "Contrast", &F::Contrast, recipes::contrast,
              {-421075000, -300, -100, -40, 0, 10, 30, 50, 250, 4000, 421075000});
    addLevels(cases, "Pixelize", &F::Pixelize, recipes::pixelize, {1, 2, 3, 7, 25, 2901});
    addLevels(cases, "Relieve", &F::Relieve, recipes::relieve,
              {-84214000, -7, 1, 50, 75, 99, 100, 102, 84214000});
    addLevels(cases, "SaltAndPepperRemoval", &F::SaltAndPepperRemoval, recipes::saltAndPepperRemoval,
              {-1, 0, 20, 128, 255});
    addLevels(cases, "Saturation", &F::Saturation, recipes::saturation,
              {-1263225000, -250, -100, -33, 0, 70, 250, 1263225000});
    addLevels(cases, "Sharpen", &F::Sharpen, recipes::sharpen,
              {-2147483647, -500, 76, 85, 99, 100, 102, 110, 2147483647});
    addLevels(cases, "Soften", &F::Soften, recipes::soften, {-8421399, -300, 0, 76, 95, 100, 101});
}

void addReliefs(std::vector<SweepCase>& cases) {
    using F = cDIBFilter;
    for (const std::int32_t level : {0, 1, 37, 100, 200, -150, 842150000}) {
        for (const bool connect : {true, false}) {
            const std::string suffix = std::to_string(level & 0xFFFF) + (connect ? "_connected" : "_cut");
            add(
                cases, "Emboss_" + suffix, [=](F& f, cDIB& d) { f.Emboss(d, level, connect); },
                [=](Picture& p, EventLog& log) { recipes::emboss(p, level, connect, log); });
            add(
                cases, "Engrave_" + suffix, [=](F& f, cDIB& d) { f.Engrave(d, level, connect); },
                [=](Picture& p, EventLog& log) { recipes::engrave(p, level, connect, log); });
        }
    }
}

void addWithSeveralNumbers(std::vector<SweepCase>& cases) {
    using F = cDIBFilter;
    for (const auto& rgb :
         {std::array{20, 0, -20}, std::array{-255, 255, 7}, std::array{1, 2147483647, -2147483647}}) {
        add(
            cases, "ShiftRGB_" + std::to_string(rgb[0] & 0xFFFF),
            [=](F& f, cDIB& d) { f.ShiftRGB(d, rgb[0], rgb[1], rgb[2]); },
            [=](Picture& p, EventLog& log) { recipes::shiftRGB(p, rgb[0], rgb[1], rgb[2], log); });
    }
    for (const auto& v : {std::array{-50, 5}, std::array{100, -50}, std::array{0, 0}, std::array{-37, 50},
                          std::array{210000000, 1073000000}, std::array{-210000000, -1073000000}}) {
        add(
            cases, "Outline_" + std::to_string(v[0] & 0xFFFF),
            [=](F& f, cDIB& d) { f.Outline(d, v[0], v[1]); },
            [=](Picture& p, EventLog& log) { recipes::outline(p, v[0], v[1], log); });
    }
    for (const auto& v : {std::array{20, 20}, std::array{0, 0}, std::array{100, 100}, std::array{33, -100},
                          std::array{2147483647, 2147483647}}) {
        add(
            cases, "ScanLines_" + std::to_string(v[0] & 0xFFFF),
            [=](F& f, cDIB& d) { f.ScanLines(d, v[0], v[1]); },
            [=](Picture& p, EventLog& log) { recipes::scanLines(p, v[0], v[1], log); });
    }
    for (const auto& hsl :
         {std::array{0.5F, 0.25F, 1.0F}, std::array{-1.0F, 1.0F, 0.7F}, std::array{5.0F, 0.5F, 1.0F},
          std::array{2.5F, 0.0F, 1.0F}, std::array{1.0F, 1.0F, 1.0F}, std::array{3.3F, 0.9F, 0.4F}}) {
        add(
            cases, "Colorize_" + std::to_string(static_cast<int>(hsl[0] * 100 + 100)),
            [=](F& f, cDIB& d) { f.Colorize(d, hsl[0], hsl[1], hsl[2]); },
            [=](Picture& p, EventLog& log) { recipes::colorize(p, hsl[0], hsl[1], hsl[2], log); });
    }
}

/// Filter and recipe draw the same numbers, each from a source of its own.
void addWithChance(std::vector<SweepCase>& cases) {
    for (const auto& v : {std::array{5, 1}, std::array{200, 3}, std::array{0, 2}, std::array{-40, 1},
                          std::array{256, 1}, std::array{1073741823, 10}}) {
        add(
            cases, "Noise_" + std::to_string(v[0] & 0xFFFF) + "_" + std::to_string(v[1]),
            [=](cDIBFilter& f, cDIB& d) { f.Noise(d, v[0], v[1]); },
            [=](Picture& p, EventLog& log) {
                recipes::noise(
                    p, v[0], v[1], [random = RandomSource()]() mutable { return random.next(); }, log);
            });
    }
    for (const auto& v : {std::array{1, 1, 1}, std::array{0, 5, 1}, std::array{20, 3, 2},
                          std::array{-3, 255, 1}, std::array{128, -2, 1}, std::array{3, 256, 1},
                          std::array{-2, 1, -4}, std::array{1073741823, -1073741824, 2147483647}}) {
        add(
            cases, "Diffuse_" + std::to_string(v[0] & 0xFFFF) + "_" + std::to_string(v[2] & 0xFFFF),
            [=](cDIBFilter& f, cDIB& d) { f.Diffuse(d, v[0], v[1], v[2]); },
            [=](Picture& p, EventLog& log) {
                recipes::diffuse(
                    p, v[0], v[1], v[2], [random = RandomSource()]() mutable { return random.next(); }, log);
            });
    }
}

void addSelections(std::vector<SweepCase>& cases) {
    struct Colours {
        std::int32_t from, to, tolerance;
    };
    int number = 0;
    for (const Colours& c : {Colours{0x0000FF, 0x00FF00, 100}, Colours{0x808080, 0xFFFFFF, 30},
                             Colours{0x7F4020, 0x000000, 255}, Colours{0x123456, 0x654321, 0},
                             Colours{0xFF00FF, 0x00FFFF, -60}, Colours{0x00FFFF, 0xC08040, 36345}}) {
        const std::string suffix = "_" + std::to_string(++number);
        for (const std::int32_t near : {0, 7, 100, -1}) {
            const std::string name = suffix + "_" + std::to_string(near & 0xFF);
            add(
                cases, "ReplaceHS" + name,
                [=](cDIBFilter& f, cDIB& d) {
                    f.ReplaceHS(d, static_cast<Color>(c.from), static_cast<Color>(c.to), c.tolerance, near,
                                100 - near);
                },
                [=](Picture& p, EventLog& log) {
                    recipes::replaceHS(p, c.from, c.to, c.tolerance, near, 100 - near, log);
                });
            add(
                cases, "ReplaceL" + name,
                [=](cDIBFilter& f, cDIB& d) {
                    f.ReplaceL(d, static_cast<Color>(c.from), static_cast<Color>(c.to), c.tolerance, near);
                },
                [=](Picture& p, EventLog& log) {
                    recipes::replaceL(p, c.from, c.to, c.tolerance, near, log);
                });
        }
        for (const std::int32_t inc : {0, 40, -255, 2147483647}) {
            add(
                cases, "Shift" + suffix + "_" + std::to_string(inc & 0xFFFF),
                [=](cDIBFilter& f, cDIB& d) { f.Shift(d, static_cast<Color>(c.from), inc, c.tolerance); },
                [=](Picture& p, EventLog& log) { recipes::shift(p, c.from, inc, c.tolerance, log); });
        }
    }
}

void addTextures(std::vector<SweepCase>& cases) {
    for (const auto& [width, height] :
         {std::array{1, 1}, std::array{3, 2}, std::array{16, 16}, std::array{90, 40}}) {
        const Picture texture = test::sweepPictures({width, height}).front().picture;
        add(
            cases, "Texturize_" + std::to_string(width),
            [=](cDIBFilter& f, cDIB& d) {
                cDIB surface;
                toSurface(texture, surface);
                f.Texturize(d, surface);
            },
            [=](Picture& p, EventLog& log) { recipes::texturize(p, texture, log); });
    }
}

std::vector<SweepCase> sweepCases() {
    std::vector<SweepCase> cases;
    addPlain(cases);
    addWithOneNumber(cases);
    addReliefs(cases);
    addWithSeveralNumbers(cases);
    addWithChance(cases);
    addSelections(cases);
    addTextures(cases);
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
            RandomSource random;
            cDIBFilter filter(random);
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

TEST(FilterSweeps, CoverTheCatalogue) {
    const auto cases = sweepCases();
    for (const FilterEntry& entry : kFilterCatalogue) {
        EXPECT_TRUE(std::any_of(cases.begin(), cases.end(), [&](const SweepCase& c) {
            return c.name.substr(0, c.name.find('_')) == entry.name;
        })) << entry.name;
    }
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
        {"Blur", [](cDIBFilter& f, cDIB& d) { f.Blur(d, 109); }, ErrorNumber::DivisionByZero},
        {"Blur", [](cDIBFilter& f, cDIB& d) { f.Blur(d, 102); }, ErrorNumber::Overflow},
        {"Soften", [](cDIBFilter& f, cDIB& d) { f.Soften(d, 105); }, ErrorNumber::DivisionByZero},
        {"Sharpen", [](cDIBFilter& f, cDIB& d) { f.Sharpen(d, 101); }, ErrorNumber::DivisionByZero},
        {"Relieve", [](cDIBFilter& f, cDIB& d) { f.Relieve(d, 101); }, ErrorNumber::DivisionByZero},
        {"Pixelize", [](cDIBFilter& f, cDIB& d) { f.Pixelize(d, 0); }, ErrorNumber::DivisionByZero},
        {"ScanLines", [](cDIBFilter& f, cDIB& d) { f.ScanLines(d, -1, 0); }, ErrorNumber::Overflow},
        {"ScanLines", [](cDIBFilter& f, cDIB& d) { f.ScanLines(d, 0, -101); }, ErrorNumber::Overflow},
        {"Shift", [](cDIBFilter& f, cDIB& d) { f.Shift(d, 0, 1, 36346); }, ErrorNumber::Overflow},
        {"Colorize", [](cDIBFilter& f, cDIB& d) { f.Colorize(d, 0.5F, 1.0F, 3.0F); }, ErrorNumber::Overflow},
    };
    for (const auto& c : cases) {
        Picture picture(5, 4, {255, 255, 255, 0});
        picture.at(2, 2) = {0, 0, 0, 0};
        picture.at(0, 0) = {0, 10, 200, 0};
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
