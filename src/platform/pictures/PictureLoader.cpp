// SPDX-License-Identifier: MIT
#include "platform/pictures/PictureLoader.hpp"

#include <algorithm>
#include <array>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string_view>
#include <system_error>

#include "platform/pictures/BmpReader.hpp"
#include "platform/pictures/Codecs.hpp"
#include "platform/system/Files.hpp"

namespace mobrel {

namespace {

// Gives the first bytes of a source to look at, and all of them to a reader afterwards.
class SniffedSource final : public ByteSource {
 public:
    explicit SniffedSource(ByteSource& source) : m_source(source), m_headBytes(source.read(m_head)) {}

    bool startsWith(std::string_view bytes) const noexcept {
        return m_headBytes >= bytes.size() && std::memcmp(m_head.data(), bytes.data(), bytes.size()) == 0;
    }

    std::size_t read(std::span<std::uint8_t> into) override {
        const std::size_t again = std::min(into.size(), m_headBytes - m_next);
        if (again > 0) std::memcpy(into.data(), m_head.data() + m_next, again);
        m_next += again;
        const std::span<std::uint8_t> rest = into.subspan(again);
        return again + (rest.empty() ? 0 : m_source.read(rest));
    }

    std::optional<std::uint64_t> remaining() const override {
        const std::optional<std::uint64_t> unread = m_source.remaining();
        if (!unread) return std::nullopt;
        return *unread + (m_headBytes - m_next);
    }

 private:
    ByteSource& m_source;
    std::array<std::uint8_t, 8> m_head{};
    std::size_t m_headBytes;
    std::size_t m_next = 0;
};

struct Signature {
    std::string_view bytes;
    PictureFileFormat format;
};
constexpr std::array<Signature, 4> kSignatures{{
    {"BM", PictureFileFormat::Bmp},
    {"GIF8", PictureFileFormat::Gif},
    {"\xFF\xD8\xFF", PictureFileFormat::Jpeg},
    {"\x89PNG\r\n\x1A\n", PictureFileFormat::Png},
}};

std::optional<PictureFileFormat> formatOf(const SniffedSource& source) {
    const auto found = std::ranges::find_if(
        kSignatures, [&](const Signature& signature) { return source.startsWith(signature.bytes); });
    if (found == kSignatures.end()) return std::nullopt;
    return found->format;
}

StdPicture readAs(PictureFileFormat format, ByteSource& source, const ReadOptions& options) {
    switch (format) {
        case PictureFileFormat::Gif:
            return codecs().readGif(source, options);
        case PictureFileFormat::Jpeg:
            return codecs().readJpeg(source, options);
        case PictureFileFormat::Png:
            return codecs().readPng(source, options);
        default:
            return readBmp(source, options);
    }
}

}  // namespace

std::unique_ptr<StdPicture> loadPicture(const std::string& path) {
    // Opening a pipe would wait for somebody to write to it.
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw PictureError("not a regular file");
    }
    FileSource file(path);
    SniffedSource source(file);
    const std::optional<PictureFileFormat> format = formatOf(source);
    if (!format || *format == PictureFileFormat::Png) throw PictureError("not a BMP, GIF or JPEG file");
    return std::make_unique<StdPicture>(readAs(*format, source, {}));
}

LoadedPicture readPicture(ByteSource& source, const ReadOptions& options) {
    SniffedSource sniffed(source);
    const std::optional<PictureFileFormat> format = formatOf(sniffed);
    if (!format) throw PictureError("not a BMP, GIF, JPEG or PNG file");
    return {*format, readAs(*format, sniffed, options)};
}

}  // namespace mobrel
