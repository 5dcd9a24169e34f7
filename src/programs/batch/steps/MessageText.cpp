// SPDX-License-Identifier: MIT
#include "programs/batch/steps/MessageText.hpp"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <vector>

#include "platform/base/AsciiText.hpp"

namespace mobrel::batch {

namespace {

// No name is so long; what is typed may be.
constexpr std::size_t kLongestMistyped = 64;

bool isControl(unsigned char c) {
    return c < ' ' || c == 0x7F;
}

// Levenshtein's distance: how many letters have to be changed, added or taken out.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const bool same = asciiLower(a[i]) == asciiLower(b[j]);
            const std::size_t changed = diagonal + (same ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({changed, diagonal + 1, row[j] + 1});
        }
    }
    return row[b.size()];
}

}  // namespace

std::string onOneLine(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string line;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (isControl(code)) {
            line += {'\\', 'x', kDigits[code >> 4], kDigits[code & 15]};
        } else {
            line += c;
        }
    }
    return line;
}

std::string_view nearestName(std::string_view mistyped, std::span<const std::string_view> names) {
    if (mistyped.size() > kLongestMistyped) return {};
    std::string_view nearest;
    std::size_t least = (mistyped.size() + 1) / 2 + 1;
    for (const std::string_view name : names) {
        const std::size_t distance = editDistance(mistyped, name);
        if (distance < least) {
            least = distance;
            nearest = name;
        }
    }
    return nearest;
}

}  // namespace mobrel::batch
