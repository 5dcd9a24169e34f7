// SPDX-License-Identifier: MIT
#include "programs/batch/run/PictureInfo.hpp"

#include <cstddef>
#include <string_view>

#include "imaging/ColourDepth.hpp"
#include "programs/batch/steps/MessageText.hpp"

namespace mobrel::batch {

namespace {

std::string infoLine(std::string_view label, const std::string& value) {
    constexpr std::size_t kValueColumn = 18;
    std::string line = "    ";
    line += label;
    line.resize(kValueColumn, ' ');
    return line + value + '\n';
}

}  // namespace

PictureInfo infoOf(const Document& document) {
    PictureInfo info;
    info.width = document.surface.Width();
    info.height = document.surface.Height();
    info.depth = document.depth;
    info.palette = paletteLabel(info.depth, document.palette.IsGreyScale());
    info.colorsUsed = document.indices.CountColors(document.surface);
    info.bitmapBytes = pvCalcSize(info.width, info.height, info.depth);
    return info;
}

std::string infoText(const std::string& file, const PictureInfo& info) {
    return onOneLine(file) + '\n' + infoLine("Width:", std::to_string(info.width) + " pixels") +
           infoLine("Height:", std::to_string(info.height) + " pixels") +
           infoLine("Color depth:", std::to_string(info.depth) + " bpp") +
           infoLine("Palette:", info.palette) + infoLine("Colors used:", std::to_string(info.colorsUsed)) +
           infoLine("Bitmap size:", bitmapSizeLabel(info.bitmapBytes));
}

}  // namespace mobrel::batch
