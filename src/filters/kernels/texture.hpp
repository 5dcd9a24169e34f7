// SPDX-License-Identifier: MIT
// The inner loop that lays a grey texture over a picture.
#pragma once

#include <cstdint>

namespace mobrel::kernels {

/// Each channel becomes Round(c t / 128 + t - 128), limited to a byte; t is the blue of the texture's
/// pixel. The texture's row repeats every textureWidth pixels.
void texturizeRow(std::uint8_t* row, int width, const std::uint8_t* texture, int textureWidth);

}  // namespace mobrel::kernels
