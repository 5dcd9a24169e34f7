// SPDX-License-Identifier: MIT
#include "programs/clipboard/Display.hpp"

#include <poll.h>

#include <algorithm>
#include <climits>

namespace mobrel::clipboard {

namespace {

constexpr std::uint8_t kSentBySomebody = 0x80;

xcb_screen_t* screenOf(xcb_connection_t* connection, int number) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; number > 0 && screens.rem > 1; --number) xcb_screen_next(&screens);
    return screens.data;
}

}  // namespace

Display::Display() {
    int screen = 0;
    m_connection = xcb_connect(nullptr, &screen);
    if (!isConnected()) return;
    m_window = xcb_generate_id(m_connection);
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_window, screenOf(m_connection, screen)->root, 0,
                      0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
}

xcb_atom_t Display::atom(std::string_view name) const {
    const auto cookie =
        xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_timestamp_t Display::time() const {
    xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, 0,
                        nullptr);
    while (isConnected()) {
        const auto event = nextEvent(std::nullopt);
        if (event && event->response_type == XCB_PROPERTY_NOTIFY) {
            return reinterpret_cast<const xcb_property_notify_event_t&>(*event).time;
        }
    }
    return XCB_CURRENT_TIME;
}

void Display::finishRequests() const {
    // Any question will do: the answers keep the order of the requests.
    const auto cookie = xcb_get_input_focus(m_connection);
    const Owned<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(m_connection, cookie, nullptr));
}

Owned<xcb_generic_event_t> Display::nextEvent(std::optional<std::chrono::milliseconds> limit) const {
    // Before the queue is looked at: what the flush reads while it writes goes there.
    xcb_flush(m_connection);
    Owned<xcb_generic_event_t> event(xcb_poll_for_event(m_connection));
    if (!event && isConnected()) {
        const auto most = std::chrono::milliseconds(INT_MAX);
        pollfd waiting = {xcb_get_file_descriptor(m_connection), POLLIN, 0};
        ::poll(&waiting, 1, limit ? static_cast<int>(std::clamp(*limit, {}, most).count()) : -1);
        event.reset(xcb_poll_for_event(m_connection));
    }
    if (event) event->response_type &= static_cast<std::uint8_t>(~kSentBySomebody);
    return event;
}

}  // namespace mobrel::clipboard
