// SPDX-License-Identifier: MIT
#include "programs/batch/run/PictureInfo.hpp"

#include <cstddef>
#include <string_view>

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

std::string infoText(const std::string& file, const PictureInfo& info) {
    return onOneLine(file) + '\n' + infoLine("Width:", std::to_string(info.width) + " pixels") +
           infoLine("Height:", std::to_string(info.height) + " pixels") +
           infoLine("Color depth:", std::to_string(info.depth) + " bpp") +
           infoLine("Palette:", info.palette) + infoLine("Colors used:", std::to_string(info.colorsUsed)) +
           infoLine("Bitmap size:", bitmapSizeLabel(info.bitmapBytes));
}

}  // namespace mobrel::batch
