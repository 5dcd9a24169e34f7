// SPDX-License-Identifier: MIT
// Writes keys into profile files of any bytes and checks that only what was asked for changes.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/base/AsciiText.hpp"
#include "platform/system/ProfileEncoding.hpp"
#include "platform/system/ProfileText.hpp"

namespace {

using namespace mobrel;

constexpr std::size_t kMostEntries = 64;

// Ends the process, which a fuzzer takes for a finding.
void require(bool law, const char* text) {
    if (law) return;
    std::fprintf(stderr, "broken: %s\n", text);
    std::abort();
}

// The part of the input up to the next '|', which is taken off it.
std::string_view nextPart(std::string_view& input) {
    const std::string_view part = input.substr(0, input.find('|'));
    input.remove_prefix(std::min(input.size(), part.size() + 1));
    return part;
}

// What is read when a value has been written.
std::string_view asRead(std::string_view value) {
    return withoutOuterQuotes(withoutOuterBlanks(value));
}

bool sameName(std::string_view a, std::string_view b) {
    return equalIgnoringCase(withoutOuterBlanks(a), withoutOuterBlanks(b));
}

// Old and new text differ in one stretch, and what stood there before had no line end in it.
void requireOneLineChanged(std::string_view before, std::string_view after) {
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t front = 0;
    while (front < shorter && before[front] == after[front]) ++front;
    std::size_t back = 0;
    while (back < shorter - front && before[before.size() - 1 - back] == after[after.size() - 1 - back])
        ++back;
    const std::string_view changed = before.substr(front, before.size() - front - back);
    require(changed.find_first_of("\r\n") == std::string_view::npos, "one line changes");
}

// Calls check(section, key) for what looks like a key. Knows less of the rules than the reader does:
// what it takes for a key wrongly is a key that is not there before and not after.
template <typename Check>
void forEachEntry(std::string_view text, const Check& check) {
    std::string_view section;
    for (std::size_t count = 0; !text.empty() && count < kMostEntries; ++count) {
        const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
        text.remove_prefix(std::min(text.size(), line.size() + 1));
        const std::size_t open = line.find('['), close = line.rfind(']');
        if (open != std::string_view::npos && close != std::string_view::npos && open < close) {
            section = line.substr(open + 1, close - open - 1);
        }
        check(section, line.substr(0, line.find('=')));
    }
}

void checkWrite(std::string_view file, std::string_view section, std::string_view key,
                std::string_view value) {
    const std::optional<std::string> written = profileWithValue(file, section, key, value);
    if (!written) return;
    require(profileValue(*written, section, key) == asRead(value), "a written value is read back");
    require(profileWithValue(*written, section, key, value) == written, "writing again changes nothing");

    const ProfileEncoding encoding = profileEncodingOf(file);
    require(profileEncodingOf(*written) == encoding, "the encoding stays");
    const std::string before = decodeProfile(file, encoding);
    requireOneLineChanged(before, decodeProfile(*written, encoding));
    forEachEntry(before, [&](std::string_view otherSection, std::string_view otherKey) {
        if (sameName(otherSection, section) && sameName(otherKey, key)) return;
        require(profileValue(*written, otherSection, otherKey) == profileValue(file, otherSection, otherKey),
                "other keys keep their values");
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // section|key|value|bytes of the file
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view section = nextPart(input);
    const std::string_view key = nextPart(input);
    const std::string_view value = nextPart(input);
    checkWrite(input, section, key, value);

    const ProfileEncoding encoding = profileEncodingOf(input);
    const std::optional<std::string> same = encodeProfile(decodeProfile(input, encoding), encoding);
    // Half a code unit at the end is all that may be lost.
    require(same && input.starts_with(*same) && input.size() - same->size() <= 1,
            "the encoding loses nothing");
    return 0;
}
