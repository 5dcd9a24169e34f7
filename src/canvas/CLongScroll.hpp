// SPDX-License-Identifier: MIT
// Stretches the 16-bit range of a scroll bar over one of 32 bits.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/base/RuntimeError.hpp"
#include "platform/control/ControlHost.hpp"

namespace mobrel {

/// Something that is no scroll bar was given as a client.
class ScrollClientError : public RuntimeError {
 public:
    ScrollClientError() noexcept : RuntimeError(static_cast<ErrorNumber>(static_cast<int>(0x80040201))) {}

    const char* source() const noexcept { return "CLongScroll"; }
    const char* what() const noexcept override { return "Client object must be a scrollbar."; }
};

/// A range and a position that a scroll bar follows and moves. A step of the bar is told from a drag by its
/// length alone, so the bar has constants as its own steps. Without a client it keeps its values.
class CLongScroll {
 public:
    CLongScroll() = default;
    CLongScroll(const CLongScroll&) = delete;  // the client keeps its address
    CLongScroll& operator=(const CLongScroll&) = delete;

    /// Raised after every change of Value, by the program or by the user.
    Event<> Change;

    /// Connects a scroll bar, which starts at 0; null clears the connection. ScrollClientError for
    /// anything else, which changes nothing. The client has to outlive the connection.
    void setClient(HostPart* client);
    HostPart* Client() const noexcept { return m_bar; }

    std::int32_t Min() const noexcept { return m_min; }
    std::int32_t Max() const noexcept { return m_max; }
    /// Min may be above Max: the bar is reversed then. Sets Value again where it has come to lie outside.
    void setMin(std::int32_t value);
    void setMax(std::int32_t value);

    /// What a click on an arrow and one in the track add.
    std::int32_t SmallChange() const noexcept { return m_smallChange; }
    void setSmallChange(std::int32_t value) noexcept { m_smallChange = value; }
    std::int32_t LargeChange() const noexcept { return m_largeChange; }
    void setLargeChange(std::int32_t value) noexcept { m_largeChange = value; }

    std::int32_t Value() const noexcept { return m_value; }
    /// A value outside the range goes to its nearer end.
    void setValue(std::int32_t value);

 private:
    /// The five values of the bar, as last read; Value also as last written.
    struct ClientCopy {
        std::int16_t Value = 0;
        std::int16_t Min = 0;
        std::int16_t Max = 0;
        std::int16_t SmallChange = 0;
        std::int16_t LargeChange = 0;
    };

    bool isReversed() const noexcept { return m_min > m_max; }
    std::int32_t lowest() const noexcept { return isReversed() ? m_max : m_min; }
    std::int32_t highest() const noexcept { return isReversed() ? m_min : m_max; }
    double range() const noexcept;
    double clientRange() const noexcept;
    std::int32_t inRange(std::int64_t value) const noexcept;

    void connectClient();
    void readClient();
    void placeClient();
    void writeClient();
    void clientChanged();
    void followDrag();

    ScrollBar* m_bar = nullptr;
    /// Of the present bar.
    std::optional<Listener> m_listener;
    std::int32_t m_min = 0;
    std::int32_t m_max = 32767;
    std::int32_t m_smallChange = 1;
    std::int32_t m_largeChange = 1;
    std::int32_t m_value = 0;
    ClientCopy m_copy;
    /// The class itself writes to the bar, whose event comes back at once.
    bool m_isWriting = false;
};

}  // namespace mobrel
