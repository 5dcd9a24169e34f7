// SPDX-License-Identifier: MIT
#include "programs/clipboard/HeldPicture.hpp"

#include <fcntl.h>

#include <cstddef>
#include <cstring>

#include "platform/base/RuntimeError.hpp"
#include "platform/drawing/PixelBuffer.hpp"
#include "platform/screen/ClipboardHolder.hpp"

namespace mobrel::clipboard {

namespace {

// Unsealed, it could change or shrink under the mapping.
int sealedDescriptor(int descriptor) {
    constexpr int kNeeded = F_SEAL_WRITE | F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL;
    const int seals = ::fcntl(descriptor, F_GET_SEALS);
    if (seals < 0 || (seals & kNeeded) != kNeeded) throw RuntimeError(ErrorNumber::InvalidPicture);
    return descriptor;
}

PictureView checkedView(std::span<const std::uint8_t> file) {
    HeldPictureHeader header;
    if (file.size() < sizeof header) throw RuntimeError(ErrorNumber::InvalidPicture);
    std::memcpy(&header, file.data(), sizeof header);
    if (header.magic != HeldPictureHeader::kMagic || header.version != HeldPictureHeader::kVersion ||
        !PixelBuffer::isValidSize(header.width, header.height)) {
        throw RuntimeError(ErrorNumber::InvalidPicture);
    }
    const std::size_t stride = static_cast<std::size_t>(header.width) * 4;
    if (file.size() != sizeof header + stride * static_cast<std::size_t>(header.height)) {
        throw RuntimeError(ErrorNumber::InvalidPicture);
    }
    return {file.data() + sizeof header, static_cast<std::ptrdiff_t>(stride), header.width, header.height};
}

}  // namespace

HeldPicture::HeldPicture(int descriptor)
    : m_file(sealedDescriptor(descriptor)), m_view(checkedView(m_file.bytes())) {}

}  // namespace mobrel::clipboard
