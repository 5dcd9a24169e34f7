// SPDX-License-Identifier: MIT
#include "imaging/PictureInfo.hpp"

#include "platform/base/Numbers.hpp"

namespace mobrel {

PictureInfo infoOf(const cDIB& DIB, const cDIBPal& Pal, const cDIBDither& Dither, int depth) {
    const int width = DIB.Width();
    const int height = DIB.Height();
    return {width,
            height,
            depth,
            paletteLabel(depth, Pal.IsGreyScale()),
            Dither.CountColors(DIB),
            pvCalcSize(width, height, depth)};
}

std::int32_t pvCalcSize(int width, int height, int bpp) {
    constexpr std::int32_t kHeaders = 54;
    const std::int32_t paletteBytes = bpp <= 8 ? (1 << bpp) * 4 : 0;
    const std::int32_t pixelBytes = wrapMul(wrapMul(div(wrapAdd(wrapMul(bpp, width), 31), 32), height), 4);
    return wrapAdd(paletteBytes + kHeaders, pixelBytes);
}

std::string paletteLabel(int bpp, bool isGrey) {
    switch (bpp) {
        case 1:
            return isGrey ? "Black and White" : "2 colors";
        case 4:
            return isGrey ? "16 greys" : "16 colors";
        case 8:
            return isGrey ? "256 greys" : "256 colors";
        case 24:
            return "None";
        default:
            return {};
    }
}

std::string bitmapSizeLabel(std::int32_t bytes) {
    const std::int64_t tenths = (std::int64_t{bytes} * 10 + 512) / 1024;  // to nearest, halves up
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " Kb";
}

}  // namespace mobrel
