// SPDX-License-Identifier: MIT
#include "filters/kernels/texture.hpp"

#include "platform/Numbers.hpp"

namespace mobrel::kernels {

void texturizeRow(std::uint8_t* row, int width, const std::uint8_t* texture, int textureWidth) {
    int column = 0;
    for (int x = 0; x < width; ++x, row += 4) {
        const int t = texture[std::ptrdiff_t{column} * 4];
        const double a = t / 128.0;  // exact, as a float too
        for (int channel = 0; channel < 3; ++channel)
            row[channel] = clampByte(roundInt(row[channel] * a + (t - 128)));
        if (++column == textureWidth) column = 0;
    }
}

}  // namespace mobrel::kernels
