// SPDX-License-Identifier: MIT
// Reads PNG files through libpng.
#include "platform/pictures/codecs/PngReader.hpp"

#include <png.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>

#include "platform/pictures/codecs/GuardedStreams.hpp"

namespace mobrel {

namespace {

constexpr std::array<std::uint8_t, 8> kSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
// Far more than a palette or a table of transparency takes; other chunks are not kept.
constexpr png_alloc_size_t kMaxChunkBytes = 8'000'000;
// No compressed byte gives more bytes: a code of 2 bits stands for up to 258 of them.
constexpr std::size_t kMostBytesOfOne = 1032;

enum class Stage { Headers, Lines, End };

// What the callbacks and the steps share. A jump passes over its users, so they own nothing.
struct PngState {
    GuardedSource* input = nullptr;
    png_structp png = nullptr;
    png_infop info = nullptr;
    PixelBuffer* pixels = nullptr;
    std::array<unsigned, 3> background{};  // blue, green, red
    bool hasAlpha = false;
    bool isTransparent = false;  // some pixel is
    bool isOutOfMemory = false;
    Stage stage = Stage::Headers;
    int line = 0;
    std::array<char, 128> reason{};
};

[[noreturn]] void fail(png_structp png, png_const_charp reason) {
    auto* state = static_cast<PngState*>(png_get_error_ptr(png));
    std::snprintf(state->reason.data(), state->reason.size(), "%s", reason);
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

void readBytes(png_structp png, png_bytep into, png_size_t count) {
    auto* state = static_cast<PngState*>(png_get_io_ptr(png));
    if (!state->input->read({into, count})) png_error(png, "");
}

void* allocate(png_structp png, png_alloc_size_t bytes) {
    void* memory = std::malloc(bytes);
    if (memory == nullptr) static_cast<PngState*>(png_get_mem_ptr(png))->isOutOfMemory = true;
    return memory;
}

void release(png_structp, void* memory) {
    std::free(memory);
}

// Lays a line over the background and clears byte 3. True when some pixel is not opaque.
bool layOver(std::uint8_t* line, int width, const std::array<unsigned, 3>& background) {
    unsigned every = 255;
    for (std::uint8_t* pixel = line; pixel < line + static_cast<std::ptrdiff_t>(width) * 4; pixel += 4) {
        const unsigned alpha = pixel[3];
        every &= alpha;
        for (std::size_t i = 0; i < 3; ++i) {
            pixel[i] =
                static_cast<std::uint8_t>((pixel[i] * alpha + background[i] * (255 - alpha) + 127) / 255);
        }
        pixel[3] = 0;
    }
    return every != 255;
}

// The steps of reading; libpng may jump out of each.

void readHeaders(PngState& state) {
    // What says nothing about the pixels is passed over.
    png_set_keep_unknown_chunks(state.png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_set_user_limits(state.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_chunk_malloc_max(state.png, kMaxChunkBytes);
    png_read_info(state.png, state.info);
    state.hasAlpha = (png_get_color_type(state.png, state.info) & PNG_COLOR_MASK_ALPHA) != 0 ||
                     png_get_valid(state.png, state.info, PNG_INFO_tRNS) != 0;
}

void layOverLines(PngState& state, int first, int end) {
    for (int row = first; row < end; ++row) {
        if (layOver(state.pixels->row(row), state.pixels->width(), state.background)) {
            state.isTransparent = true;
        }
    }
}

// Asks for rows as the pixels have them: blue, green, red, and alpha or 0.
void readLines(PngState& state) {
    png_set_expand(state.png);
    png_set_scale_16(state.png);
    png_set_gray_to_rgb(state.png);
    png_set_bgr(state.png);
    png_set_filler(state.png, 0, PNG_FILLER_AFTER);
    const int passes = png_set_interlace_handling(state.png);
    png_read_update_info(state.png, state.info);
    if (png_get_rowbytes(state.png, state.info) != state.pixels->bytesPerRow()) {
        png_error(state.png, "unexpected length of a line");
    }
    const int height = state.pixels->height();
    const bool isBlendedAtOnce = state.hasAlpha && passes == 1;
    for (int pass = 0; pass < passes; ++pass) {
        for (state.line = 0; state.line < height; ++state.line) {
            const int row = height - 1 - state.line;
            png_read_row(state.png, state.pixels->row(row), nullptr);
            if (isBlendedAtOnce) layOverLines(state, row, row + 1);
        }
    }
    if (state.hasAlpha && !isBlendedAtOnce) layOverLines(state, 0, height);
}

void readEnd(PngState& state) {
    png_read_end(state.png, nullptr);
}

class PngReader {
 public:
    explicit PngReader(GuardedSource& input) {
        m_state.input = &input;
        m_state.png = png_create_read_struct_2(PNG_LIBPNG_VER_STRING, &m_state, fail, ignoreWarning, &m_state,
                                               allocate, release);
        if (m_state.png != nullptr) m_state.info = png_create_info_struct(m_state.png);
        if (m_state.info == nullptr) {
            png_destroy_read_struct(&m_state.png, nullptr, nullptr);
            throw std::bad_alloc();
        }
        png_set_read_fn(m_state.png, &m_state, readBytes);
    }
    PngReader(const PngReader&) = delete;
    PngReader& operator=(const PngReader&) = delete;
    ~PngReader() { png_destroy_read_struct(&m_state.png, &m_state.info, nullptr); }

    /// To be called once.
    StdPicture read(const ReadOptions& options) {
        runStep(Stage::Headers, readHeaders);
        const std::int64_t width = png_get_image_width(m_state.png, m_state.info);
        const std::int64_t height = png_get_image_height(m_state.png, m_state.info);
        checkPictureSize(width, height, options);
        checkBytes();

        m_picture.pixels = zeroedPixels(static_cast<int>(width), static_cast<int>(height));
        m_state.pixels = &m_picture.pixels;
        m_state.background = {options.background >> 16 & 255, options.background >> 8 & 255,
                              options.background & 255};
        runStep(Stage::Lines, readLines);
        runStep(Stage::End, readEnd);

        m_picture.hadTransparency = m_state.isTransparent;
        return std::move(m_picture);
    }

 private:
    // libpng clears buffers for a whole line before it has any of it, so a line needs the bytes that it
    // cannot do without.
    void checkBytes() {
        const std::size_t needed = png_get_rowbytes(m_state.png, m_state.info) / kMostBytesOfOne;
        const png_uint_32 width = png_get_image_width(m_state.png, m_state.info);
        m_state.input->requireBytes(needed, "a line of " + std::to_string(width) + " pixels");
    }

    void runStep(Stage stage, void (*step)(PngState&)) {
        m_state.stage = stage;
        if (runToEnd(png_jmpbuf(m_state.png), [&] { step(m_state); })) return;
        m_state.input->fail(place(), m_state.reason.data(), m_state.isOutOfMemory);
    }

    std::string place() const {
        switch (m_state.stage) {
            case Stage::Headers:
                return "in its headers";
            case Stage::Lines:
                return placeOfLine(m_state.line, m_state.pixels->height());
            default:
                return "behind its last line";
        }
    }

    PngState m_state;
    StdPicture m_picture;
};

}  // namespace

StdPicture readPng(BufferedSource& source, const ReadOptions& options) {
    GuardedSource input(source);
    input.requireStart(kSignature, "not a PNG file");
    return PngReader(input).read(options);
}

}  // namespace mobrel
