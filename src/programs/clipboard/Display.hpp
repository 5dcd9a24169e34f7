// SPDX-License-Identifier: MIT
// The connection with the X server.
#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

namespace mobrel::clipboard {

struct FreeReply {
    void operator()(void* reply) const noexcept { std::free(reply); }
};

/// A reply or an event of the server.
template <typename Reply>
using Owned = std::unique_ptr<Reply, FreeReply>;

/// A connection and one window that is never shown.
class Display {
 public:
    /// Connects to the server that DISPLAY names. Where that fails isConnected() tells it.
    Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;
    ~Display() { xcb_disconnect(m_connection); }

    /// False also once the server has gone. Requests do nothing then.
    bool isConnected() const noexcept { return xcb_connection_has_error(m_connection) == 0; }

    xcb_connection_t* connection() const noexcept { return m_connection; }
    xcb_window_t window() const noexcept { return m_window; }

    xcb_atom_t atom(std::string_view name) const;

    /// The server's time. Takes events from the queue that came before the answer.
    ///
    /// Source: ICCCM 2.1, "Acquiring Selection Ownership" (a property is appended to with no data).
    xcb_timestamp_t time() const;

    /// Waits until the server has done all that was asked of it. It drops what it has not read yet from a
    /// connection that ends.
    void finishRequests() const;

    /// The next event; waits for one at most so long, without a limit for as long as it takes. None after
    /// the time, and none where the connection ends.
    Owned<xcb_generic_event_t> nextEvent(std::optional<std::chrono::milliseconds> limit) const;

 private:
    xcb_connection_t* m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
};

}  // namespace mobrel::clipboard
