// SPDX-License-Identifier: MIT
#include "imaging/cDIBSave.hpp"

#include <algorithm>
#include <cstring>
#include <span>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "platform/drawing/rearrange_vectors.hpp"

namespace mobrel {

namespace {

constexpr int kFileHeaderSize = 14;
constexpr int kInfoHeaderSize = 40;

/// Appends little-endian integers to the headers of a file.
class HeaderBytes {
 public:
    void put16(std::uint32_t value) {
        m_bytes.push_back(static_cast<std::uint8_t>(value));
        m_bytes.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    void put32(std::uint32_t value) {
        put16(value & 0xFFFF);
        put16(value >> 16);
    }
    void putEntry(std::uint8_t blue, std::uint8_t green, std::uint8_t red) {
        m_bytes.insert(m_bytes.end(), {blue, green, red, 0});
    }
    std::span<const std::uint8_t> bytes() const { return m_bytes; }

 private:
    std::vector<std::uint8_t> m_bytes;
};

std::vector<std::uint8_t> packedHeaders(const cDIB& DIB, const cDIBPal& Pal, std::uint8_t bpp) {
    const std::uint32_t entries = bpp < 9 ? 1U << bpp : 0;
    const std::uint32_t tableSize = entries * 4;
    const auto rowBytes = static_cast<std::uint32_t>(packedStride(DIB.Width(), bpp) * DIB.Height());

    HeaderBytes headers;
    headers.put16(0x4D42);  // BM
    // kept: the size leaves the file header out of its sum; hosts know the value
    headers.put32(kInfoHeaderSize + tableSize + rowBytes);
    headers.put16(0);
    headers.put16(0);
    headers.put32(kFileHeaderSize + kInfoHeaderSize + tableSize);

    headers.put32(kInfoHeaderSize);
    headers.put32(static_cast<std::uint32_t>(DIB.Width()));
    headers.put32(static_cast<std::uint32_t>(DIB.Height()));
    headers.put16(1);  // planes
    headers.put16(bpp);
    for (int field = 0; field < 6; ++field) headers.put32(0);  // compression to important colours

    for (std::uint32_t i = 0; i < entries; ++i) {
        const auto entry = static_cast<std::uint8_t>(i);
        headers.putEntry(Pal.rgbB(entry), Pal.rgbG(entry), Pal.rgbR(entry));
    }
    const auto bytes = headers.bytes();
    return {bytes.begin(), bytes.end()};
}

/// Drops byte 3 of every pixel.
void packRow24(const std::uint8_t* from, int width, std::uint8_t* to) {
    const auto count = static_cast<std::size_t>(width);
    for (std::size_t x = kernels::packPixels(from, count, to); x < count; ++x) {
        std::memcpy(to + x * 3, from + x * 4, 3);
    }
}

void writeTrueColorRows(FileWriter& file, const cDIB& DIB) {
    constexpr std::size_t kChunk = 128 * 1024;  // more than the writer gathers, less than the cache holds
    const auto stride = static_cast<std::size_t>(packedStride(DIB.Width(), 24));
    const std::size_t rowsAtOnce = std::min(kChunk / stride + 1, static_cast<std::size_t>(DIB.Height()));
    std::vector<std::uint8_t> rows(rowsAtOnce * stride);  // the padding stays zero

    std::size_t filled = 0;
    for (int y = 0; y < DIB.Height(); ++y) {
        packRow24(DIB.hDIB()->row(y), DIB.Width(), rows.data() + filled * stride);
        if (++filled == rowsAtOnce || y == DIB.Height() - 1) {
            file.write(std::span(rows).first(filled * stride));
            filled = 0;
        }
    }
}

void writeZeroRows(FileWriter& file, const cDIB& DIB, std::uint8_t bpp) {
    const std::vector<std::uint8_t> row(static_cast<std::size_t>(packedStride(DIB.Width(), bpp)));
    for (int y = 0; y < DIB.Height(); ++y) file.write(row);
}

std::span<const std::uint8_t> indexRows(const cDIBDither* Dither) {
    if (Dither == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    return Dither->PalID();
}

/// What the writer needs is checked here, before an old file is touched.
std::vector<std::uint8_t> checkedHeaders(const cDIB& DIB, const cDIBPal& Pal, const cDIBDither* Dither,
                                         std::uint8_t bpp) {
    auto headers = packedHeaders(DIB, Pal, bpp);
    if (bpp == 1 || bpp == 4 || bpp == 8) indexRows(Dither);
    return headers;
}

void writePicture(FileWriter& file, std::span<const std::uint8_t> headers, const cDIB& DIB,
                  const cDIBDither* Dither, std::uint8_t bpp) {
    file.write(headers);
    switch (bpp) {
        case 1:
        case 4:
        case 8:
            file.write(indexRows(Dither));
            break;
        case 24:
            writeTrueColorRows(file, DIB);
            break;
        default:
            writeZeroRows(file, DIB, bpp);
            break;
    }
}

template <typename Open>
void save(Open open, const std::string& sFilename, const cDIB& DIB, const cDIBPal& Pal,
          const cDIBDither* Dither, std::uint8_t bpp) {
    if (DIB.hDIB() == nullptr) return;
    const auto headers = checkedHeaders(DIB, Pal, Dither, bpp);
    FileWriter file = open(sFilename);
    writePicture(file, headers, DIB, Dither, bpp);
    file.close();
}

}  // namespace

void cDIBSave::Save_BMP(const std::string& sFilename, const cDIB& DIB, const cDIBPal& Pal,
                        const cDIBDither* Dither, std::uint8_t bpp) const {
    save(FileWriter::replace, sFilename, DIB, Pal, Dither, bpp);
}

void cDIBSave::Save_Private_BMP(const std::string& sFilename, const cDIB& DIB, const cDIBPal& Pal,
                                const cDIBDither* Dither, std::uint8_t bpp) const {
    save(FileWriter::replacePrivate, sFilename, DIB, Pal, Dither, bpp);
}

void cDIBSave::Write_BMP(FileWriter& file, const cDIB& DIB, const cDIBPal& Pal, const cDIBDither* Dither,
                         std::uint8_t bpp) const {
    if (DIB.hDIB() == nullptr) return;
    writePicture(file, checkedHeaders(DIB, Pal, Dither, bpp), DIB, Dither, bpp);
}

}  // namespace mobrel
