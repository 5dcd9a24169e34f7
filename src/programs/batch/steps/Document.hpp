// SPDX-License-Identifier: MIT
// A picture on its way through the steps.
#pragma once

#include <cstdint>

#include "imaging/cDIB.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "platform/pictures/PictureReader.hpp"

namespace mobrel::batch {

struct Document {
    cDIB surface;
    /// 1, 4 or 8 where palette and indices are those of the surface's pixels; else 24.
    std::uint8_t depth = 24;
    cDIBPal palette;
    cDIBDither indices;

    /// What its file was, and what that told.
    PictureFileFormat format = PictureFileFormat::Bmp;
    bool hadTransparency = false;
    bool hasMoreFrames = false;
    int orientation = 1;

    /// For a step that makes colours which no palette has.
    void dropPalette() noexcept {
        depth = 24;
        palette.Clear();
    }
};

}  // namespace mobrel::batch
