// SPDX-License-Identifier: MIT
#include "imaging/FittedPalette.hpp"

#include <algorithm>

namespace mobrel {

namespace {

constexpr int kLevels = 8;

}  // namespace

void copyForPalette(cDIB& copy, const cDIB& DIB) {
    constexpr int kCopySide = 150;
    const BestFitInfo fit = DIB.GetBestFitInfo(kCopySide, kCopySide);
    copy.Create(std::max(fit.bfW, 1), std::max(fit.bfH, 1), 0);
    copy.LoadDIBBlt(DIB);
}

void createFitted256(cDIBPal& Pal, const cDIB& copy) {
    Pal.CreateOptimal(copy, 256, kLevels, 1.0F, 1.0F, 1.0F);
}

void createFitted16(cDIBPal& Pal, const cDIB& copy) {
    Pal.CreateOptimal(copy, 16, kLevels, 0.36F, 0.436F, 0.341F);
}

}  // namespace mobrel
