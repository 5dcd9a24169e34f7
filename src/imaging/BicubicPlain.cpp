// SPDX-License-Identifier: MIT
#include "imaging/BicubicPlain.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Numbers.hpp"

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

/// A line of three channels a pixel.
using Line = std::vector<double>;

void addLine(Line& sum, const std::uint8_t* pixels, double weight) {
    const std::size_t width = sum.size() / kChannels;
    for (std::size_t x = 0; x < width; ++x) {
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            sum[x * kChannels + channel] += weight * pixels[x * kPixelBytes + channel];
        }
    }
}

void addLine(Line& sum, const Line& line, double weight) {
    for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += weight * line[i];
}

void scaleLine(Line& scaled, const Line& line, const std::vector<Mix>& columns) {
    double* out = scaled.data();
    for (const Mix& mix : columns) {
        std::array<double, kChannels> sum{};
        const double* pixel = line.data() + mix.first * kChannels;
        for (const double weight : mix.weights) {
            for (double& channel : sum) channel += weight * *pixel++;
        }
        out = std::ranges::copy(sum, out).out;
    }
}

void putLine(std::uint8_t* pixels, const Line& line) {
    for (std::size_t i = 0; i < line.size(); i += kChannels, pixels += kPixelBytes) {
        for (std::size_t channel = 0; channel < kChannels; ++channel) {
            pixels[channel] = clampByte(static_cast<int>(std::floor(line[i + channel] + 0.5)));
        }
        pixels[kChannels] = 0;
    }
}

Line blackLine(int width) {
    return Line(static_cast<std::size_t>(width) * kChannels);
}

/// Mixes the source's lines first, so that no more than one mixed line is ever kept.
void shrinkLines(DeviceContext& target, const DeviceContext& source, const std::vector<Mix>& columns) {
    Line mixed = blackLine(source.width());
    Line scaled = blackLine(target.width());
    for (int y = 0; y < target.height(); ++y) {
        const Mix mix = mixOf(y, target.height(), source.height());
        std::ranges::fill(mixed, 0.0);
        int row = static_cast<int>(mix.first);
        for (const double weight : mix.weights) addLine(mixed, source.line(row++), weight);
        scaleLine(scaled, mixed, columns);
        putLine(target.line(y), scaled);
    }
}

/// The source's lines scaled to the target's width, each once, the last few kept.
class ScaledLines {
 public:
    ScaledLines(const DeviceContext& source, const std::vector<Mix>& columns)
        : m_source(source), m_columns(columns), m_plain(blackLine(source.width())) {
        for (Line& line : m_kept) line.resize(columns.size() * kChannels);
        m_rows.fill(-1);
    }

    const Line& at(int row) {
        const std::size_t place = static_cast<std::size_t>(row) % kKept;
        if (m_rows[place] != row) {
            std::ranges::fill(m_plain, 0.0);
            addLine(m_plain, m_source.line(row), 1.0);
            scaleLine(m_kept[place], m_plain, m_columns);
            m_rows[place] = row;
        }
        return m_kept[place];
    }

 private:
    static constexpr std::size_t kKept = 8;  // the kernel of an enlargement meets five lines at most

    const DeviceContext& m_source;
    const std::vector<Mix>& m_columns;
    Line m_plain;
    std::array<Line, kKept> m_kept;
    std::array<int, kKept> m_rows{};
};

void enlargeLines(DeviceContext& target, const DeviceContext& source, const std::vector<Mix>& columns) {
    ScaledLines lines(source, columns);
    Line mixed = blackLine(target.width());
    for (int y = 0; y < target.height(); ++y) {
        const Mix mix = mixOf(y, target.height(), source.height());
        std::ranges::fill(mixed, 0.0);
        int row = static_cast<int>(mix.first);
        for (const double weight : mix.weights) addLine(mixed, lines.at(row++), weight);
        putLine(target.line(y), mixed);
    }
}

}  // namespace

void scalePlainly(DeviceContext& target, const DeviceContext& source) {
    std::vector<Mix> columns;
    columns.reserve(static_cast<std::size_t>(target.width()));
    for (int x = 0; x < target.width(); ++x) {
        columns.push_back(mixOf(x, target.width(), source.width()));
    }
    if (target.height() < source.height()) {
        shrinkLines(target, source, columns);
    } else {
        enlargeLines(target, source, columns);
    }
}

}  // namespace mobrel
