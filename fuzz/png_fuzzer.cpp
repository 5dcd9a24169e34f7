// SPDX-License-Identifier: MIT
// Fuzz target of the PNG reader: any bytes give a sound picture or a PictureError.
#include <vector>

#include "picture_target.hpp"
#include "platform/pictures/codecs/PngReader.hpp"

namespace {

std::uint32_t loadBigEndian(const std::uint8_t* bytes) {
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

std::uint32_t crcOf(std::span<const std::uint8_t> bytes) {
    std::uint32_t crc = 0xFFFFFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ ((crc & 1) != 0 ? 0xEDB88320 : 0);
    }
    return ~crc;
}

// Puts the checksums of all chunks right, which a fuzzer would hardly guess.
std::vector<std::uint8_t> withChecksums(std::span<const std::uint8_t> bytes) {
    std::vector<std::uint8_t> file(bytes.begin(), bytes.end());
    std::size_t chunk = 8;
    while (chunk + 12 <= file.size()) {
        const std::size_t length = loadBigEndian(&file[chunk]);
        if (length > file.size() - chunk - 12) break;
        const std::uint32_t crc = crcOf(std::span(file).subspan(chunk + 4, length + 4));
        chunk += 8 + length;
        for (const int shift : {24, 16, 8, 0}) file[chunk++] = static_cast<std::uint8_t>(crc >> shift);
    }
    return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    mobrel::fuzz::checkReader(mobrel::readPng, {data, size});
    mobrel::fuzz::checkReader(mobrel::readPng, withChecksums({data, size}));
    return 0;
}
