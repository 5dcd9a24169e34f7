// SPDX-License-Identifier: MIT
// The parts of an uncompressed bitmap file.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "platform/pictures/PictureView.hpp"
#include "platform/pictures/StdPicture.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

inline constexpr std::uint32_t kBmpFileHeaderBytes = 14;
inline constexpr std::uint32_t kBmpInfoHeaderBytes = 40;

/// What the headers tell. The rows are bottom first.
struct BmpHeaderFields {
    int width = 0;
    int height = 0;
    int bits = 24;
    /// As they stand in the file: writers differ in what they count, readers mostly ignore both.
    std::uint32_t fileBytes = 0;
    std::uint32_t rowBytes = 0;
    /// Each entry's byte 3 is written as it is.
    std::span<const RgbQuad> colorTable{};
};

/// All that stands before the rows: both headers and the colour table.
std::vector<std::uint8_t> bmpHeaders(const BmpHeaderFields& fields);

/// Writes the picture as rows of 24 bits, bottom line first, padded with zeros. Throws as FileWriter does.
void writeBmpRows(FileWriter& file, const PictureView& picture);

}  // namespace mobrel
