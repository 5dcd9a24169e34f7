// SPDX-License-Identifier: MIT
// Little-endian numbers, wherever they stand in memory.
#pragma once

#include <cstdint>

namespace mobrel {

inline std::uint16_t loadU16(const std::uint8_t* bytes) {
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}
inline std::uint32_t loadU32(const std::uint8_t* bytes) {
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
           static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}
inline std::int32_t loadI32(const std::uint8_t* bytes) {
    return static_cast<std::int32_t>(loadU32(bytes));
}

// Written so that the compiler makes it one store.
inline void storeU32(std::uint8_t* bytes, std::uint32_t value) {
    bytes[0] = static_cast<std::uint8_t>(value);
    bytes[1] = static_cast<std::uint8_t>(value >> 8);
    bytes[2] = static_cast<std::uint8_t>(value >> 16);
    bytes[3] = static_cast<std::uint8_t>(value >> 24);
}

}  // namespace mobrel
