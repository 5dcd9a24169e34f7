// SPDX-License-Identifier: MIT
#include "programs/batch/run/JsonLine.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>

namespace mobrel::batch {

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

// Three decimals, whatever the locale.
std::string secondsText(double seconds) {
    std::array<char, 400> buffer{};
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), seconds, std::chars_format::fixed, 3).ptr;
    return {buffer.data(), end};
}

std::string_view statusText(Status status) {
    switch (status) {
        case Status::Done:
            return "done";
        case Status::Failed:
            return "failed";
        case Status::NotDone:
            break;
    }
    return "not done";
}

std::string infoFields(const PictureInfo& info) {
    return ",\"palette\":" + jsonString(info.palette) +
           ",\"colors_used\":" + std::to_string(info.colorsUsed) +
           ",\"bitmap_bytes\":" + std::to_string(info.bitmapBytes);
}

std::string numberOrNull(int number) {
    return number > 0 ? std::to_string(number) : "null";
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

std::string jsonLine(const Task& task, const Outcome& outcome) {
    std::string line = "{\"file\":" + jsonString(task.picture);
    if (!task.target.empty()) line += ",\"target\":" + jsonString(task.target);
    line += ",\"width\":" + numberOrNull(outcome.width);
    line += ",\"height\":" + numberOrNull(outcome.height);
    line += ",\"depth\":" + numberOrNull(outcome.depth);
    if (outcome.info) line += infoFields(*outcome.info);
    line += ",\"status\":" + jsonString(statusText(outcome.status));
    line += ",\"error\":" + (outcome.error.empty() ? std::string("null") : jsonString(outcome.error));
    line += ",\"seconds\":" + secondsText(outcome.seconds) + "}";
    return line;
}

}  // namespace mobrel::batch
