// SPDX-License-Identifier: MIT
// Hands data over to the windows that ask for it, large data in pieces.
#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "programs/clipboard/Display.hpp"

namespace mobrel::clipboard {

/// The transfers that are under way. Each has its own pace and is told by window and property; one whose
/// window does not take the next piece within 10 seconds, or goes away, ends alone.
///
/// Source: ICCCM 2.5, "Large Data Transfers", and 2.7.2, "INCR Properties".
class Transfers {
 public:
    explicit Transfers(const Display& display);

    /// Puts the data in the window's property: whole where it is small, else the property announces that it
    /// comes in pieces. The bytes must stay where they are.
    void give(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, std::span<const std::uint8_t> bytes);

    /// The window has taken what the property held.
    void propertyDeleted(xcb_window_t window, xcb_atom_t property);

    void windowGone(xcb_window_t window);

    void endLateOnes();

    bool empty() const noexcept { return m_running.empty(); }

    /// Until the next one is late; nothing while none is under way.
    std::optional<std::chrono::milliseconds> timeLeft() const;

 private:
    struct Transfer {
        xcb_window_t window;
        xcb_atom_t property;
        xcb_atom_t type;
        std::span<const std::uint8_t> rest;
        std::chrono::steady_clock::time_point deadline;
    };

    std::vector<Transfer>::iterator find(xcb_window_t window, xcb_atom_t property);
    void put(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
             std::span<const std::uint8_t> bytes) const;
    void listenTo(xcb_window_t window, std::uint32_t events) const;
    void stopListening(xcb_window_t window) const;

    const Display& m_display;
    xcb_atom_t m_incr;
    std::size_t m_mostAtOnce;
    std::vector<Transfer> m_running;
};

}  // namespace mobrel::clipboard
