// SPDX-License-Identifier: MIT
// Writes JPEG files through libjpeg.
#include "platform/pictures/codecs/JpegWriter.hpp"

#include <algorithm>
#include <array>
#include <csetjmp>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it before
#include <memory>

#include <jpeglib.h>

#include "platform/pictures/codecs/GuardedStreams.hpp"

namespace mobrel {

namespace {

constexpr int kLongestSide = 65500;
// From here on colours are as fine as brightness: each block has its own, not four blocks together.
constexpr int kFullColourQuality = 90;

// What the callbacks and the writing share. A jump passes over its users, so they own nothing.
struct JpegState {
    jpeg_compress_struct info;
    jpeg_error_mgr errors;
    jpeg_destination_mgr destination;
    std::jmp_buf back;
    GuardedWriter* writer;
    std::array<JOCTET, 16384> buffer;
};

JpegState& stateOf(j_compress_ptr info) {
    return *static_cast<JpegState*>(info->client_data);
}

[[noreturn]] void fail(j_common_ptr info) {
    std::longjmp(static_cast<JpegState*>(info->client_data)->back, 1);
}

void ignoreMessage(j_common_ptr, int) {}

void ignoreOutput(j_common_ptr) {}

void startBuffer(j_compress_ptr info) {
    JpegState& state = stateOf(info);
    state.destination.next_output_byte = state.buffer.data();
    state.destination.free_in_buffer = state.buffer.size();
}

void writeBytes(JpegState& state, std::size_t count) {
    if (!state.writer->write({state.buffer.data(), count})) std::longjmp(state.back, 1);
}

boolean emptyBuffer(j_compress_ptr info) {
    writeBytes(stateOf(info), stateOf(info).buffer.size());
    startBuffer(info);
    return TRUE;
}

void writeLastBytes(j_compress_ptr info) {
    writeBytes(stateOf(info), stateOf(info).buffer.size() - info->dest->free_in_buffer);
}

void writePicture(JpegState& state, const PictureView& picture, int quality) {
    jpeg_compress_struct& info = state.info;
    jpeg_create_compress(&info);
    info.dest = &state.destination;
    info.image_width = static_cast<JDIMENSION>(picture.width);
    info.image_height = static_cast<JDIMENSION>(picture.height);
    info.input_components = 4;
    info.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    info.optimize_coding = TRUE;
    const int sampling = quality < kFullColourQuality ? 2 : 1;
    info.comp_info[0].h_samp_factor = sampling;
    info.comp_info[0].v_samp_factor = sampling;
    jpeg_start_compress(&info, TRUE);
    for (int y = 0; y < picture.height; ++y) {
        auto* line = const_cast<JSAMPROW>(picture.line(y));  // libjpeg only reads it
        jpeg_write_scanlines(&info, &line, 1);
    }
    jpeg_finish_compress(&info);
}

class JpegWriter {
 public:
    explicit JpegWriter(GuardedWriter& writer) : m_state(std::make_unique<JpegState>()) {
        m_state->writer = &writer;
        m_state->info.err = jpeg_std_error(&m_state->errors);
        m_state->info.client_data = m_state.get();
        m_state->errors.error_exit = fail;
        m_state->errors.emit_message = ignoreMessage;
        m_state->errors.output_message = ignoreOutput;
        m_state->destination.init_destination = startBuffer;
        m_state->destination.empty_output_buffer = emptyBuffer;
        m_state->destination.term_destination = writeLastBytes;
    }
    JpegWriter(const JpegWriter&) = delete;
    JpegWriter& operator=(const JpegWriter&) = delete;
    ~JpegWriter() { jpeg_destroy_compress(&m_state->info); }

    /// False when libjpeg gave up.
    bool write(const PictureView& picture, int quality) {
        return runToEnd(m_state->back, [&] { writePicture(*m_state, picture, quality); });
    }

 private:
    std::unique_ptr<JpegState> m_state;
};

}  // namespace

void writeJpeg(FileWriter& file, const PictureView& picture, int quality) {
    const bool isWritable = picture.width >= 1 && picture.width <= kLongestSide && picture.height >= 1 &&
                            picture.height <= kLongestSide;
    if (!isWritable) throw RuntimeError(ErrorNumber::InvalidCall);
    GuardedWriter writer(file);
    const bool isWritten = JpegWriter(writer).write(picture, std::clamp(quality, 0, 100));
    writer.finish(isWritten);
}

}  // namespace mobrel
