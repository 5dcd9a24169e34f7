// SPDX-License-Identifier: MIT
// The uniform random numbers of filters and brush.
#pragma once

#include <cstdint>

namespace mobrel {

/// Uniform numbers in [0, 1) with 24 bits, from a fixed start state: the same steps draw the same
/// numbers. Number n is a mix of the counter alone, so a stream can be cut at any place and drawn in
/// parallel. Period 2^64.
///
/// Source: Steele, Lea, Flood, "Fast Splittable Pseudorandom Number Generators", 2014 (SplitMix64).
class RandomSource {
 public:
    float next() { return fromBits(mix(m_counter += kStep)); }

 private:
    static constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15;

    static constexpr std::uint64_t mix(std::uint64_t z) {
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }
    static constexpr float fromBits(std::uint64_t bits) { return static_cast<float>(bits >> 40) * 0x1p-24F; }

    std::uint64_t m_counter = 0;
};

/// The one source of the process.
RandomSource& processRandomSource();

}  // namespace mobrel
