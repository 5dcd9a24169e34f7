// SPDX-License-Identifier: MIT
// Plain synchronous events.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace mobrel {

/// A member of whoever listens to events of something that may outlive it. What is connected with it is heard
/// as long as it lives.
class Listener {
 public:
    Listener() = default;
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    std::weak_ptr<const void> life() const noexcept { return m_life; }

 private:
    std::shared_ptr<const void> m_life = std::make_shared<const char>();
};

/// A list of callables that are called in the order of connection, on the raising thread, before
/// `raise` returns. A handler may connect further ones; those hear the next raise. It may destroy the source,
/// and the event with it; the handlers behind it hear nothing then.
template <typename... Args>
class Event {
 public:
    using Handler = std::function<void(Args...)>;

    Event() = default;
    ~Event() {
        if (m_connections) m_connections->clear();
    }
    Event(const Event&) = delete;  // handlers belong to one source
    Event& operator=(const Event&) = delete;

    /// For a handler that can be called as long as the event is there.
    void connect(Handler handler) { add({std::move(handler), std::nullopt}); }
    /// The connection ends with the listener.
    void connect(const Listener& listener, Handler handler) { add({std::move(handler), listener.life()}); }

    void raise(Args... args) const {
        const std::shared_ptr<const Connections> connections = m_connections;
        const std::size_t count = connections ? connections->size() : 0;
        for (std::size_t i = 0; i < count && i < connections->size(); ++i) {
            const Connection connection = (*connections)[i];
            if (connection.isHeard()) connection.handler(args...);
        }
    }

 private:
    struct Connection {
        Handler handler;
        std::optional<std::weak_ptr<const void>> listener;

        bool isHeard() const { return !listener || !listener->expired(); }
    };
    using Connections = std::vector<Connection>;

    void add(Connection connection) {
        if (!m_connections) m_connections = std::make_shared<Connections>();
        m_connections->push_back(std::move(connection));
    }

    std::shared_ptr<Connections> m_connections;  // none while there are no handlers
};

}  // namespace mobrel
