// SPDX-License-Identifier: MIT
#include "platform/system/ProfileText.hpp"

#include <cstddef>
#include <initializer_list>

#include "platform/base/AsciiText.hpp"
#include "platform/system/ProfileEncoding.hpp"

namespace mobrel {

namespace {

constexpr std::string_view kDefaultLineEnd = "\r\n";

// One line: where it begins, what stands on it, and the characters that end it (none at the end of
// the text).
struct Line {
    std::size_t begin = 0;
    std::string_view content;
    std::string_view end;

    std::size_t next() const noexcept { return begin + content.size() + end.size(); }
};

std::string_view lineEndAt(std::string_view rest) noexcept {
    for (const std::string_view end : {"\n", "\r\n", "\r\r\n", "\r"}) {
        if (rest.starts_with(end)) return end;
    }
    return {};
}

Line lineAt(std::string_view text, std::size_t begin) noexcept {
    std::size_t end = begin;
    while (end < text.size() && text[end] != '\r' && text[end] != '\n') ++end;
    return Line{begin, text.substr(begin, end - begin), lineEndAt(text.substr(end))};
}

// A header's name stands between '[' and the last ']'; what follows that counts for nothing.
std::optional<std::string_view> headerName(std::string_view content) noexcept {
    content = withoutLeadingBlanks(content);
    if (!content.starts_with('[')) return std::nullopt;
    const std::size_t close = content.rfind(']');
    if (close == std::string_view::npos) return std::nullopt;
    return withoutOuterBlanks(content.substr(1, close - 1));
}

// A line that is no header names a key by what stands before its first '='. A comment is a key, too,
// whose name begins with ';'.
std::string_view keyName(std::string_view content) noexcept {
    return withoutOuterBlanks(content.substr(0, content.find('=')));
}

std::optional<std::string_view> valueOn(std::string_view content) noexcept {
    const std::size_t separator = content.find('=');
    if (separator == std::string_view::npos) return std::nullopt;
    return withoutOuterBlanks(content.substr(separator + 1));
}

// What a text has of a section and a key.
struct Place {
    bool hasSection = false;
    std::size_t sectionEnd = 0;  // behind the section's last line that is not blank
    std::optional<Line> keyLine;
};

// The lines above the first header are the section without a name, which every text has.
Place findPlace(std::string_view text, std::string_view section, std::string_view key) noexcept {
    Place place;
    place.hasSection = section.empty();
    for (std::size_t at = 0; at < text.size();) {
        const Line line = lineAt(text, at);
        at = line.next();
        if (const auto name = headerName(line.content)) {
            if (place.hasSection) return place;
            place.hasSection = equalIgnoringCase(*name, section);
            place.sectionEnd = at;
        } else if (place.hasSection && !withoutOuterBlanks(line.content).empty()) {
            place.sectionEnd = at;
            if (equalIgnoringCase(keyName(line.content), key)) {
                place.keyLine = line;
                return place;
            }
        }
    }
    return place;
}

// The key as it is spelt and the blanks before it stay, all behind it is new.
std::string withLineChanged(std::string_view text, const Line& line, std::string_view value) {
    const std::string_view key = withoutTrailingBlanks(line.content.substr(0, line.content.find('=')));
    std::string changed(text.substr(0, line.begin));
    changed.append(key).append("=").append(value);
    changed += text.substr(line.begin + line.content.size());
    return changed;
}

std::string_view newLineEnd(std::string_view text, std::size_t at) noexcept {
    const std::string_view first = lineAt(text, 0).end;
    if (first.empty()) return kDefaultLineEnd;
    // A lone CR would make one line end with the end of a blank line that follows.
    const std::string_view following = lineEndAt(text.substr(at));
    const bool joins = first == "\r" && (following == "\n" || following == "\r\n");
    return joins ? kDefaultLineEnd : first;
}

std::string withLinesInserted(std::string_view text, std::size_t at,
                              std::initializer_list<std::string_view> lines) {
    const std::string_view end = newLineEnd(text, at);
    std::string changed(text.substr(0, at));
    if (at > 0 && changed.back() != '\r' && changed.back() != '\n') changed += end;
    for (const std::string_view line : lines) changed.append(line).append(end);
    changed += text.substr(at);
    return changed;
}

std::string withEntryAdded(std::string_view text, const Place& place, std::string_view section,
                           const std::string& entry) {
    if (place.hasSection) return withLinesInserted(text, place.sectionEnd, {entry});
    return withLinesInserted(text, text.size(), {"[" + std::string(section) + "]", entry});
}

bool fitsOnLine(std::string_view text) noexcept {
    return text.find_first_of(std::string_view("\r\n\0", 3)) == std::string_view::npos;
}

bool isWritableKey(std::string_view key) noexcept {
    return fitsOnLine(key) && !key.starts_with('[') && key.find('=') == std::string_view::npos;
}

}  // namespace

std::optional<std::string> profileValue(std::string_view bytes, std::string_view section,
                                        std::string_view key) {
    const std::string text = decodeProfile(bytes, profileEncodingOf(bytes));
    const Place place = findPlace(text, withoutOuterBlanks(section), withoutOuterBlanks(key));
    if (!place.keyLine) return std::nullopt;
    const auto value = valueOn(place.keyLine->content);
    if (!value) return std::nullopt;
    return std::string(withoutOuterQuotes(*value));
}

std::optional<std::string> profileWithValue(std::string_view bytes, std::string_view section,
                                            std::string_view key, std::string_view value) {
    section = withoutOuterBlanks(section);
    key = withoutOuterBlanks(key);
    value = withoutLeadingBlanks(value);
    if (!fitsOnLine(section) || !isWritableKey(key) || !fitsOnLine(value)) return std::nullopt;

    const ProfileEncoding encoding = profileEncodingOf(bytes);
    const std::string text = decodeProfile(bytes, encoding);
    const Place place = findPlace(text, section, key);
    if (!place.keyLine) {
        const std::string entry = std::string(key).append("=").append(value);
        return encodeProfile(withEntryAdded(text, place, section, entry), encoding);
    }
    // Trailing blanks of a value are never read, so they make no other value.
    if (valueOn(place.keyLine->content) == withoutTrailingBlanks(value)) return std::string(bytes);
    return encodeProfile(withLineChanged(text, *place.keyLine, value), encoding);
}

std::string_view withoutOuterQuotes(std::string_view text) noexcept {
    const bool quoted =
        text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.front() == text.back();
    return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace mobrel
