// SPDX-License-Identifier: MIT
#include "imaging/diffusion/SerpentineFloydSteinberg.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "imaging/NearestByCells.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

using Channels = std::array<std::int32_t, 3>;  // blue, green, red

/// The errors that have come to a line and to the one below.
class LineErrors {
 public:
    explicit LineErrors(int width) : m_here(static_cast<std::size_t>(width) + 2), m_below(m_here.size()) {}

    /// The component with the error that has come to column x of this line.
    std::uint8_t corrected(std::uint8_t component, int x, std::size_t channel) const {
        return clampByte(component + ((place(m_here, x)[channel] + 8) >> 4));
    }

    /// Spreads an error from column x to the column beside it in the direction of the scan, and below.
    void spread(int error, int x, int direction, std::size_t channel) {
        place(m_here, x + direction)[channel] += error * 7;
        place(m_below, x - direction)[channel] += error * 3;
        place(m_below, x)[channel] += error * 5;
        place(m_below, x + direction)[channel] += error;
    }

    void nextLine() {
        m_here.swap(m_below);
        std::ranges::fill(m_below, Channels{});
    }

 private:
    // One place more at each end takes what falls off the line.
    static Channels& place(std::vector<Channels>& line, int x) { return *(line.begin() + 1 + x); }
    static const Channels& place(const std::vector<Channels>& line, int x) { return *(line.begin() + 1 + x); }

    std::vector<Channels> m_here;
    std::vector<Channels> m_below;
};

}  // namespace

std::vector<std::uint8_t> diffuseSerpentine(const cDIB& DIB, std::span<const RgbQuad> palette) {
    const int width = DIB.Width();
    std::vector<std::uint8_t> all(static_cast<std::size_t>(width) * static_cast<std::size_t>(DIB.Height()));
    NearestByCells nearest(palette);
    LineErrors errors(width);
    std::uint8_t* indices = all.data();
    for (int y = 0; y < DIB.Height(); ++y, indices += width) {
        const std::uint8_t* line = DIB.hDIBDC()->line(y);
        const int direction = y % 2 == 0 ? 1 : -1;
        for (int i = 0, x = direction > 0 ? 0 : width - 1; i < width; ++i, x += direction) {
            const std::uint8_t* pixel = line + std::ptrdiff_t{x} * 4;
            const RgbQuad wanted = {errors.corrected(pixel[0], x, 0), errors.corrected(pixel[1], x, 1),
                                    errors.corrected(pixel[2], x, 2), 0};
            indices[x] = nearest.index(wanted);
            const RgbQuad& taken = palette[indices[x]];
            errors.spread(wanted.blue - taken.blue, x, direction, 0);
            errors.spread(wanted.green - taken.green, x, direction, 1);
            errors.spread(wanted.red - taken.red, x, direction, 2);
        }
        errors.nextLine();
    }
    return all;
}

}  // namespace mobrel
