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

/// The place is the filter's number, here and in a host's hand-off. Place 0 is none.
extern const std::array<FilterTableEntry, 28> kFilterTable;

}  // namespace mobrel
