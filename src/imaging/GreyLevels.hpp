// SPDX-License-Identifier: MIT
// The even greys that a picture can be reduced to.
#pragma once

#include <cstdint>

namespace mobrel {

/// The levels of a depth of 1, 4 or 8 bits, from black to white. A grey's index is that of the nearest one.
struct GreyLevels {
    std::uint32_t step;
    // A grey's index is (factor x grey + offset) div 2^16.
    std::uint32_t factor;
    std::uint32_t offset;
    /// Index times this is the level as a colour, 0x00RRGGBB, with the index above it.
    std::uint32_t entry;

    constexpr explicit GreyLevels(int bits)
        : step(255U / ((1U << bits) - 1)),
          factor((0x10000 + step - 1) / step),
          offset(factor * (step / 2)),
          entry(0x01000000 + step * 0x010101) {}

    constexpr std::uint32_t index(std::uint32_t grey) const { return (factor * grey + offset) >> 16; }
};

/// A level is never as far as half a step away: each step is odd.
constexpr bool isNearest(const GreyLevels& levels) {
    for (std::uint32_t grey = 0; grey < 256; ++grey) {
        const std::uint32_t level = levels.index(grey) * levels.step;
        if (2 * (level > grey ? level - grey : grey - level) >= levels.step) return false;
    }
    return true;
}
static_assert(isNearest(GreyLevels(1)) && isNearest(GreyLevels(4)) && isNearest(GreyLevels(8)));

}  // namespace mobrel
