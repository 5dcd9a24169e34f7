// SPDX-License-Identifier: MIT
// Texturize: a grey texture laid over a picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace mobrel::kernels {

/// Fills `to` with the `bytes` of a row, over and over.
void repeatRow(const std::uint8_t* row, std::size_t bytes, std::span<std::uint8_t> to);

/// Each channel becomes Round(c t / 128 + t - 128), limited to a byte; t is the blue of the texture's pixel
/// at that place.
void texturizeRow(std::uint8_t* row, int width, const std::uint8_t* texture);

}  // namespace mobrel::kernels
