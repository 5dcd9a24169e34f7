// SPDX-License-Identifier: MIT
// Plain synchronous events.
#pragma once

#include <cstddef>
#include <functional>
#include <utility>
#include <vector>

namespace mobrel {

/// A list of callables that are called in the order of connection, on the raising thread, before
/// `raise` returns. A handler may connect further ones; those hear the next raise.
template <typename... Args>
class Event {
 public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    Event(const Event&) = delete;  // handlers belong to one source
    Event& operator=(const Event&) = delete;

    void connect(Handler handler) { m_handlers.push_back(std::move(handler)); }

    void raise(Args... args) const {
        const std::size_t count = m_handlers.size();
        for (std::size_t i = 0; i < count; ++i) {
            const Handler handler = m_handlers[i];
            handler(args...);
        }
    }

 private:
    std::vector<Handler> m_handlers;
};

}  // namespace mobrel
