// SPDX-License-Identifier: MIT
#include "programs/clipboard/PictureForms.hpp"

#include <sys/mman.h>

#include <cerrno>

#include "platform/pictures/BmpWriter.hpp"
#include "platform/pictures/codecs/PngWriter.hpp"
#include "platform/system/Files.hpp"

namespace mobrel::clipboard {

namespace {

using Writer = void (*)(FileWriter&, const PictureView&);

std::span<const std::uint8_t> keptForm(std::optional<MappedFile>& form, Writer write,
                                       const PictureView& picture) {
    if (!form) {
        const FileDescriptor file(::memfd_create("mobrel-clipboard", MFD_CLOEXEC));
        if (!file.isOpen()) throwErrno(errno);
        FileWriter writer(duplicateOf(file.get()));
        write(writer, picture);
        writer.close();
        form.emplace(file.get());
    }
    return form->bytes();
}

// The BMP files of the documents leave the file header out of their size field, which hosts know; other
// programs may take the field at its word.
void writeBmp(FileWriter& file, const PictureView& picture) {
    const auto rowBytes = static_cast<std::uint32_t>(packedStride(picture.width, 24) * picture.height);
    file.write(bmpHeaders({
        .width = picture.width,
        .height = picture.height,
        .fileBytes = kBmpFileHeaderBytes + kBmpInfoHeaderBytes + rowBytes,
        .rowBytes = rowBytes,
    }));
    writeBmpRows(file, picture);
}

}  // namespace

std::span<const std::uint8_t> PictureForms::png() {
    return keptForm(m_png, writePng, m_picture);
}

std::span<const std::uint8_t> PictureForms::bmp() {
    return keptForm(m_bmp, writeBmp, m_picture);
}

}  // namespace mobrel::clipboard
