// SPDX-License-Identifier: MIT
// What a control hears from its user, under the platform's numbers.
#pragma once

#include <cstdint>

namespace mobrel {

/// Buttons as they stand in events; a move has the sum of those that are down.
namespace MouseButton {
constexpr std::int16_t kNone = 0;
constexpr std::int16_t kLeft = 1;
constexpr std::int16_t kRight = 2;
constexpr std::int16_t kMiddle = 4;
}  // namespace MouseButton

/// The keys that are held beside a button or key, as a sum.
namespace ShiftState {
constexpr std::int16_t kShift = 1;
constexpr std::int16_t kControl = 2;
constexpr std::int16_t kAlt = 4;
}  // namespace ShiftState

namespace KeyCode {
constexpr std::int16_t kEnter = 13;
constexpr std::int16_t kEscape = 27;
constexpr std::int16_t kSpace = 32;
constexpr std::int16_t kPageUp = 33;
constexpr std::int16_t kPageDown = 34;
constexpr std::int16_t kEnd = 35;
constexpr std::int16_t kHome = 36;
constexpr std::int16_t kLeft = 37;
constexpr std::int16_t kUp = 38;
constexpr std::int16_t kRight = 39;
constexpr std::int16_t kDown = 40;
constexpr std::int16_t kAdd = 107;
constexpr std::int16_t kSubtract = 109;
}  // namespace KeyCode

/// Places are device pixels from the control's left top corner, and may have fractions.
struct PointerInput {
    std::int16_t button = MouseButton::kNone;
    std::int16_t shift = 0;
    float x = 0;
    float y = 0;
};

/// A turn of the wheel away from the user, or to the left, is positive. One notch is 120; touchpads send
/// parts of it.
struct WheelInput {
    std::int16_t shift = 0;
    float x = 0;
    float y = 0;
    int horizontal = 0;
    int vertical = 0;
};

struct KeyInput {
    std::int16_t keyCode = 0;
    std::int16_t shift = 0;
};

}  // namespace mobrel
