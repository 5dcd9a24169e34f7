// SPDX-License-Identifier: MIT
// What a JPEG file's EXIF data says about the picture.
#pragma once

#include <cstdint>
#include <span>

namespace mobrel {

/// The orientation, 1 to 8, of the content of an APP1 segment; 0 when it is no EXIF data, 1 when it tells
/// none or is damaged.
///
/// Source: JEITA CP-3451, "Exchangeable image file format for digital still cameras".
int exifOrientation(std::span<const std::uint8_t> segment) noexcept;

}  // namespace mobrel
