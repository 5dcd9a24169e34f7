// SPDX-License-Identifier: MIT
// Reads JPEG files through libjpeg.
#include "platform/pictures/codecs/JpegReader.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <string>

#include "platform/pictures/codecs/JpegState.hpp"

namespace mobrel {

namespace {

constexpr std::array<std::uint8_t, 3> kSignature{0xFF, 0xD8, 0xFF};

void clearUnusedBytes(std::uint8_t* line, int width) {
    for (std::uint8_t* pixel = line; pixel < line + static_cast<std::ptrdiff_t>(width) * 4; pixel += 4) {
        pixel[3] = 0;
    }
}

// Turns 4 samples a pixel (what cyan, magenta, yellow and black leave of the light; `whole` turns amounts of
// ink into that) into blue, green, red and 0.
void mixInks(std::uint8_t* line, int width, unsigned whole) {
    for (std::uint8_t* pixel = line; pixel < line + static_cast<std::ptrdiff_t>(width) * 4; pixel += 4) {
        const unsigned black = pixel[3] ^ whole;
        const auto light = [&](std::uint8_t ink) {
            return static_cast<std::uint8_t>(((ink ^ whole) * black + 127) / 255);
        };
        const std::array<std::uint8_t, 4> mixed{light(pixel[2]), light(pixel[1]), light(pixel[0]), 0};
        std::memcpy(pixel, mixed.data(), mixed.size());
    }
}

bool isInk(const jpeg_decompress_struct& info) {
    return info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
}

// The steps of reading; libjpeg may jump out of each.

void readHeaders(JpegState& state, PixelBuffer*) {
    jpeg_create_decompress(&state.info);
    connectJpeg(state);
    jpeg_read_header(&state.info, TRUE);
}

// With more scans than one, this reads all of them.
void startLines(JpegState& state, PixelBuffer*) {
    state.info.out_color_space = isInk(state.info) ? JCS_CMYK : JCS_EXT_BGRX;
    jpeg_start_decompress(&state.info);
    for (int i = 0; i < state.info.num_components; ++i) {
        if (state.info.comp_info[i].quant_table == nullptr) failJpeg(state, "a colour channel is missing");
    }
}

void readLines(JpegState& state, PixelBuffer* pixels) {
    const bool isInverted = state.info.saw_Adobe_marker == TRUE;
    const int height = pixels->height();
    for (int line = 0; line < height; ++line) {
        std::uint8_t* row = pixels->row(height - 1 - line);
        jpeg_read_scanlines(&state.info, &row, 1);
        if (isInk(state.info)) {
            mixInks(row, pixels->width(), isInverted ? 0 : 255);
        } else {
            clearUnusedBytes(row, pixels->width());
        }
    }
}

void readEnd(JpegState& state, PixelBuffer*) {
    jpeg_finish_decompress(&state.info);
}

using Step = void (*)(JpegState&, PixelBuffer*);

class JpegReader {
 public:
    explicit JpegReader(GuardedSource& input) : m_state(std::make_unique<JpegState>()) {
        prepareJpeg(*m_state, input);
    }
    JpegReader(const JpegReader&) = delete;
    JpegReader& operator=(const JpegReader&) = delete;
    ~JpegReader() { jpeg_destroy_decompress(&m_state->info); }

    StdPicture read(const ReadOptions& options) {
        runStep(readHeaders, "in its headers");
        const jpeg_decompress_struct& info = m_state->info;
        checkPictureSize(info.image_width, info.image_height, options);
        checkKind();
        checkBytes();

        StdPicture picture;
        picture.pixels =
            zeroedPixels(static_cast<int>(info.image_width), static_cast<int>(info.image_height));
        runStep(startLines, "in its scans");
        runStep(readLines, "", &picture.pixels);
        runStep(readEnd, "behind its last line");

        picture.orientation = std::max(m_state->orientation, 1);
        return picture;
    }

 private:
    void checkKind() const {
        const jpeg_decompress_struct& info = m_state->info;
        if (info.arith_code == TRUE) throw PictureError("arithmetic coding is not supported");
        if (info.jpeg_color_space == JCS_UNKNOWN) {
            throw PictureError(std::to_string(info.num_components) + " colour channels are not supported");
        }
    }

    // Every block of 8 x 8 samples takes at least one bit, in the first scan of its channel.
    void checkBytes() {
        jpeg_decompress_struct& info = m_state->info;
        std::uint64_t blocks = 0;
        for (int i = 0; i < info.num_components; ++i) {
            const jpeg_component_info& channel = info.comp_info[i];
            blocks += std::uint64_t{channel.width_in_blocks} * channel.height_in_blocks;
        }
        const auto needed = static_cast<std::size_t>(blocks / 8);
        m_state->input->giveBack(m_state->source.bytes_in_buffer);
        m_state->source.bytes_in_buffer = 0;
        m_state->input->requireBytes(
            needed, std::to_string(info.image_width) + " x " + std::to_string(info.image_height) + " pixels");
    }

    void runStep(Step step, const std::string& place, PixelBuffer* pixels = nullptr) {
        if (runToEnd(m_state->back, [&] { step(*m_state, pixels); })) return;
        const jpeg_decompress_struct& info = m_state->info;
        const std::string line = placeOfLine(info.output_scanline, info.image_height);
        m_state->input->fail(pixels != nullptr ? line : place, m_state->reason.data(),
                             m_state->isOutOfMemory);
    }

    std::unique_ptr<JpegState> m_state;
};

}  // namespace

StdPicture readJpeg(BufferedSource& source, const ReadOptions& options) {
    GuardedSource input(source);
    input.requireStart(kSignature, "not a JPEG file");
    return JpegReader(input).read(options);
}

}  // namespace mobrel
