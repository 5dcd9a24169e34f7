// SPDX-License-Identifier: MIT
// The first frame of a GIF file.
#pragma once

#include <gif_lib.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/pictures/StdPicture.hpp"
#include "platform/pictures/codecs/GuardedStreams.hpp"

namespace mobrel {

/// What stands before the pixels of a frame. The frame lies within the screen.
struct GifFrame {
    int screenWidth = 0;
    int screenHeight = 0;
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool isInterlaced = false;
    /// The frame's own table, else the file's: 2 to 256 entries.
    std::vector<RgbQuad> colorTable;
    std::optional<std::uint8_t> transparent;

    bool coversScreen() const noexcept { return width == screenWidth && height == screenHeight; }
};

/// Reads a file up to the end of its first frame. The functions throw PictureError when the file is no GIF,
/// is cut short or damaged, and what the source throws.
class GifFile {
 public:
    explicit GifFile(GuardedSource& input);

    /// Reads all before the first frame's pixels.
    GifFrame readFrame();

    /// Reads the frame's next line in the order of the file, one index a byte.
    void readLine(std::span<std::uint8_t> indices);

    /// Checks that the file does not end with the frame. Whether another frame follows.
    bool readEnd();

 private:
    struct Close {
        void operator()(GifFileType* file) const noexcept { DGifCloseFile(file, nullptr); }
    };

    void readExtension(GifFrame& frame);
    [[noreturn]] void fail(const std::string& place) const;

    GuardedSource& m_input;
    std::unique_ptr<GifFileType, Close> m_file;
    std::size_t m_extensionBytes = 0;
    int m_line = 0;
};

}  // namespace mobrel
