// SPDX-License-Identifier: MIT
#include "programs/clipboard/Transfers.hpp"

#include <algorithm>

namespace mobrel::clipboard {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds kPatience{10};
constexpr std::size_t kPieceBytes = 256 * 1024;
constexpr std::size_t kRequestHead = 64;  // more than the fields of ChangeProperty take

// A server without larger requests takes a little less than a piece at once.
std::size_t mostAtOnce(xcb_connection_t* connection) {
    const std::size_t longest = std::size_t{xcb_get_maximum_request_length(connection)} * 4;
    return std::min(kPieceBytes, std::max(longest, 2 * kRequestHead) - kRequestHead);
}

}  // namespace

Transfers::Transfers(const Display& display)
    : m_display(display), m_incr(display.atom("INCR")), m_mostAtOnce(mostAtOnce(display.connection())) {}

void Transfers::give(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                     std::span<const std::uint8_t> bytes) {
    // A window that asks again into the same property has given the earlier transfer up.
    const auto earlier = find(window, property);
    if (earlier != m_running.end()) m_running.erase(earlier);
    if (bytes.size() <= m_mostAtOnce) {
        put(window, property, type, bytes);
        return;
    }
    m_running.push_back({window, property, type, bytes, Clock::now() + kPatience});
    // First, so that no deletion is missed.
    listenTo(window, XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    const auto atLeast = static_cast<std::uint32_t>(bytes.size());
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, window, property, m_incr, 32, 1,
                        &atLeast);
}

void Transfers::propertyDeleted(xcb_window_t window, xcb_atom_t property) {
    const auto transfer = find(window, property);
    if (transfer == m_running.end()) return;
    const auto piece = transfer->rest.first(std::min(transfer->rest.size(), m_mostAtOnce));
    put(window, property, transfer->type, piece);
    transfer->rest = transfer->rest.subspan(piece.size());
    transfer->deadline = Clock::now() + kPatience;
    if (!piece.empty()) return;  // a piece without bytes is the end
    m_running.erase(transfer);
    stopListening(window);
}

void Transfers::windowGone(xcb_window_t window) {
    std::erase_if(m_running, [window](const Transfer& transfer) { return transfer.window == window; });
}

void Transfers::endLateOnes() {
    const auto now = Clock::now();
    for (std::size_t i = m_running.size(); i-- > 0;) {
        if (m_running[i].deadline > now) continue;
        const xcb_window_t window = m_running[i].window;
        m_running.erase(m_running.begin() + static_cast<std::ptrdiff_t>(i));
        stopListening(window);
    }
}

std::optional<std::chrono::milliseconds> Transfers::timeLeft() const {
    if (m_running.empty()) return std::nullopt;
    const auto first = std::ranges::min_element(m_running, {}, &Transfer::deadline);
    return std::chrono::ceil<std::chrono::milliseconds>(first->deadline - Clock::now());
}

std::vector<Transfers::Transfer>::iterator Transfers::find(xcb_window_t window, xcb_atom_t property) {
    return std::find_if(m_running.begin(), m_running.end(), [=](const Transfer& transfer) {
        return transfer.window == window && transfer.property == property;
    });
}

void Transfers::put(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                    std::span<const std::uint8_t> bytes) const {
    xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
}

void Transfers::listenTo(xcb_window_t window, std::uint32_t events) const {
    xcb_change_window_attributes(m_display.connection(), window, XCB_CW_EVENT_MASK, &events);
}

void Transfers::stopListening(xcb_window_t window) const {
    const bool isLast = std::ranges::find(m_running, window, &Transfer::window) == m_running.end();
    if (isLast) listenTo(window, XCB_EVENT_MASK_NO_EVENT);
}

}  // namespace mobrel::clipboard
