// SPDX-License-Identifier: MIT
#include "programs/batch/Formats.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "imaging/cDIBSave.hpp"
#include "platform/AsciiText.hpp"
#include "platform/BmpInput.hpp"
#include "platform/BmpReader.hpp"
#include "programs/batch/Failure.hpp"

namespace mobrel::batch {

namespace {

constexpr std::array<std::string_view, 2> kBmpExtensions = {".bmp", ".dib"};

// Endings that tell a format, whether it is read here or not.
constexpr std::array<std::string_view, 7> kPictureExtensions = {".bmp", ".dib",  ".gif", ".jpg",
                                                                ".jpe", ".jpeg", ".png"};

// Reads the two fields from where every header has them. What is odd about the rest is for the reader.
PictureSize bmpSize(ByteSource& source) {
    std::array<std::uint8_t, 26> head{};
    if (source.read(head) < head.size()) return {};
    constexpr std::uint32_t kCoreHeader = 12;
    if (loadU32(&head[14]) == kCoreHeader) return {loadU16(&head[18]), loadU16(&head[20])};
    return {loadI32(&head[18]), loadI32(&head[22])};
}

void writeBmp(FileWriter& file, const Document& document) {
    cDIBSave().Write_BMP(file, document.surface, document.palette, &document.indices, document.depth);
}

constexpr std::array<PictureFormat, 1> kFormats = {{{"bmp", kBmpExtensions, bmpSize, readBmp, writeBmp}}};

// Reads from another source and can begin again once.
class RewindableSource final : public ByteSource {
 public:
    explicit RewindableSource(ByteSource& source) : m_source(source) {}

    std::size_t read(std::span<std::uint8_t> into) override {
        const std::size_t again = std::min(into.size(), m_read.size() - m_next);
        if (again > 0) std::memcpy(into.data(), m_read.data() + m_next, again);
        m_next += again;
        const std::span<std::uint8_t> rest = into.subspan(again);
        const std::size_t fresh = m_source.read(rest);
        if (!m_rewound) {
            m_read.insert(m_read.end(), rest.begin(), rest.begin() + static_cast<std::ptrdiff_t>(fresh));
            m_next = m_read.size();
        }
        return again + fresh;
    }

    std::optional<std::uint64_t> remaining() const override {
        const std::optional<std::uint64_t> unread = m_source.remaining();
        if (!unread) return std::nullopt;
        return *unread + (m_read.size() - m_next);
    }

    void rewind() noexcept {
        m_rewound = true;
        m_next = 0;
    }

 private:
    ByteSource& m_source;
    std::vector<std::uint8_t> m_read;
    std::size_t m_next = 0;
    bool m_rewound = false;
};

bool hasExtension(std::string_view name, std::string_view extension) {
    return name.size() > extension.size() &&
           equalIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

// Rows may be counted downwards.
std::uint64_t magnitude(std::int64_t side) {
    return static_cast<std::uint64_t>(side < 0 ? -side : side);
}

void checkSize(PictureSize size, std::uint64_t maxPixels) {
    const std::uint64_t width = magnitude(size.width);
    const std::uint64_t height = magnitude(size.height);
    if (width * height <= maxPixels) return;
    throw Failure(std::to_string(width) + " x " + std::to_string(height) + " pixels are more than " +
                  std::to_string(maxPixels));
}

void readWhole(const PictureFormat& format, ByteSource& source, Document& document) {
    auto picture = std::make_unique<StdPicture>(format.read(source));
    document.depth = static_cast<std::uint8_t>(
        document.surface.CreateFromStdPicture(std::move(picture), document.palette, &document.indices));
}

}  // namespace

std::span<const PictureFormat> pictureFormats() {
    return kFormats;
}

const PictureFormat* formatNamed(std::string_view name) {
    const auto found = std::ranges::find_if(
        kFormats, [&](const PictureFormat& format) { return equalIgnoringCase(format.name, name); });
    return found == kFormats.end() ? nullptr : &*found;
}

std::string formatNames() {
    std::string names;
    for (const PictureFormat& format : kFormats) {
        if (!names.empty()) names += ", ";
        names += format.name;
    }
    return names;
}

std::string targetName(std::string_view pictureName, const PictureFormat& format) {
    const auto endsName = [&](std::string_view extension) { return hasExtension(pictureName, extension); };
    if (std::ranges::any_of(format.extensions, endsName)) return std::string(pictureName);
    const auto other = std::ranges::find_if(kPictureExtensions, endsName);
    if (other != kPictureExtensions.end()) pictureName.remove_suffix(other->size());
    return std::string(pictureName) + std::string(format.extensions.front());
}

void readDocument(ByteSource& source, std::optional<std::uint64_t> maxPixels, Document& document) {
    const PictureFormat& format = kFormats.front();
    if (!maxPixels) return readWhole(format, source, document);
    RewindableSource rewindable(source);
    checkSize(format.sizeOf(rewindable), *maxPixels);
    rewindable.rewind();
    readWhole(format, rewindable, document);
}

}  // namespace mobrel::batch
