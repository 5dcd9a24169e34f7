// SPDX-License-Identifier: MIT
#include "desktop/PastedPicture.hpp"

#include <QImage>
#include <QMimeData>
#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "platform/pictures/PictureReader.hpp"

namespace mobrel {

namespace {

/// The best first: BMP has no compression, the others lose colours or details.
constexpr std::array kFormats = {"image/png",      "image/bmp",  "image/x-bmp",
                                 "image/x-MS-bmp", "image/jpeg", "image/gif"};

std::unique_ptr<StdPicture> read(const QByteArray& bytes) {
    std::unique_ptr<StdPicture> picture;
    skipErrors([&] {
        MemorySource memory(
            {reinterpret_cast<const std::uint8_t*>(bytes.data()), static_cast<std::size_t>(bytes.size())});
        BufferedSource source(memory);
        picture = std::make_unique<StdPicture>(readPicture(source).picture);
    });
    return picture;
}

/// A picture in a form of another program, as Qt reads it. Null when there is none or no memory for it.
std::unique_ptr<StdPicture> readByQt(const QMimeData& offered) {
    const QImage image = qvariant_cast<QImage>(offered.imageData()).convertToFormat(QImage::Format_RGB32);
    auto pixels = PixelBuffer::create(image.width(), image.height());
    if (!pixels) return nullptr;
    for (int y = 0; y < image.height(); ++y) {
        std::uint8_t* const row = pixels->row(image.height() - 1 - y);
        std::memcpy(row, image.constScanLine(y), pixels->bytesPerRow());
        for (std::size_t i = 3; i < pixels->bytesPerRow(); i += 4) row[i] = 0;
    }
    auto picture = std::make_unique<StdPicture>();
    picture->pixels = std::move(*pixels);
    return picture;
}

}  // namespace

bool hasPicture(const QMimeData& offered) {
    const auto isOffered = [&](const char* format) { return offered.hasFormat(QString::fromLatin1(format)); };
    return std::ranges::any_of(kFormats, isOffered) || offered.hasImage();
}

std::unique_ptr<StdPicture> pictureOf(const QMimeData& offered) {
    for (const char* const format : kFormats) {
        const QByteArray bytes = offered.data(QString::fromLatin1(format));
        if (bytes.isEmpty()) continue;
        if (auto picture = read(bytes)) return picture;
    }
    return readByQt(offered);
}

}  // namespace mobrel
