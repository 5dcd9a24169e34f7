// SPDX-License-Identifier: MIT
#include "support/Targets.hpp"

#include <algorithm>
#include <iterator>

namespace mobrel::bench {
namespace {

struct Target {
    std::string_view operation;
    double copies;
};

constexpr Target kTargets[] = {
    {"Negative", 0.6},
    {"ShiftRGB", 1.2},
    {"Greys", 2},
    {"ScanLines", 2},
    {"Contrast", 4},
    {"Saturation", 5},
    {"Colorize", 4},
    {"Blur", 4.5},
    {"Sharpen", 4.5},
    {"Soften", 2.5},
    {"Contour", 4},
    {"Emboss", 4.5},
    {"Engrave", 4.5},
    {"Relieve", 6},
    {"Outline", 9},
    {"RankFilterMaximum", 1.5},
    {"RankFilterMinimum", 1.5},
    {"Despeckle", 14},
    {"DespeckleMore", 22},
    {"SaltAndPepperRemoval", 25},
    {"Noise", 6},
    {"Diffuse", 7},
    {"Pixelize", 3.5},
    {"Texturize", 4},
    {"Shift_far", 4},
    {"Shift_near", 15},
    {"ReplaceL_far", 4},
    {"ReplaceL_near", 15},
    {"ReplaceHS_far", 4},
    {"ReplaceHS_near", 15},
    {"DitherToBlackAndWhite", 13},
    {"DitherToGreyPalette_16", 12},
    {"DitherToGreyPalette_256", 3},
    {"DitherToColorPalette_16", 18},
    {"DitherToColorPalette_256", 18},
    {"Colors256", 22},
    {"CountColors", 5},
    {"Orientation_FlipH", 1.2},
    {"Orientation_FlipV", 1.2},
    {"Orientation_Rotate90", 5},
    {"StretchDIB_quarter", 7},
    {"Save_BMP", 4},
    {"Load_BMP", 4},
};

}  // namespace

std::optional<double> targetOf(std::string_view operation) {
    const auto* const at = std::ranges::find(kTargets, operation, &Target::operation);
    if (at == std::end(kTargets)) return std::nullopt;
    return at->copies;
}

}  // namespace mobrel::bench
