// SPDX-License-Identifier: MIT
// System colours that tests write as letters.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/drawing/SystemColors.hpp"
#include "support/PictureGrid.hpp"

namespace mobrel::test {

/// Gives each system colour a value of its own while it lives; in the classic scheme some are alike.
class LetterColors : private SystemColors {
 public:
    LetterColors() { setSystemColors(this); }
    ~LetterColors() override { setSystemColors(nullptr); }
    LetterColors(const LetterColors&) = delete;
    LetterColors& operator=(const LetterColors&) = delete;

    /// f face, s shadow, h highlight, d dark shadow, l light, w window, m marked text's background.
    static PictureGrid picture(const std::vector<std::string>& rows) {
        const std::map<char, int> indexes = {{'f', 15}, {'s', 16}, {'h', 20}, {'d', 21},
                                             {'l', 22}, {'w', 5},  {'m', 13}};
        std::map<char, std::uint32_t> pixels;
        for (const auto& [letter, index] : indexes) pixels[letter] = 0x304000U + static_cast<unsigned>(index);
        return PictureGrid::fromLetters(rows, RowOrder::TopDown, pixels);
    }

 private:
    Color color(SystemColor index) const override { return static_cast<Color>(index) << 16 | 0x4030; }
};

}  // namespace mobrel::test
