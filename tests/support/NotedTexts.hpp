// SPDX-License-Identifier: MIT
// A text service without fonts, which notes what is written.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/base/Numbers.hpp"
#include "platform/drawing/TextService.hpp"

namespace mobrel::test {

/// Serves while it lives. A line is two pixels high for each point of its font, or as high as told, and
/// six thirteenths as wide for each character, as in a small font.
class NotedTexts : public TextService {
 public:
    struct Line {
        Rect rect;
        std::string text;
        TextFont font;
        Color color;
        unsigned flags;

        bool operator==(const Line&) const = default;
    };

    explicit NotedTexts(int height = 13) : m_height(height) { setTextService(this); }
    ~NotedTexts() override { setTextService(nullptr); }
    NotedTexts(const NotedTexts&) = delete;
    NotedTexts& operator=(const NotedTexts&) = delete;

    int lineHeight(const TextFont& font, double scale) const override {
        return roundInt((font.points > 0 ? font.points * 2 : m_height) * scale);
    }
    int textWidth(std::string_view text, const TextFont& font, double scale) const override {
        return lineHeight(font, scale) * 6 / 13 * static_cast<int>(text.size());
    }
    void draw(DeviceContext&, const Rect& rect, std::string_view text, const TextFont& font, double,
              Color color, unsigned flags) const override {
        lines.push_back({rect, std::string(text), font, color, flags});
    }

    mutable std::vector<Line> lines;

 private:
    int m_height;
};

}  // namespace mobrel::test
