// SPDX-License-Identifier: MIT
#include "imaging/cDIBSave.hpp"

#include <span>
#include <vector>

#include "platform/base/RuntimeError.hpp"
#include "platform/pictures/BmpWriter.hpp"

namespace mobrel {

namespace {

bool isIndexed(std::uint8_t bpp) {
    return bpp == 1 || bpp == 4 || bpp == 8;
}

std::vector<RgbQuad> colorTable(const cDIBPal& Pal, std::uint8_t bpp) {
    std::vector<RgbQuad> table(bpp < 9 ? 1U << bpp : 0);
    for (std::size_t i = 0; i < table.size(); ++i) {
        const auto entry = static_cast<std::uint8_t>(i);
        table[i] = {Pal.rgbB(entry), Pal.rgbG(entry), Pal.rgbR(entry), 0};
    }
    return table;
}

/// What the writer needs is checked here, before an old file is touched.
std::vector<std::uint8_t> checkedHeaders(const cDIB& DIB, const cDIBPal& Pal, const cDIBDither* Dither,
                                         std::uint8_t bpp) {
    const std::vector<RgbQuad> table = colorTable(Pal, bpp);
    if (isIndexed(bpp) && Dither == nullptr) throw RuntimeError(ErrorNumber::ObjectNotSet);
    const auto tableBytes = static_cast<std::uint32_t>(table.size() * sizeof(RgbQuad));
    const auto rowBytes = static_cast<std::uint32_t>(packedStride(DIB.Width(), bpp) * DIB.Height());
    return bmpHeaders({
        .width = DIB.Width(),
        .height = DIB.Height(),
        .bits = bpp,
        // kept: the size leaves the file header out of its sum; hosts know the value
        .fileBytes = kBmpInfoHeaderBytes + tableBytes + rowBytes,
        .colorTable = table,
    });
}

void writeZeroRows(FileWriter& file, const cDIB& DIB, std::uint8_t bpp) {
    const std::vector<std::uint8_t> row(static_cast<std::size_t>(packedStride(DIB.Width(), bpp)));
    for (int y = 0; y < DIB.Height(); ++y) file.write(row);
}

void writeContents(FileWriter& file, std::span<const std::uint8_t> headers, const cDIB& DIB,
                   const cDIBDither* Dither, std::uint8_t bpp) {
    file.write(headers);
    if (isIndexed(bpp)) {
        file.write(Dither->PalID());
    } else if (bpp == 24) {
        writeBmpRows(file, DIB.view());
    } else {
        writeZeroRows(file, DIB, bpp);
    }
}

template <typename Open>
void save(Open open, const std::string& sFilename, const cDIB& DIB, const cDIBPal& Pal,
          const cDIBDither* Dither, std::uint8_t bpp) {
    if (DIB.hDIB() == nullptr) return;
    const auto headers = checkedHeaders(DIB, Pal, Dither, bpp);
    FileWriter file = open(sFilename);
    writeContents(file, headers, DIB, Dither, bpp);
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
    writeContents(file, checkedHeaders(DIB, Pal, Dither, bpp), DIB, Dither, bpp);
}

}  // namespace mobrel
