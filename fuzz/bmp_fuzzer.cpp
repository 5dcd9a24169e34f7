// SPDX-License-Identifier: MIT
// Fuzz target of the bitmap reader: any bytes give a sound picture or a PictureError.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <span>
#include <string>

#include "platform/pictures/BmpReader.hpp"
#include "platform/pictures/LittleEndian.hpp"
#include "support/PictureChecks.hpp"

namespace {

using namespace mobrel;

constexpr std::int64_t kMaxPixels = 16 * 1024 * 1024;  // 64 MiB
constexpr std::int64_t kMaxPipedPixels = 64 * 1024;

// The pixels that the header claims, read from where every header has its sides, so that no input costs
// more memory and time than a fuzzer has. 0 for an input too short to claim anything.
std::int64_t claimedPixels(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < 26) return 0;
    const bool isCore = loadU32(bytes.data() + 14) == 12;
    const std::int64_t width = isCore ? loadU16(bytes.data() + 18) : loadI32(bytes.data() + 18);
    const std::int64_t height = isCore ? loadU16(bytes.data() + 20) : loadI32(bytes.data() + 22);
    return std::abs(width) * std::abs(height);
}

void require(bool holds, const std::string& what) {
    if (holds) return;
    std::fprintf(stderr, "bmp_fuzzer: %s\n", what.c_str());
    std::abort();
}

std::optional<StdPicture> readFrom(ByteSource&& source) {
    BufferedSource buffered(source);
    try {
        return readBmp(buffered);
    } catch (const PictureError& error) {
        require(*error.what() != '\0', "a refusal without a reason");
        return std::nullopt;
    }
}

bool isSame(const StdPicture& a, const StdPicture& b) {
    if (a.pixels.width() != b.pixels.width() || a.pixels.height() != b.pixels.height()) return false;
    const std::size_t bytes = a.pixels.bytesPerRow() * static_cast<std::size_t>(a.pixels.height());
    return a.bitsPixel == b.bitsPixel && a.colorTable == b.colorTable && a.indices == b.indices &&
           std::equal(a.pixels.bits(), a.pixels.bits() + bytes, b.pixels.bits());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::span<const std::uint8_t> bytes(data, size);
    const std::int64_t claimed = claimedPixels(bytes);
    if (claimed > kMaxPixels) return 0;

    const std::optional<StdPicture> picture = readFrom(MemorySource(bytes));
    if (picture) {
        const std::string flaw = test::flawOf(*picture);
        require(flaw.empty(), flaw);
        const std::int64_t pixels = std::int64_t{picture->pixels.width()} * picture->pixels.height();
        require(pixels == claimed, "the picture has not the size that the header tells");
    }
    // A pipe, whose bytes cannot be counted before, gives the same.
    if (claimed > kMaxPipedPixels) return 0;
    const std::optional<StdPicture> piped = readFrom(test::PipeSource(bytes));
    require(picture.has_value() == piped.has_value(), "a pipe is judged otherwise than memory");
    if (picture && piped) require(isSame(*picture, *piped), "a pipe gives another picture than memory");
    return 0;
}
