// SPDX-License-Identifier: MIT
// Writes PNG files through libpng.
#include "platform/pictures/codecs/PngWriter.hpp"

#include <png.h>

#include <new>

#include "platform/pictures/codecs/GuardedStreams.hpp"

namespace mobrel {

namespace {

constexpr int kCompressionLevel = 3;
// The best choice among all of them costs a third more time for hardly fewer bytes.
constexpr int kFilters = PNG_FILTER_UP;

// What the callbacks and the steps share. A jump passes over its users, so they own nothing.
struct PngState {
    const PictureView* picture = nullptr;
    png_structp png = nullptr;
    png_infop info = nullptr;
};

[[noreturn]] void fail(png_structp png, png_const_charp) {
    png_longjmp(png, 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

void writeBytes(png_structp png, png_bytep bytes, png_size_t count) {
    auto* writer = static_cast<GuardedWriter*>(png_get_io_ptr(png));
    if (!writer->write({bytes, count})) png_error(png, "");
}

void leavePending(png_structp) {}

void writePicture(const PngState& state) {
    const PictureView& picture = *state.picture;
    png_set_user_limits(state.png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_compression_level(state.png, kCompressionLevel);
    png_set_filter(state.png, PNG_FILTER_TYPE_BASE, kFilters);
    png_set_IHDR(state.png, state.info, static_cast<png_uint_32>(picture.width),
                 static_cast<png_uint_32>(picture.height), 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(state.png, state.info);
    png_set_bgr(state.png);
    png_set_filler(state.png, 0, PNG_FILLER_AFTER);
    for (int y = 0; y < picture.height; ++y) png_write_row(state.png, picture.line(y));
    png_write_end(state.png, nullptr);
}

class PngWriter {
 public:
    PngWriter(GuardedWriter& writer, const PictureView& picture) {
        m_state.picture = &picture;
        m_state.png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, fail, ignoreWarning);
        if (m_state.png != nullptr) m_state.info = png_create_info_struct(m_state.png);
        if (m_state.info == nullptr) {
            png_destroy_write_struct(&m_state.png, nullptr);
            throw std::bad_alloc();
        }
        png_set_write_fn(m_state.png, &writer, writeBytes, leavePending);
    }
    PngWriter(const PngWriter&) = delete;
    PngWriter& operator=(const PngWriter&) = delete;
    ~PngWriter() { png_destroy_write_struct(&m_state.png, &m_state.info); }

    /// False when libpng gave up.
    bool write() {
        return runToEnd(png_jmpbuf(m_state.png), [&] { writePicture(m_state); });
    }

 private:
    PngState m_state;
};

}  // namespace

void writePng(FileWriter& file, const PictureView& picture) {
    if (picture.width < 1 || picture.height < 1) throw RuntimeError(ErrorNumber::InvalidCall);
    GuardedWriter writer(file);
    const bool isWritten = PngWriter(writer, picture).write();
    writer.finish(isWritten);
}

}  // namespace mobrel
