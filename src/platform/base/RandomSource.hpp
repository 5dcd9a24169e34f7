// SPDX-License-Identifier: MIT
// The uniform random numbers of filters and brush.
#pragma once

#include <cstdint>
#include <span>

#include "platform/base/SplitMix.hpp"

namespace mobrel {

/// Uniform numbers in [0, 1) with 24 bits, from a fixed start state: the same steps draw the same
/// numbers. Number n is a mix of the counter alone, so a stream can be cut at any place and drawn in
/// parallel. Period 2^64.
class RandomSource {
 public:
    float next() { return number(bitsOf(m_counter += splitmix::kStep)); }

    /// Draws as many numbers as `bits` holds, each as its 24 bits.
    void draw(std::span<std::uint32_t> bits);

    /// The number that has these 24 bits.
    static constexpr float number(std::uint32_t bits) { return static_cast<float>(bits) * 0x1p-24F; }

 private:
    static constexpr std::uint32_t bitsOf(std::uint64_t counter) {
        return static_cast<std::uint32_t>(splitmix::mix(counter) >> 40);
    }

    std::uint64_t m_counter = 0;
};

/// The one source of the process.
RandomSource& processRandomSource();

}  // namespace mobrel
