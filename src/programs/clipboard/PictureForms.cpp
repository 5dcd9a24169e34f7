// SPDX-License-Identifier: MIT
#include "programs/clipboard/PictureForms.hpp"

#include <fcntl.h>
#include <sys/mman.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/pictures/codecs/PngWriter.hpp"
#include "platform/system/Files.hpp"

namespace mobrel::clipboard {

namespace {

FileDescriptor opened(int descriptor) {
    if (descriptor < 0) throw RuntimeError(errorNumberOf(errno));
    return FileDescriptor(descriptor);
}

using Writer = void (*)(FileWriter&, const PictureView&);

std::span<const std::uint8_t> keptForm(std::optional<MappedFile>& form, Writer write,
                                       const PictureView& picture) {
    if (!form) {
        FileDescriptor file = opened(::memfd_create("mobrel-clipboard", MFD_CLOEXEC));
        const FileDescriptor reader = opened(::fcntl(file.get(), F_DUPFD_CLOEXEC, 0));
        FileWriter writer(std::move(file));
        write(writer, picture);
        writer.close();
        form.emplace(reader.get());
    }
    return form->bytes();
}

constexpr std::uint32_t kHeadersSize = 14 + 40;

std::array<std::uint8_t, kHeadersSize> bmpHeaders(const PictureView& picture, std::size_t stride) {
    std::array<std::uint8_t, kHeadersSize> headers = {'B', 'M'};
    const auto put32 = [&headers](std::size_t at, std::uint32_t value) {
        for (std::size_t i = 0; i < 4; ++i) headers[at + i] = static_cast<std::uint8_t>(value >> 8 * i);
    };
    const auto rowBytes = static_cast<std::uint32_t>(stride * static_cast<std::size_t>(picture.height));
    put32(2, kHeadersSize + rowBytes);
    put32(10, kHeadersSize);
    put32(14, 40);
    put32(18, static_cast<std::uint32_t>(picture.width));
    put32(22, static_cast<std::uint32_t>(picture.height));
    put32(26, 1 | 24 << 16);  // planes, bits
    put32(34, rowBytes);
    return headers;
}

// The BMP files of the documents leave the file header out of their size field, which hosts know; other
// programs may take the field at its word.
void writeBmp(FileWriter& file, const PictureView& picture) {
    const auto width = static_cast<std::size_t>(picture.width);
    const std::size_t stride = (width * 3 + 3) / 4 * 4;
    file.write(bmpHeaders(picture, stride));
    std::vector<std::uint8_t> row(stride);  // the padding stays zero
    for (int y = picture.height - 1; y >= 0; --y) {
        const std::uint8_t* from = picture.line(y);
        std::uint8_t* to = row.data();
        for (std::size_t x = 0; x < width; ++x, from += 4, to += 3) {
            to[0] = from[0];
            to[1] = from[1];
            to[2] = from[2];
        }
        file.write(row);
    }
}

}  // namespace

std::span<const std::uint8_t> PictureForms::png() {
    return keptForm(m_png, writePng, m_picture);
}

std::span<const std::uint8_t> PictureForms::bmp() {
    return keptForm(m_bmp, writeBmp, m_picture);
}

}  // namespace mobrel::clipboard
