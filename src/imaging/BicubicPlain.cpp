// SPDX-License-Identifier: MIT
#include "imaging/BicubicPlain.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

constexpr std::size_t kChannels = 3;
constexpr std::size_t kPixelBytes = 4;
constexpr double kReach = 2.0;

/// The cubic convolution kernel with a = -1/2.
///
/// Source: R. G. Keys, "Cubic convolution interpolation for digital image processing", IEEE Transactions
/// on Acoustics, Speech, and Signal Processing 29 (1981).
double kernel(double x) {
    const double d = std::abs(x);
    if (d < 1.0) return (1.5 * d - 2.5) * d * d + 1.0;
    if (d < kReach) return ((-0.5 * d + 2.5) * d - 4.0) * d + 2.0;
    return 0.0;
}

/// The pixel that shows at a place of an endless row of mirror images.
std::int64_t mirrored(std::int64_t place, std::int64_t size) {
    const std::int64_t within = ((place % (2 * size)) + 2 * size) % (2 * size);
    return within < size ? within : 2 * size - 1 - within;
}

/// What makes one target pixel along an axis: source pixels `first`, `first` + 1, ... by their weights,
/// which sum to 1.
struct Mix {
    std::size_t first = 0;
    std::vector<double> weights;
};

Mix mixOf(int d, int targetSize, int sourceSize) {
    const double ratio = static_cast<double>(sourceSize) / targetSize;
    const double widening = std::max(ratio, 1.0);
    const double centre = (d + 0.5) * ratio - 0.5;
    const auto begin = static_cast<std::int64_t>(std::ceil(centre - kReach * widening));
    const auto end = static_cast<std::int64_t>(std::floor(centre + kReach * widening)) + 1;
    std::int64_t lowest = sourceSize;
    std::int64_t highest = 0;
    for (std::int64_t place = begin; place < end; ++place) {
        lowest = std::min(lowest, mirrored(place, sourceSize));
        highest = std::max(highest, mirrored(place, sourceSize));
    }
    Mix mix;
    mix.first = static_cast<std::size_t>(lowest);
    mix.weights.assign(static_cast<std::size_t>(highest - lowest + 1), 0.0);
    double sum = 0.0;
    for (std::int64_t place = begin; place < end; ++place) {
        const double weight = kernel((static_cast<double>(place) - centre) / widening);
        mix.weights[static_cast<std::size_t>(mirrored(place, sourceSize)) - mix.first] += weight;
        sum += weight;
    }
    for (double& weight : mix.weights) weight /= sum;
    return mix;
}

/// Three channels a pixel.
using Line = std::vector<double>;

/// Some of the target's columns, and the source columns that make them.
struct ColumnBlock {
    int first = 0;
    std::vector<Mix> mixes;
    std::size_t sourceBegin = 0;
    std::size_t sourceEnd = 0;
};

ColumnBlock blockAt(int first, int targetWidth, int sourceWidth) {
    constexpr int kMostColumns = 4096;  // what bounds the memory of their weights
    ColumnBlock block;
    block.first = first;
    block.sourceBegin = static_cast<std::size_t>(sourceWidth);
    const int end = first + std::min(kMostColumns, targetWidth - first);
    for (int x = first; x < end; ++x) {
        const Mix& mix = block.mixes.emplace_back(mixOf(x, targetWidth, sourceWidth));
        block.sourceBegin = std::min(block.sourceBegin, mix.first);
        block.sourceEnd = std::max(block.sourceEnd, mix.first + mix.weights.size());
    }
    return block;
}

void addPixels(Line& sum, const std::uint8_t* pixels, double weight) {
    for (std::size_t i = 0; i < sum.size(); i += kChannels, pixels += kPixelBytes) {
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            sum[i + channel] += weight * pixels[channel];
        }
    }
}

/// Mixes the pixels of one line and writes them; `line` begins with the block's first source column.
void putBlock(std::uint8_t* pixels, const Line& line, const ColumnBlock& block) {
    for (const Mix& mix : block.mixes) {
        std::array<double, kChannels> sum{};
        const double* pixel = line.data() + (mix.first - block.sourceBegin) * kChannels;
        for (const double weight : mix.weights) {
            for (double& channel : sum) channel += weight * *pixel++;
        }
        for (const double channel : sum) *pixels++ = clampByte(static_cast<int>(std::floor(channel + 0.5)));
        *pixels++ = 0;
    }
}

}  // namespace

/// Lines are mixed before columns, so that no more than one mixed line is ever kept.
void scalePlainly(DeviceContext& target, const DeviceContext& source) {
    for (int x = 0; x < target.width();) {
        const ColumnBlock block = blockAt(x, target.width(), source.width());
        Line mixed((block.sourceEnd - block.sourceBegin) * kChannels);
        for (int y = 0; y < target.height(); ++y) {
            const Mix mix = mixOf(y, target.height(), source.height());
            std::ranges::fill(mixed, 0.0);
            int row = static_cast<int>(mix.first);
            for (const double weight : mix.weights) {
                addPixels(mixed, source.line(row++) + block.sourceBegin * kPixelBytes, weight);
            }
            putBlock(target.line(y) + std::ptrdiff_t{x} * 4, mixed, block);
        }
        x += static_cast<int>(block.mixes.size());
    }
}

}  // namespace mobrel
