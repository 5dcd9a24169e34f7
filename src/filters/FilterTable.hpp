// SPDX-License-Identifier: MIT
// The filters as the filter dialog offers them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "filters/cDIBFilter.hpp"
#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// The filters by their places in the list; fMain::LastFilterID holds such a number.
enum class FilterId : std::int16_t {
    None,
    Blur,
    Brightness,
    Colorize,
    Contour,
    Contrast,
    Despeckle,
    DespeckleMore,
    Diffuse,
    Dilate,
    Emboss,
    Erode,
    Greys,
    Negative,
    Noise,
    Outline,
    Pixelize,
    Relieve,
    ReplaceHS,
    ReplaceL,
    RgbLevels,
    SaltAndPepperRemoval,
    Saturation,
    ScanLines,
    Sepia,
    Sharpen,
    Shift,
    Soften,
};

constexpr std::size_t kFilterSliders = 3;

struct FilterSlider {
    std::string_view caption;
    std::int32_t least = 0;
    std::int32_t greatest = 0;
    std::int32_t preset = 0;
};

enum class FilterColors { None, From, FromAndTo };

/// What a person has set.
struct FilterValues {
    std::array<std::int32_t, kFilterSliders> sliders = {};
    Color from = 0;
    Color to = 0;
};

struct FilterTableEntry {
    std::string_view caption;
    void (*apply)(cDIBFilter& filter, cDIB& target, const FilterValues& values);
    /// Those with a caption are shown.
    std::array<FilterSlider, kFilterSliders> sliders = {};
    FilterColors colors = FilterColors::None;
};

/// The entry of a filter stands at the place of its FilterId.
extern const std::array<FilterTableEntry, 28> kFilterTable;

}  // namespace mobrel
