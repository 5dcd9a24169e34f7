// SPDX-License-Identifier: MIT
// Puts a picture on the clipboard so that it stays there after this process has ended.
#pragma once

#include <fcntl.h>

#include <cstdint>

#include "platform/pictures/PictureView.hpp"

namespace mobrel {

/// Puts a copy of the picture on the clipboard of the X display that the environment variable DISPLAY
/// names, in place of what was there. The program mobrel-clipboard serves it from then on, whatever becomes
/// of this process. True when that program has the clipboard; takes 2 seconds at most where it does not
/// answer.
///
/// Without a display nothing happens: DISPLAY is not set, or no server answers there. What prevents it
/// otherwise is told on standard error, and so is a Wayland session without X. Throws nothing.
bool holdPictureOnClipboard(const PictureView& picture) noexcept;

/// The head of the memory file with the picture, for mobrel-clipboard. Behind it stand the lines as in
/// PictureView, top first, without padding.
struct HeldPictureHeader {
    static constexpr std::uint32_t kMagic = 0x5043424D;  // MBCP
    static constexpr std::uint32_t kVersion = 1;

    std::uint32_t magic = kMagic;
    std::uint32_t version = kVersion;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

/// The seals that the file carries: it can never change.
constexpr int kHeldPictureSeals = F_SEAL_WRITE | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL;

/// The descriptors that mobrel-clipboard is started with, beside the standard streams.
constexpr int kHeldPictureDescriptor = 3;
constexpr int kHolderAnswerDescriptor = 4;

/// The byte that mobrel-clipboard answers with. None at all comes where something fails.
enum class HolderAnswer : char { HasClipboard = 'c', NoDisplay = 'd' };

}  // namespace mobrel
