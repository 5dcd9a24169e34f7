// SPDX-License-Identifier: MIT
// The two ways of error diffusion, one pixel of each row of a band at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "imaging/GreyLevels.hpp"
#include "imaging/WaveBand.hpp"

namespace mobrel {

/// Each diffusion goes through one band, or through two in succession of which the second has no more rows.
/// How many rows a wave takes on this processor, which is what a band has but for the last one. 0 without
/// vectors: then there are no waves.
int waveRows();

/// What the last row of a band hands on to the next band: two values for each step. None at first.
template <typename Value>
struct Handover {
    explicit Handover(int width)
        : first(static_cast<std::size_t>(width) + 3 * WaveBand::kBlock + WaveBand::kTail),
          second(first.size()) {}

    std::vector<Value> first;
    std::vector<Value> second;
};

/// Black or white by a threshold, with Stucki's kernel as StoredDiffusion spreads it.
struct StoredRule {
    int threshold;        // 0 to 255
    std::int32_t weight;  // of an error 10 / weight takes effect; not 0
};
void diffuseStored(std::span<WaveBand> bands, const StoredRule& rule, Handover<float>& errors);

/// With the kernel of Floyd and Steinberg as PixelDiffusion spreads it. An entry of the table is a colour,
/// 0x00RRGGBB, with its index above it; there are 4,096, in the order of a ColourCube.
void diffuseColours(std::span<WaveBand> bands, const std::uint32_t* table, Handover<std::uint32_t>& errors);
/// The same by weighted greys.
void diffuseGreys(std::span<WaveBand> bands, const GreyLevels& levels, Handover<std::uint32_t>& errors);

}  // namespace mobrel
