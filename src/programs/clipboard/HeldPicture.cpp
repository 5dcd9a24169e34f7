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

void require(bool holds) {
    if (!holds) throw RuntimeError(ErrorNumber::InvalidPicture);
}

// Unsealed, it could change or shrink under the mapping.
int sealedDescriptor(int descriptor) {
    const int seals = ::fcntl(descriptor, F_GET_SEALS);
    require(seals >= 0 && (seals & kHeldPictureSeals) == kHeldPictureSeals);
    return descriptor;
}

PictureView checkedView(std::span<const std::uint8_t> file) {
    HeldPictureHeader header;
    require(file.size() >= sizeof header);
    std::memcpy(&header, file.data(), sizeof header);
    require(header.magic == HeldPictureHeader::kMagic && header.version == HeldPictureHeader::kVersion);
    require(PixelBuffer::isValidSize(header.width, header.height));
    const std::size_t stride = static_cast<std::size_t>(header.width) * 4;
    require(file.size() == sizeof header + stride * static_cast<std::size_t>(header.height));
    return {file.data() + sizeof header, static_cast<std::ptrdiff_t>(stride), header.width, header.height};
}

}  // namespace

HeldPicture::HeldPicture(int descriptor)
    : m_file(sealedDescriptor(descriptor)), m_view(checkedView(m_file.bytes())) {}

}  // namespace mobrel::clipboard
