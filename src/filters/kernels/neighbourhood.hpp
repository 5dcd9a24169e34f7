// SPDX-License-Identifier: MIT
// The pixels around a pixel. Rows come from the unchanged picture; only the inner pixels, 1 to width - 2, are
// written.
#pragma once

#include <algorithm>
#include <cstdint>

namespace mobrel::kernels {

/// Three rows of the unchanged picture: y - 1, y and y + 1, each width pixels.
struct Rows3 {
    const std::uint8_t* below;
    const std::uint8_t* at;
    const std::uint8_t* above;
};

/// One channel of a pixel and of the eight around it.
struct Window {
    int belowLeft, below, belowRight;
    int left, centre, right;
    int aboveLeft, above, aboveRight;

    int beside() const { return below + above + right + left; }
    int around() const { return beside() + belowLeft + belowRight + aboveLeft + aboveRight; }
    int largest() const {
        return std::max({belowLeft, below, belowRight, left, centre, right, aboveLeft, above, aboveRight});
    }
};

inline Window windowAt(const Rows3& rows, int at) {
    return {rows.below[at - 4], rows.below[at],     rows.below[at + 4], rows.at[at - 4],   rows.at[at],
            rows.at[at + 4],    rows.above[at - 4], rows.above[at],     rows.above[at + 4]};
}

/// Writes rule(window) to the three channels of each inner pixel from column `first` on.
template <typename Rule>
void forInnerChannels(const Rows3& from, std::uint8_t* to, int first, int width, Rule rule) {
    for (int x = first; x < width - 1; ++x) {
        for (int at = x * 4; at < x * 4 + 3; ++at) to[at] = rule(windowAt(from, at));
    }
}

/// The same for all of them.
template <typename Rule>
void forInnerChannels(const Rows3& from, std::uint8_t* to, int width, Rule rule) {
    forInnerChannels(from, to, 1, width, rule);
}

}  // namespace mobrel::kernels
