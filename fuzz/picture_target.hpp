// SPDX-License-Identifier: MIT
// What the fuzz targets of the picture readers have in common.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>

#include "platform/pictures/ReadOptions.hpp"
#include "platform/system/BufferedSource.hpp"
#include "support/PictureChecks.hpp"

namespace mobrel::fuzz {

using Reader = StdPicture (*)(BufferedSource&, const ReadOptions&);

inline void require(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "picture fuzzer: %s\n", what.c_str());
    std::abort();
}

inline std::optional<StdPicture> readFrom(Reader reader, ByteSource&& source) {
    // No input costs more memory and time than a fuzzer has.
    constexpr ReadOptions kOptions{.background = 0x123456, .maxPixels = 1 << 16};
    BufferedSource buffered(source);
    try {
        return reader(buffered, kOptions);
    } catch (const PictureError& error) {
        require(*error.what() != '\0', "a refusal without a reason");
        return std::nullopt;
    }
}

inline bool isSame(const StdPicture& a, const StdPicture& b) {
    if (a.pixels.width() != b.pixels.width() || a.pixels.height() != b.pixels.height()) return false;
    const std::size_t bytes = a.pixels.bytesPerRow() * static_cast<std::size_t>(a.pixels.height());
    return a.bitsPixel == b.bitsPixel && a.colorTable == b.colorTable && a.indices == b.indices &&
           a.hadTransparency == b.hadTransparency && a.orientation == b.orientation &&
           std::equal(a.pixels.bits(), a.pixels.bits() + bytes, b.pixels.bits());
}

/// Any bytes give a sound picture or a PictureError, and a pipe gives the same as memory.
inline void checkReader(Reader reader, std::span<const std::uint8_t> bytes) {
    const std::optional<StdPicture> picture = readFrom(reader, MemorySource(bytes));
    if (picture) {
        const std::string flaw = test::flawOf(*picture);
        require(flaw.empty(), flaw);
        require(picture->orientation >= 1 && picture->orientation <= 8, "an orientation that is none");
    }
    const std::optional<StdPicture> piped = readFrom(reader, test::PipeSource(bytes));
    require(picture.has_value() == piped.has_value(), "a pipe is judged otherwise than memory");
    if (picture && piped) require(isSame(*picture, *piped), "a pipe gives another picture than memory");
}

}  // namespace mobrel::fuzz
