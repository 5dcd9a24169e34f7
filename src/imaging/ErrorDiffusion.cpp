// SPDX-License-Identifier: MIT
#include "imaging/ErrorDiffusion.hpp"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/Numbers.hpp"

namespace mobrel {

namespace {

constexpr int kLeastSpread = 4;

void addShare(std::uint8_t* pixel, const std::array<int, 3>& errors, int weight) {
    for (std::size_t channel = 0; channel < 3; ++channel) {
        pixel[channel] = clampByte(pixel[channel] + errors[channel] * weight / 16);
    }
}

}  // namespace

void PixelDiffusion::spread(const std::array<int, 3>& errors, int x, int width, std::uint8_t* at,
                            std::uint8_t* above) {
    if (std::abs(errors[0]) + std::abs(errors[1]) + std::abs(errors[2]) < kLeastSpread) return;
    const bool hasRight = x < width - 1;
    const std::ptrdiff_t here = std::ptrdiff_t{x} * 4;
    if (hasRight) addShare(at + here + 4, errors, 7);
    if (above == nullptr) return;
    addShare(above + here, errors, 5);
    if (hasRight) addShare(above + here + 4, errors, 1);
    if (x > 0) addShare(above + here - 4, errors, 3);
}

StoredDiffusion::StoredDiffusion(int width, int height) : m_width(width), m_height(height) {
    for (auto& line : m_lines) line.assign(static_cast<std::size_t>(width), 0);
    constexpr Shares kWeights = {8, 4, 2, 4, 8, 4, 2, 1, 2, 4, 2, 1};
    for (int error = -255; error <= 255; ++error) {
        Shares& shares = m_shares.emplace_back();
        std::ranges::transform(kWeights, shares.begin(),
                               [=](std::int32_t weight) { return weight * error / 42; });
    }
}

void StoredDiffusion::spread(int error, int x, int y) {
    const Shares& shares = *(m_shares.data() + error + 255);
    if (x < m_width - 2) add(0, x + 1, shares[0]);
    if (x < m_width - 3) add(0, x + 2, shares[1]);
    if (y < m_height - 2) spreadBelow(1, x, &shares[2]);
    if (y < m_height - 3) spreadBelow(2, x, &shares[7]);
}

/// Five shares about column x, from the left.
void StoredDiffusion::spreadBelow(int line, int x, const std::int32_t* shares) {
    if (x > 1) add(line, x - 2, shares[0]);
    if (x > 0) add(line, x - 1, shares[1]);
    add(line, x, shares[2]);
    if (x < m_width - 2) add(line, x + 1, shares[3]);
    if (x < m_width - 3) add(line, x + 2, shares[4]);
}

void StoredDiffusion::nextLine() {
    std::rotate(m_lines.begin(), m_lines.begin() + 1, m_lines.end());
    std::ranges::fill(m_lines.back(), 0);
}

}  // namespace mobrel
