// SPDX-License-Identifier: MIT
// How large the factors of rounded products may be.
#pragma once

namespace mobrel::kernels {

/// Factors and summands up to which no rounded value leaves 32 bits.
constexpr double kMostFactor = 1'000'000;

}  // namespace mobrel::kernels
