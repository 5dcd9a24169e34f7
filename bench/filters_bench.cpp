// SPDX-License-Identifier: MIT
#include "filters_bench.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "filters/FilterCatalogue.hpp"
#include "support/EventLog.hpp"
#include "support/PhotoPicture.hpp"
#include "support/PictureBench.hpp"
#include "support/RecipeCall.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::bench {
namespace {

/// Values for arguments that have no preset, or one that says little of the speed. The colours are frequent
/// ones of the photo.
struct ChosenValue {
    std::string_view operation;
    std::string_view argument;
    double value;
};
constexpr ChosenValue kChosenValues[] = {
    {"Contrast", "Level", 50},
    {"Pixelize", "PixelSize", 10},
    {"ReplaceHS", "ColorFrom", 0x808080},
    {"ReplaceHS", "ColorTo", 0x2040C0},
    {"ReplaceHS", "Tolerance", 60},
    {"ReplaceHS", "HTolerance", 40},
    {"ReplaceHS", "STolerance", 40},
    {"ReplaceL", "ColorFrom", 0x808080},
    {"ReplaceL", "ColorTo", 0x2040C0},
    {"ReplaceL", "Tolerance", 60},
    {"ReplaceL", "LTolerance", 10},
    {"SaltAndPepperRemoval", "Threshold", 40},
    {"Saturation", "Level", 60},
    {"Shift", "ColorFrom", 0x808080},
    {"Shift", "Inc", 60},
    {"Shift", "Tolerance", 60},
    {"ShiftRGB", "RInc", 20},
    {"ShiftRGB", "GInc", -10},
    {"ShiftRGB", "BInc", 35},
};

/// Rows of their own for the two ends of what a selection by colour costs.
struct SelectionCase {
    std::string_view row;
    std::string_view operation;
    std::array<double, kMostArguments> values;
};
/// The photo holds no green; all of its colours lie within 200 of the middle grey.
constexpr SelectionCase kSelectionCases[] = {
    {"ReplaceHS_far", "ReplaceHS", {0x00FF00, 0x2040C0, 0, 100, 100}},
    {"ReplaceHS_near", "ReplaceHS", {0x808080, 0x2040C0, 200, 100, 100}},
    {"ReplaceL_far", "ReplaceL", {0x00FF00, 0x2040C0, 0, 100}},
    {"ReplaceL_near", "ReplaceL", {0x808080, 0x2040C0, 200, 100}},
    {"Shift_far", "Shift", {0x00FF00, 60, 0}},
    {"Shift_near", "Shift", {0x808080, 60, 200}},
};

double valueOf(const FilterEntry& entry, const Argument& argument) {
    for (const ChosenValue& chosen : kChosenValues) {
        if (chosen.operation == entry.name && chosen.argument == argument.name) return chosen.value;
    }
    if (argument.preset) return *argument.preset;
    throw std::logic_error(std::string(entry.name) + ": no value for " + std::string(argument.name));
}

ArgumentValues valuesOf(const FilterEntry& entry, const cDIB& texture) {
    ArgumentValues values;
    std::size_t i = 0;
    for (const Argument& argument : entry.arguments()) {
        if (argument.kind == ArgumentKind::Texture) {
            values.texture = &texture;
        } else {
            values.numbers[i] = valueOf(entry, argument);
        }
        ++i;
    }
    return values;
}

void runFilter(const FilterEntry& entry, cDIB& picture, const ArgumentValues& values) {
    RandomSource random;
    cDIBFilter filter(random);
    filter.Progress.connect([](std::int32_t) {});
    filter.ProgressEnd.connect([] {});
    entry.apply(filter, picture, values);
}

void runRecipe(std::string_view name, cDIB& picture, const ArgumentValues& values, const cDIB& texture) {
    test::Picture plain = test::fromSurface(picture);
    test::EventLog log;
    recipes::callRecipe(name, plain, values.numbers, test::fromSurface(texture), log);
    test::toSurface(plain, picture);
}

}  // namespace

std::vector<PictureOperation> filterOperations() {
    const auto texture = std::make_shared<cDIB>();
    if (!texture->Create(64, 64, 0)) throw std::runtime_error("no memory for the texture");
    paintPhoto(*texture);
    std::vector<PictureOperation> operations;
    const auto add = [&](std::string_view row, const FilterEntry& entry, const ArgumentValues& values) {
        operations.push_back(
            {"filters", std::string(row),
             [&entry, values, texture](cDIB& picture) { runFilter(entry, picture, values); },
             [&entry, values, texture](cDIB& picture) { runRecipe(entry.name, picture, values, *texture); }});
    };
    for (const FilterEntry& entry : kFilterCatalogue) {
        add(entry.name, entry, valuesOf(entry, *texture));
        for (const SelectionCase& selection : kSelectionCases) {
            if (selection.operation == entry.name) add(selection.row, entry, {selection.values, nullptr});
        }
    }
    return operations;
}

}  // namespace mobrel::bench
