// SPDX-License-Identifier: MIT
#include "platform/base/JsonText.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace mobrel {

namespace {

// The first byte of a character tells how many follow, and the range of the second.
struct Utf8Row {
    unsigned char first, firstTo;
    unsigned char second, secondTo;
    std::size_t length;
};
constexpr std::array<Utf8Row, 8> kUtf8Rows = {{
    {0xC2, 0xDF, 0x80, 0xBF, 2},
    {0xE0, 0xE0, 0xA0, 0xBF, 3},
    {0xE1, 0xEC, 0x80, 0xBF, 3},
    {0xED, 0xED, 0x80, 0x9F, 3},
    {0xEE, 0xEF, 0x80, 0xBF, 3},
    {0xF0, 0xF0, 0x90, 0xBF, 4},
    {0xF1, 0xF3, 0x80, 0xBF, 4},
    {0xF4, 0xF4, 0x80, 0x8F, 4},
}};

unsigned char byteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

bool isBetween(unsigned char byte, unsigned char least, unsigned char greatest) {
    return byte >= least && byte <= greatest;
}

// Length of the character of several bytes that the text begins with; 0 when it does not.
std::size_t multibyteLength(std::string_view text) {
    const auto row = std::ranges::find_if(
        kUtf8Rows, [&](const Utf8Row& r) { return isBetween(byteAt(text, 0), r.first, r.firstTo); });
    if (row == kUtf8Rows.end() || text.size() < row->length) return 0;
    if (!isBetween(byteAt(text, 1), row->second, row->secondTo)) return 0;
    for (std::size_t at = 2; at < row->length; ++at) {
        if (!isBetween(byteAt(text, at), 0x80, 0xBF)) return 0;
    }
    return row->length;
}

std::string escaped(unsigned char byte) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    return {'\\', 'u', '0', '0', kDigits[byte >> 4], kDigits[byte & 15]};
}

}  // namespace

std::string jsonString(std::string_view text) {
    std::string quoted = "\"";
    while (!text.empty()) {
        const unsigned char byte = byteAt(text, 0);
        std::size_t length = 1;
        if (byte == '"' || byte == '\\') {
            quoted += {'\\', text[0]};
        } else if (byte >= ' ' && byte < 0x7F) {
            quoted += text[0];
        } else if (const std::size_t several = multibyteLength(text); several > 0) {
            length = several;
            quoted += text.substr(0, length);
        } else {
            quoted += escaped(byte);
        }
        text.remove_prefix(length);
    }
    quoted += '"';
    return quoted;
}

}  // namespace mobrel
