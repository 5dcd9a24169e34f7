// SPDX-License-Identifier: MIT
#include "imaging/ColourDepth.hpp"

#include "imaging/FittedPalette.hpp"

namespace mobrel {

namespace {

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

void reduceToGreys(const DepthDocument& document, std::uint8_t bpp, bool diffuse) {
    document.BPP = bpp;
    createEvenGreys(document.Pal, bpp);
    document.Dither.DitherToGreyPalette(document.DIB, document.Pal, diffuse);
}

void reduceToColors(const DepthDocument& document, std::uint8_t bpp,
                    const std::function<void(bool)>& hourglass) {
    document.BPP = bpp;
    if (document.Pal.IsGreyScale()) {
        createEvenGreys(document.Pal, bpp);
    } else {
        createFitted(document.Pal, document.DIB, bpp, hourglass);
    }
    document.Dither.DitherToColorPalette(document.DIB, document.Pal, true);
}

}  // namespace

void changeDepth(DepthCommand command, const DepthDocument& document,
                 const std::function<void(bool)>& hourglass) {
    auto& [DIB, Pal, Dither, BPP] = document;
    switch (command) {
        case DepthCommand::BlackAndWhite:
        case DepthCommand::TwoColors:
            BPP = 1;
            Pal.CreateBlackAndWhite();
            return Dither.DitherToBlackAndWhite(DIB, kBlackAndWhiteWeight);
        case DepthCommand::Greys16:
            return reduceToGreys(document, 4, true);
        case DepthCommand::Greys256:
            return reduceToGreys(document, 8, false);
        case DepthCommand::Colors16:
            return reduceToColors(document, 4, hourglass);
        case DepthCommand::Colors256:
            return reduceToColors(document, 8, hourglass);
        case DepthCommand::TrueColor:
            BPP = 24;
            Pal.Clear();
            return Dither.DitherToTrueColor(DIB);
    }
}

}  // namespace mobrel
