// SPDX-License-Identifier: MIT
// libjpeg on a source of ours: where its bytes come from, and where its errors go.
#pragma once

#include <array>
#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it before

#include <jpeglib.h>

#include "platform/pictures/codecs/GuardedStreams.hpp"

namespace mobrel {

/// What the callbacks and the steps of reading share. A jump passes over its users, so they own nothing.
struct JpegState {
    jpeg_decompress_struct info;
    jpeg_error_mgr errors;
    jpeg_source_mgr source;
    jpeg_progress_mgr progress;
    /// Where errors jump to.
    std::jmp_buf back;
    GuardedSource* input;
    /// Of the first EXIF segment; 0 before there is one.
    int orientation;
    bool isOutOfMemory;
    /// What libjpeg gave up for; empty when the bytes have ended.
    std::array<char, JMSG_LENGTH_MAX> reason;
    std::array<std::uint8_t, 65536> segment;
};

/// Sets up everything but `back` and `info`'s decompressor, which is still to be made by
/// jpeg_create_decompress() and then connected by connectJpeg().
void prepareJpeg(JpegState& state, GuardedSource& input);

void connectJpeg(JpegState& state);

/// Jumps to `back`.
[[noreturn]] void failJpeg(JpegState& state, const char* reason);

}  // namespace mobrel
