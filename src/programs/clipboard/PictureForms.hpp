// SPDX-License-Identifier: MIT
// The picture in the formats that other programs ask for.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/pictures/PictureView.hpp"
#include "programs/clipboard/MappedFile.hpp"

namespace mobrel::clipboard {

/// Makes each form when it is first asked for, and keeps it. Throws RuntimeError where memory is short;
/// asking again then tries again.
class PictureForms {
 public:
    explicit PictureForms(const PictureView& picture) noexcept : m_picture(picture) {}

    std::span<const std::uint8_t> png();

    /// 24 bits, a header of 40 bytes, the bottom line first.
    std::span<const std::uint8_t> bmp();

 private:
    PictureView m_picture;
    std::optional<MappedFile> m_png;
    std::optional<MappedFile> m_bmp;
};

}  // namespace mobrel::clipboard
