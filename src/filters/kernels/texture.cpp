// SPDX-License-Identifier: MIT
#include "filters/kernels/texture.hpp"

#include <algorithm>
#include <cstring>

#include "filters/kernels/texture_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel::kernels {

void repeatRow(const std::uint8_t* row, std::size_t bytes, std::span<std::uint8_t> to) {
    while (!to.empty()) {
        const std::size_t count = std::min(bytes, to.size());
        std::memcpy(to.data(), row, count);
        to = to.subspan(count);
    }
}

void texturizeRow(std::uint8_t* row, int width, const std::uint8_t* texture) {
    const std::size_t end = static_cast<std::size_t>(width) * 4;
    for (std::size_t at = texturizePixels(row, static_cast<std::size_t>(width), texture) * 4; at < end;
         at += 4) {
        const int t = texture[at];
        const double a = t / 128.0;  // exact, as a float too
        for (std::size_t channel = at; channel < at + 3; ++channel) {
            row[channel] = clampByte(roundInt(row[channel] * a + (t - 128)));
        }
    }
}

}  // namespace mobrel::kernels
