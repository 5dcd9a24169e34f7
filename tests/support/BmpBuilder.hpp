// SPDX-License-Identifier: MIT
// Writes bitmap files for tests, right ones and wrong ones.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <vector>

namespace mobrel::test {

using Bytes = std::vector<std::uint8_t>;

/// The parts of a bitmap file; each is written as it is, whether it makes sense or not.
struct BmpFile {
    std::uint32_t headerSize = 40;
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::uint16_t planes = 1;
    std::uint16_t bits = 24;
    std::uint32_t compression = 0;
    std::uint32_t colorsUsed = 0;
    /// In the header where that has room for them, else behind it.
    std::vector<std::uint32_t> masks{};
    /// 0xRRGGBB; 3 bytes each behind a header of 12 bytes, else 4.
    std::vector<std::uint32_t> colors{};
    Bytes rows{};
    /// The offset in the file header; the true one when not set.
    std::optional<std::uint32_t> pixelOffset{};

    Bytes bytes() const {
        Bytes header;
        put(header, headerSize, 4);
        const std::size_t sideBytes = headerSize == 12 ? 2 : 4;
        put(header, static_cast<std::uint32_t>(width), sideBytes);
        put(header, static_cast<std::uint32_t>(height), sideBytes);
        put(header, planes, 2);
        put(header, bits, 2);
        if (headerSize != 12) {
            put(header, compression, 4);
            for (int i = 0; i < 3; ++i) put(header, 0, 4);  // bytes of the pixels, resolution
            put(header, colorsUsed, 4);
            put(header, 0, 4);  // important colours
            for (const std::uint32_t mask : masks) put(header, mask, 4);
            header.resize(std::max<std::size_t>(header.size(), headerSize));
        }
        for (const std::uint32_t color : colors) put(header, color, headerSize == 12 ? 3 : 4);

        Bytes file{'B', 'M'};
        put(file, 0xFFFFFFFF, 4);  // the file's size, as wrong as in many files
        put(file, 0, 4);
        put(file, pixelOffset.value_or(static_cast<std::uint32_t>(14 + header.size())), 4);
        file.insert(file.end(), header.begin(), header.end());
        file.insert(file.end(), rows.begin(), rows.end());
        return file;
    }

 private:
    static void put(Bytes& to, std::uint32_t value, std::size_t bytes) {
        for (std::size_t i = 0; i < bytes; ++i) to.push_back(static_cast<std::uint8_t>(value >> 8 * i));
    }
};

}  // namespace mobrel::test
