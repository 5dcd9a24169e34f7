// SPDX-License-Identifier: MIT
// The mix that turns a counter into random bits.
#pragma once

#include <cstdint>

namespace mobrel::splitmix {

/// From one counter to the next.
constexpr std::uint64_t kStep = 0x9E3779B97F4A7C15;

constexpr std::uint64_t kFirstFactor = 0xBF58476D1CE4E5B9;
constexpr std::uint64_t kSecondFactor = 0x94D049BB133111EB;

/// 64 random bits for a counter.
///
/// Source: Steele, Lea, Flood, "Fast Splittable Pseudorandom Number Generators", 2014 (SplitMix64).
constexpr std::uint64_t mix(std::uint64_t z) {
    z = (z ^ (z >> 30)) * kFirstFactor;
    z = (z ^ (z >> 27)) * kSecondFactor;
    return z ^ (z >> 31);
}

}  // namespace mobrel::splitmix
