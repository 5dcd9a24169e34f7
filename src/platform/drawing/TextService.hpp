// SPDX-License-Identifier: MIT
// Text in a drawing target. The core has no fonts: a desktop installs the service that has.
#pragma once

#include <string>
#include <string_view>

#include "platform/drawing/DeviceContext.hpp"

namespace mobrel {

/// A font; the empty family and size 0 are the user's own.
struct TextFont {
    std::string family;
    double points = 0;
    bool bold = false;

    bool operator==(const TextFont&) const = default;
};

/// The platform's flags of DrawTextA, which may be joined. 0 is left, top and no wrapping.
enum DrawTextFlags : unsigned {
    DT_LEFT = 0,
    DT_CENTER = 1,
    DT_RIGHT = 2,
    DT_VCENTER = 4,
    DT_WORDBREAK = 16,
    DT_SINGLELINE = 32,
};

class TextService {
 public:
    virtual ~TextService() = default;

    /// All sizes are in device pixels of a display scale.
    virtual int lineHeight(const TextFont& font, double scale) const = 0;
    virtual int textWidth(std::string_view text, const TextFont& font, double scale) const = 0;

    /// Draws UTF-8 text, clipped to the rectangle, over what is there.
    virtual void draw(DeviceContext& target, const Rect& rect, std::string_view text, const TextFont& font,
                      double scale, Color color, unsigned flags) const = 0;
};

/// Null, the state at start, is no service: texts are not drawn, lines are 13 design pixels high, and a
/// character is 6 wide.
void setTextService(const TextService* service);

int lineHeight(const TextFont& font, double scale);
int textWidth(std::string_view text, const TextFont& font, double scale);

/// DrawTextA of the platform: see TextService::draw.
void DrawTextA(DeviceContext& target, const Rect& rect, std::string_view text, const TextFont& font,
               double scale, Color color, unsigned flags);

}  // namespace mobrel
