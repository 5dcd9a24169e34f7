// SPDX-License-Identifier: MIT
#include "platform/drawing/TextService.hpp"

#include <algorithm>

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr int kLineHeight = 13;
constexpr int kCharacterWidth = 6;

const TextService* installed = nullptr;

/// UTF-8 continues a character with bytes from 0x80 to 0xBF.
std::int64_t charactersOf(std::string_view text) {
    return std::ranges::count_if(text, [](char byte) { return (byte & 0xC0) != 0x80; });
}

}  // namespace

void setTextService(const TextService* service) {
    installed = service;
}

int lineHeight(const TextFont& font, double scale) {
    return installed != nullptr ? installed->lineHeight(font, scale) : roundInt(kLineHeight * scale);
}

int textWidth(std::string_view text, const TextFont& font, double scale) {
    if (installed != nullptr) return installed->textWidth(text, font, scale);
    return roundInt(static_cast<double>(charactersOf(text)) * kCharacterWidth * scale);
}

void DrawTextA(DeviceContext& target, const Rect& rect, std::string_view text, const TextFont& font,
               double scale, Color color, unsigned flags) {
    if (installed != nullptr) installed->draw(target, rect, text, font, scale, color, flags);
}

}  // namespace mobrel
