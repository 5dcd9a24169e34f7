// SPDX-License-Identifier: MIT
#include "platform/pictures/codecs/JpegState.hpp"

#include <jerror.h>

#include <algorithm>
#include <cstring>

#include "platform/pictures/codecs/JpegExif.hpp"

namespace mobrel {

namespace {

// Real files have about ten.
constexpr int kMostScans = 500;
// A scan of hardly any bytes can still go over every pixel: together not more than some seconds' worth.
constexpr std::uint64_t kMostScannedPixels = std::uint64_t{1} << 34;

JpegState& stateOf(j_common_ptr info) {
    return *static_cast<JpegState*>(info->client_data);
}

JpegState& stateOf(j_decompress_ptr info) {
    return *static_cast<JpegState*>(info->client_data);
}

[[noreturn]] void failWithMessage(j_common_ptr info) {
    JpegState& state = stateOf(info);
    state.isOutOfMemory = info->err->msg_code == JERR_OUT_OF_MEMORY;
    info->err->format_message(info, state.reason.data());
    std::longjmp(state.back, 1);
}

// Warnings of pixels that are lost. What remains is odd but harmless: bytes before a marker, an unknown
// version.
bool isLoss(int message) {
    switch (message) {
        case JWRN_HIT_MARKER:
        case JWRN_HUFF_BAD_CODE:
        case JWRN_JPEG_EOF:
        case JWRN_MUST_RESYNC:
        case JWRN_BOGUS_PROGRESSION:
            return true;
        default:
            return false;
    }
}

void judgeMessage(j_common_ptr info, int level) {
    if (level < 0 && isLoss(info->err->msg_code)) failWithMessage(info);
}

void ignoreOutput(j_common_ptr) {}

void ignoreSource(j_decompress_ptr) {}

boolean fillInput(j_decompress_ptr info) {
    JpegState& state = stateOf(info);
    const std::span<const std::uint8_t> bytes = state.input->takeBuffer();
    if (bytes.empty()) failJpeg(state, "");
    state.source.next_input_byte = bytes.data();
    state.source.bytes_in_buffer = bytes.size();
    return TRUE;
}

// Passes over `count` bytes, which go to `into` where that is not null.
void takeInput(j_decompress_ptr info, std::uint8_t* into, std::size_t count) {
    jpeg_source_mgr& source = *info->src;
    while (count > 0) {
        if (source.bytes_in_buffer == 0) fillInput(info);
        const std::size_t step = std::min(count, source.bytes_in_buffer);
        if (into != nullptr) {
            std::memcpy(into, source.next_input_byte, step);
            into += step;
        }
        source.next_input_byte += step;
        source.bytes_in_buffer -= step;
        count -= step;
    }
}

void skipInput(j_decompress_ptr info, long count) {
    if (count > 0) takeInput(info, nullptr, static_cast<std::size_t>(count));
}

boolean readApp1(j_decompress_ptr info) {
    JpegState& state = stateOf(info);
    std::array<std::uint8_t, 2> length{};
    takeInput(info, length.data(), length.size());
    const std::size_t bytes = std::size_t{length[0]} << 8 | length[1];
    if (bytes < length.size()) failJpeg(state, "a segment is too short");
    takeInput(info, state.segment.data(), bytes - length.size());
    if (state.orientation == 0) {
        state.orientation = exifOrientation(std::span(state.segment).first(bytes - length.size()));
    }
    return TRUE;
}

void watchScans(j_common_ptr common) {
    JpegState& state = stateOf(common);
    const jpeg_decompress_struct& info = state.info;
    const std::uint64_t pixels = std::uint64_t{info.image_width} * info.image_height;
    const auto scans = static_cast<std::uint64_t>(info.input_scan_number);
    if (info.input_scan_number > kMostScans || (scans > 1 && scans * pixels > kMostScannedPixels)) {
        failJpeg(state, "too many scans");
    }
}

}  // namespace

void prepareJpeg(JpegState& state, GuardedSource& input) {
    state.input = &input;
    state.orientation = 0;
    state.isOutOfMemory = false;
    state.info.err = jpeg_std_error(&state.errors);
    state.info.client_data = &state;
    state.errors.error_exit = failWithMessage;
    state.errors.emit_message = judgeMessage;
    state.errors.output_message = ignoreOutput;
    state.source = {};
    state.source.init_source = ignoreSource;
    state.source.fill_input_buffer = fillInput;
    state.source.skip_input_data = skipInput;
    state.source.resync_to_restart = jpeg_resync_to_restart;
    state.source.term_source = ignoreSource;
    state.progress = {};
    state.progress.progress_monitor = watchScans;
}

void connectJpeg(JpegState& state) {
    state.info.src = &state.source;
    state.info.progress = &state.progress;
    jpeg_set_marker_processor(&state.info, JPEG_APP0 + 1, readApp1);
}

void failJpeg(JpegState& state, const char* reason) {
    std::snprintf(state.reason.data(), state.reason.size(), "%s", reason);
    std::longjmp(state.back, 1);
}

}  // namespace mobrel
