// SPDX-License-Identifier: MIT
// Puts the parts of the reader together.
#include "platform/pictures/codecs/GifReader.hpp"

#include <array>
#include <vector>

#include "platform/pictures/codecs/GifFrame.hpp"
#include "platform/pictures/codecs/GifPalette.hpp"

namespace mobrel {

namespace {

struct InterlacePass {
    int first;
    int step;
};
constexpr std::array<InterlacePass, 4> kInterlaced{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
constexpr std::array<InterlacePass, 1> kProgressive{{{0, 1}}};

// Puts the frame's indices into byte 3 of the pixels, which need no more memory so, and marks them as used.
void readIndices(GifFile& file, const GifFrame& frame, PixelBuffer& pixels, std::array<bool, 256>& isUsed) {
    std::vector<std::uint8_t> line(static_cast<std::size_t>(frame.width));
    const std::span<const InterlacePass> passes =
        frame.isInterlaced ? std::span<const InterlacePass>(kInterlaced) : kProgressive;
    for (const InterlacePass& pass : passes) {
        for (int y = pass.first; y < frame.height; y += pass.step) {
            file.readLine(line);
            std::uint8_t* out = pixels.row(pixels.height() - 1 - frame.top - y) +
                                static_cast<std::ptrdiff_t>(frame.left) * 4 + 3;
            for (const std::uint8_t index : line) {
                *out = index;
                isUsed[index] = true;
                out += 4;
            }
        }
    }
}

// A few bytes could claim a screen of gigabytes that they do not fill.
void checkCoverage(const GifFrame& frame) {
    constexpr std::int64_t kFree = 1 << 20;
    constexpr std::int64_t kLeastShare = 64;
    const std::int64_t screen = std::int64_t{frame.screenWidth} * frame.screenHeight;
    const std::int64_t covered = std::int64_t{frame.width} * frame.height;
    if (screen <= kFree || covered >= screen / kLeastShare) return;
    throw PictureError("a frame of " + std::to_string(frame.width) + " x " + std::to_string(frame.height) +
                       " pixels is too small for a screen of " + std::to_string(frame.screenWidth) + " x " +
                       std::to_string(frame.screenHeight));
}

}  // namespace

StdPicture readGif(BufferedSource& source, const ReadOptions& options) {
    GuardedSource input(source);
    GifFile file(input);
    const GifFrame frame = file.readFrame();
    checkPictureSize(frame.screenWidth, frame.screenHeight, options);
    checkCoverage(frame);

    StdPicture picture;
    picture.pixels = zeroedPixels(frame.screenWidth, frame.screenHeight);
    std::array<bool, 256> isUsed{};
    readIndices(file, frame, picture.pixels, isUsed);
    picture.hasMoreFrames = file.readEnd();
    applyGifPalette(picture, frame, isUsed, options.background);
    return picture;
}

}  // namespace mobrel
