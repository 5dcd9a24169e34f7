// SPDX-License-Identifier: MIT
#include "imaging/ColourDepth.hpp"

#include <algorithm>

#include "imaging/FittedPalette.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

/// How the pixels follow the palette.
enum class PixelWork { BlackAndWhite, Greys, Colors, TrueColor };

struct DepthRule {
    DepthCommand command;
    PixelWork work;
    std::uint8_t bpp;
    bool diffuse;
};

constexpr DepthRule kDepthRules[] = {
    {DepthCommand::BlackAndWhite, PixelWork::BlackAndWhite, 1, true},
    {DepthCommand::Greys16, PixelWork::Greys, 4, true},
    {DepthCommand::Greys256, PixelWork::Greys, 8, false},
    {DepthCommand::TwoColors, PixelWork::BlackAndWhite, 1, true},
    {DepthCommand::Colors16, PixelWork::Colors, 4, true},
    {DepthCommand::Colors256, PixelWork::Colors, 8, true},
    {DepthCommand::TrueColor, PixelWork::TrueColor, 24, false},
};

constexpr std::int32_t kBlackAndWhiteWeight = 15;

void createEvenGreys(cDIBPal& Pal, int bpp) {
    if (bpp == 4) {
        Pal.CreateGreys_016();
    } else {
        Pal.CreateGreys_256();
    }
}

void createFitted(cDIBPal& Pal, const cDIB& DIB, int bpp, const std::function<void(bool)>& hourglass) {
    cDIB copy;
    copyForPalette(copy, DIB);
    hourglass(true);
    if (bpp == 4) {
        createFitted16(Pal, copy);
    } else {
        createFitted256(Pal, copy);
    }
    hourglass(false);
}

}  // namespace

void changeDepth(int Index, const DepthDocument& document, const std::function<void(bool)>& hourglass) {
    const auto* rule = std::ranges::find_if(kDepthRules, [&](const DepthRule& candidate) {
        return static_cast<int>(candidate.command) == Index;
    });
    if (rule == std::end(kDepthRules)) return;
    auto& [DIB, Pal, Dither, BPP] = document;
    BPP = rule->bpp;
    switch (rule->work) {
        case PixelWork::BlackAndWhite:
            Pal.CreateBlackAndWhite();
            Dither.DitherToBlackAndWhite(DIB, kBlackAndWhiteWeight);
            break;
        case PixelWork::Greys:
            createEvenGreys(Pal, BPP);
            Dither.DitherToGreyPalette(DIB, Pal, rule->diffuse);
            break;
        case PixelWork::Colors:
            if (Pal.IsGreyScale()) {
                createEvenGreys(Pal, BPP);
            } else {
                createFitted(Pal, DIB, BPP, hourglass);
            }
            Dither.DitherToColorPalette(DIB, Pal, rule->diffuse);
            break;
        case PixelWork::TrueColor:
            Pal.Clear();
            Dither.DitherToTrueColor(DIB);
            break;
    }
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
