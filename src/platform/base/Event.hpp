// SPDX-License-Identifier: MIT
// Plain synchronous events.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace mobrel {

/// A list of callables that are called in the order of connection, on the raising thread, before
/// `raise` returns. A handler may connect further ones; those hear the next raise. It may destroy the source,
/// and the event with it; the handlers behind it hear nothing then.
template <typename... Args>
class Event {
 public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    ~Event() {
        if (m_handlers) m_handlers->clear();
    }
    Event(const Event&) = delete;  // handlers belong to one source
    Event& operator=(const Event&) = delete;

    void connect(Handler handler) {
        if (!m_handlers) m_handlers = std::make_shared<Handlers>();
        m_handlers->push_back(std::move(handler));
    }

    void raise(Args... args) const {
        const std::shared_ptr<const Handlers> handlers = m_handlers;
        const std::size_t count = handlers ? handlers->size() : 0;
        for (std::size_t i = 0; i < count && i < handlers->size(); ++i) {
            const Handler handler = (*handlers)[i];
            handler(args...);
        }
    }

 private:
    using Handlers = std::vector<Handler>;

    std::shared_ptr<Handlers> m_handlers;  // none while there are no handlers
};

}  // namespace mobrel
