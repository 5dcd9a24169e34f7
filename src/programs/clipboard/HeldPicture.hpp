// SPDX-License-Identifier: MIT
// The picture as the caller hands it over.
#pragma once

#include "platform/pictures/PictureView.hpp"
#include "programs/clipboard/MappedFile.hpp"

namespace mobrel::clipboard {

/// The picture of a memory file that begins with a HeldPictureHeader.
class HeldPicture {
 public:
    /// Throws RuntimeError(InvalidPicture) for a file that lacks a seal or is not exactly what its header
    /// says; for one that cannot be mapped, as MappedFile.
    explicit HeldPicture(int descriptor);

    const PictureView& view() const noexcept { return m_view; }

 private:
    MappedFile m_file;
    PictureView m_view;
};

}  // namespace mobrel::clipboard
