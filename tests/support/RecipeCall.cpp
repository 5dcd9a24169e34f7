// SPDX-License-Identifier: MIT
#include "support/RecipeCall.hpp"

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "platform/base/RandomSource.hpp"
#include "support/FilterRecipes.hpp"

namespace mobrel::recipes {
namespace {

struct Arguments {
    const std::array<double, 5>& values;
    const Picture& texture;

    std::int32_t integer(std::size_t i) const { return static_cast<std::int32_t>(values[i]); }
    float real(std::size_t i) const { return static_cast<float>(values[i]); }
    bool flag(std::size_t i) const { return values[i] != 0; }
};

NextRandom freshRandom() {
    return [source = RandomSource()]() mutable { return source.next(); };
}

struct NamedRecipe {
    std::string_view name;
    void (*run)(Picture& D, const Arguments& v, EventLog& log);
};

using A = const Arguments&;

constexpr NamedRecipe kRecipes[] = {
    {"Blur", [](Picture& D, A v, EventLog& log) { blur(D, v.integer(0), log); }},
    {"Contour", [](Picture& D, A, EventLog& log) { contour(D, log); }},
    {"Contrast", [](Picture& D, A v, EventLog& log) { contrast(D, v.integer(0), log); }},
    {"Colorize", [](Picture& D, A v, EventLog& log) { colorize(D, v.real(0), v.real(1), v.real(2), log); }},
    {"Despeckle", [](Picture& D, A, EventLog& log) { despeckle(D, log); }},
    {"DespeckleMore", [](Picture& D, A, EventLog& log) { despeckleMore(D, log); }},
    {"Diffuse",
     [](Picture& D, A v, EventLog& log) {
         diffuse(D, v.integer(0), v.integer(1), v.integer(2), freshRandom(), log);
     }},
    {"Emboss", [](Picture& D, A v, EventLog& log) { emboss(D, v.integer(0), v.flag(1), log); }},
    {"Engrave", [](Picture& D, A v, EventLog& log) { engrave(D, v.integer(0), v.flag(1), log); }},
    {"Greys", [](Picture& D, A, EventLog& log) { greys(D, log); }},
    {"Negative", [](Picture& D, A, EventLog& log) { negative(D, log); }},
    {"Noise",
     [](Picture& D, A v, EventLog& log) { noise(D, v.integer(0), v.integer(1), freshRandom(), log); }},
    {"Outline", [](Picture& D, A v, EventLog& log) { outline(D, v.integer(0), v.integer(1), log); }},
    {"Pixelize", [](Picture& D, A v, EventLog& log) { pixelize(D, v.integer(0), log); }},
    {"RankFilterMaximum", [](Picture& D, A, EventLog& log) { rankFilterMaximum(D, log); }},
    {"RankFilterMinimum", [](Picture& D, A, EventLog& log) { rankFilterMinimum(D, log); }},
    {"Relieve", [](Picture& D, A v, EventLog& log) { relieve(D, v.integer(0), log); }},
    {"ReplaceHS",
     [](Picture& D, A v, EventLog& log) {
         replaceHS(D, v.integer(0), v.integer(1), v.integer(2), v.integer(3), v.integer(4), log);
     }},
    {"ReplaceL",
     [](Picture& D, A v, EventLog& log) {
         replaceL(D, v.integer(0), v.integer(1), v.integer(2), v.integer(3), log);
     }},
    {"SaltAndPepperRemoval",
     [](Picture& D, A v, EventLog& log) { saltAndPepperRemoval(D, v.integer(0), log); }},
    {"Saturation", [](Picture& D, A v, EventLog& log) { saturation(D, v.integer(0), log); }},
    {"ScanLines", [](Picture& D, A v, EventLog& log) { scanLines(D, v.integer(0), v.integer(1), log); }},
    {"Sharpen", [](Picture& D, A v, EventLog& log) { sharpen(D, v.integer(0), log); }},
    {"Shift",
     [](Picture& D, A v, EventLog& log) { shift(D, v.integer(0), v.integer(1), v.integer(2), log); }},
    {"ShiftRGB",
     [](Picture& D, A v, EventLog& log) { shiftRGB(D, v.integer(0), v.integer(1), v.integer(2), log); }},
    {"Soften", [](Picture& D, A v, EventLog& log) { soften(D, v.integer(0), log); }},
    {"Texturize", [](Picture& D, A v, EventLog& log) { texturize(D, v.texture, log); }},
};

}  // namespace

void callRecipe(std::string_view name, Picture& D, const std::array<double, 5>& values,
                const Picture& texture, EventLog& log) {
    for (const NamedRecipe& recipe : kRecipes) {
        if (recipe.name == name) return recipe.run(D, {values, texture}, log);
    }
    throw std::invalid_argument("no recipe " + std::string(name));
}

}  // namespace mobrel::recipes
