// SPDX-License-Identifier: MIT
// Where a reader of a picture format takes its bytes from.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

namespace mobrel {

/// A stream of bytes, read once from front to back.
class ByteSource {
 public:
    virtual ~ByteSource() = default;

    /// Fills `into` as far as bytes are there; fewer than asked for only at the end of the stream.
    virtual std::size_t read(std::span<std::uint8_t> into) = 0;

    /// Bytes that are still to come, where that is known (not for a pipe).
    virtual std::optional<std::uint64_t> remaining() const = 0;
};

/// A stream over memory that somebody else owns.
class MemorySource final : public ByteSource {
 public:
    explicit MemorySource(std::span<const std::uint8_t> bytes) noexcept : m_bytes(bytes) {}

    std::size_t read(std::span<std::uint8_t> into) override {
        const std::size_t count = std::min(into.size(), m_bytes.size());
        if (count > 0) std::memcpy(into.data(), m_bytes.data(), count);
        m_bytes = m_bytes.subspan(count);
        return count;
    }

    std::optional<std::uint64_t> remaining() const override { return m_bytes.size(); }

 private:
    std::span<const std::uint8_t> m_bytes;
};

}  // namespace mobrel
