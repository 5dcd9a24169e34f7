// SPDX-License-Identifier: MIT
#include "platform/pictures/codecs/JpegExif.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace mobrel {

namespace {

constexpr std::array<std::uint8_t, 6> kExif{'E', 'x', 'i', 'f', 0, 0};
constexpr std::size_t kEntryBytes = 12;
constexpr std::uint32_t kOrientationTag = 0x0112;
constexpr std::uint32_t kShort = 3;

// Numbers in the file's byte order. What lies outside of the data reads as 0.
class TiffData {
 public:
    explicit TiffData(std::span<const std::uint8_t> bytes) noexcept
        : m_bytes(bytes), m_isBigEndian(!bytes.empty() && bytes[0] == 'M') {}

    std::uint32_t u16(std::size_t at) const noexcept { return number(at, 2); }
    std::uint32_t u32(std::size_t at) const noexcept { return number(at, 4); }

 private:
    std::uint32_t number(std::size_t at, std::size_t bytes) const noexcept {
        if (at > m_bytes.size() || m_bytes.size() - at < bytes) return 0;
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < bytes; ++i) {
            value = value << 8 | m_bytes[m_isBigEndian ? at + i : at + bytes - 1 - i];
        }
        return value;
    }

    std::span<const std::uint8_t> m_bytes;
    bool m_isBigEndian;
};

}  // namespace

int exifOrientation(std::span<const std::uint8_t> segment) noexcept {
    if (segment.size() < kExif.size() || !std::ranges::equal(segment.first(kExif.size()), kExif)) return 0;
    const TiffData data(segment.subspan(kExif.size()));
    if (data.u16(2) != 42) return 1;
    const std::size_t directory = data.u32(4);
    const std::uint32_t entries = data.u16(directory);
    for (std::size_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + i * kEntryBytes;
        if (data.u16(entry) != kOrientationTag) continue;
        const std::uint32_t value = data.u16(entry + 8);
        const bool isValid = data.u16(entry + 2) == kShort && value >= 1 && value <= 8;
        return isValid ? static_cast<int>(value) : 1;
    }
    return 1;
}

}  // namespace mobrel
