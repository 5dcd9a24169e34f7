// SPDX-License-Identifier: MIT
// Texts by the user's fonts, into the memory of a drawing target.
#pragma once

#include <QFont>

#include "platform/drawing/TextService.hpp"

namespace mobrel {

/// The font at a display scale.
QFont qtFont(const TextFont& font, double scale);

/// DrawTextA by Qt. "&" is a character like any other. Needs a QGuiApplication.
class FontText final : public TextService {
 public:
    int lineHeight(const TextFont& font, double scale) const override;
    int textWidth(std::string_view text, const TextFont& font, double scale) const override;
    void draw(DeviceContext& target, const Rect& rect, std::string_view text, const TextFont& font,
              double scale, Color color, unsigned flags) const override;
};

}  // namespace mobrel
