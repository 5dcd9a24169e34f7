// SPDX-License-Identifier: MIT
#include "platform/system/ProfileEncoding.hpp"

#include <cstddef>

namespace mobrel {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kLittleEndianMark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

constexpr std::string_view markOf(ProfileEncoding encoding) noexcept {
    switch (encoding) {
        case ProfileEncoding::Utf8:
            return kUtf8Mark;
        case ProfileEncoding::Utf16LittleEndian:
            return kLittleEndianMark;
        case ProfileEncoding::Utf16BigEndian:
            return kBigEndianMark;
        case ProfileEncoding::Bytes:
            break;
    }
    return {};
}

constexpr bool isUtf16(ProfileEncoding encoding) noexcept {
    return encoding == ProfileEncoding::Utf16LittleEndian || encoding == ProfileEncoding::Utf16BigEndian;
}

constexpr bool isFirstHalf(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isSecondHalf(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

constexpr char32_t byteAt(std::string_view bytes, std::size_t index) noexcept {
    return static_cast<unsigned char>(bytes[index]);
}

void appendByte(std::string& bytes, char32_t value) {
    bytes.push_back(static_cast<char>(value & 0xFF));
}

void appendUtf8(std::string& text, char32_t point) {
    if (point < 0x80) {
        appendByte(text, point);
        return;
    }
    if (point < 0x800) {
        appendByte(text, 0xC0 | (point >> 6));
    } else {
        if (point < 0x10000) {
            appendByte(text, 0xE0 | (point >> 12));
        } else {
            appendByte(text, 0xF0 | (point >> 18));
            appendByte(text, 0x80 | ((point >> 12) & 0x3F));
        }
        appendByte(text, 0x80 | ((point >> 6) & 0x3F));
    }
    appendByte(text, 0x80 | (point & 0x3F));
}

std::string utf8FromUtf16(std::string_view bytes, bool littleEndian) {
    const auto unitAt = [&](std::size_t index) {
        const char32_t first = byteAt(bytes, 2 * index);
        const char32_t second = byteAt(bytes, 2 * index + 1);
        return littleEndian ? second << 8 | first : first << 8 | second;
    };
    const std::size_t units = bytes.size() / 2;
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < units; ++i) {
        char32_t point = unitAt(i);
        if (isFirstHalf(point) && i + 1 < units && isSecondHalf(unitAt(i + 1))) {
            point = 0x10000 + ((point - 0xD800) << 10) + (unitAt(++i) - 0xDC00);
        }
        appendUtf8(text, point);
    }
    return text;
}

// Does not look for mistakes: text that is no UTF-8 becomes something else, never something like it.
std::string utf16FromUtf8(std::string_view text, bool littleEndian) {
    std::string bytes;
    bytes.reserve(2 * text.size());
    const auto append = [&](char32_t unit) {
        appendByte(bytes, littleEndian ? unit : unit >> 8);
        appendByte(bytes, littleEndian ? unit >> 8 : unit);
    };
    for (std::size_t i = 0; i < text.size();) {
        const char32_t lead = byteAt(text, i);
        const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t point = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t next = i + 1; next < i + length && next < text.size(); ++next) {
            point = point << 6 | (byteAt(text, next) & 0x3F);
        }
        i += length;
        if (point < 0x10000) {
            append(point);
        } else {
            append(0xD800 + ((point - 0x10000) >> 10));
            append(0xDC00 + (point & 0x3FF));
        }
    }
    return bytes;
}

}  // namespace

ProfileEncoding profileEncodingOf(std::string_view bytes) noexcept {
    for (const ProfileEncoding encoding :
         {ProfileEncoding::Utf8, ProfileEncoding::Utf16LittleEndian, ProfileEncoding::Utf16BigEndian}) {
        if (bytes.starts_with(markOf(encoding))) return encoding;
    }
    return ProfileEncoding::Bytes;
}

std::string decodeProfile(std::string_view bytes, ProfileEncoding encoding) {
    bytes.remove_prefix(markOf(encoding).size());
    if (!isUtf16(encoding)) return std::string(bytes);
    return utf8FromUtf16(bytes, encoding == ProfileEncoding::Utf16LittleEndian);
}

std::optional<std::string> encodeProfile(std::string_view text, ProfileEncoding encoding) {
    std::string bytes(markOf(encoding));
    if (isUtf16(encoding)) {
        bytes += utf16FromUtf8(text, encoding == ProfileEncoding::Utf16LittleEndian);
    } else {
        bytes += text;
    }
    if (profileEncodingOf(bytes) != encoding || decodeProfile(bytes, encoding) != text) return std::nullopt;
    return bytes;
}

}  // namespace mobrel
