// SPDX-License-Identifier: MIT
// What changes the colours: pixels by themselves, pixels by their neighbours, rows.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

#include "imaging/CDIBb.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

struct Pixel {
    std::uint8_t b = 0;
    std::uint8_t g = 0;
    std::uint8_t r = 0;

    int sum() const { return r + g + b; }
    Color color() const { return static_cast<Color>(r | g << 8 | b << 16); }
};

constexpr std::size_t kPixelBytes = 3;

Pixel greyPixel(std::int32_t value) {
    const std::uint8_t grey = toByte(value);
    return {grey, grey, grey};
}

/// Bytes behind the end read as 0.
Pixel pixelAt(std::span<const std::uint8_t> memory, std::size_t at) {
    const auto byteAt = [&](std::size_t i) { return i < memory.size() ? memory[i] : std::uint8_t{0}; };
    return {byteAt(at), byteAt(at + 1), byteAt(at + 2)};
}

/// Bytes behind the end are not written.
void setPixelAt(std::span<std::uint8_t> memory, std::size_t at, Pixel pixel) {
    const std::uint8_t components[] = {pixel.b, pixel.g, pixel.r};
    std::copy_n(components, std::min(kPixelBytes, memory.size() - at), memory.data() + at);
}

/// The flat walk: each pixel becomes rule(pixel, place of its first byte). The last one may be cut.
template <typename Rule>
void forFlatPixels(std::span<std::uint8_t> memory, Rule rule) {
    for (std::size_t at = 0; at + 2 <= memory.size(); at += kPixelBytes) {
        setPixelAt(memory, at, rule(pixelAt(memory, at), at));
    }
}

/// The same for a rule that looks at the pixel alone.
template <typename Rule>
void forEachPixel(std::span<std::uint8_t> memory, Rule rule) {
    forFlatPixels(memory, [&](Pixel pixel, std::size_t) { return rule(pixel); });
}

/// Adds to a component, limited to a byte. A shift of 255 already limits every component.
std::uint8_t shifted(std::uint8_t component, int shift) {
    return clampByte(component + std::clamp(shift, -255, 255));
}

/// The parts of a brightness, 0 to 765, that light up one after the other.
struct Glow {
    explicit Glow(int s) : first(clampByte(s)), second(clampByte(s - 255)), third(clampByte(s - 510)) {}

    std::uint8_t first;
    std::uint8_t second;
    std::uint8_t third;
};

/// Adds a row's bytes to the sums, `sign` times.
void addRow(std::vector<std::int64_t>& sums, const std::uint8_t* row, int sign) {
    for (std::int64_t& sum : sums) sum += sign * *row++;
}

/// Writes the means of a row from the sums of its columns over `rows` rows.
void blurRow(const std::vector<std::int64_t>& sums, std::uint8_t* to, int width, int radius, int rows) {
    for (std::size_t channel = 0; channel < kPixelBytes; ++channel) {
        const auto column = [&](int x) { return static_cast<std::size_t>(x) * kPixelBytes + channel; };
        std::int64_t sum = 0;
        for (int x = 0; x < std::min(radius, width); ++x) sum += sums[column(x)];
        for (int x = 0; x < width; ++x) {
            if (x + radius < width) sum += sums[column(x + radius)];
            if (x - radius > 0) sum -= sums[column(x - radius - 1)];
            const int columns = std::min(x + radius, width - 1) - std::max(x - radius, 0) + 1;
            to[column(x)] = toByte(static_cast<std::int32_t>(sum / (std::int64_t{columns} * rows)));
        }
    }
}

}  // namespace

void CDIBb::ShiftColors(int R, int G, int B) {
    forEachPixel(bytes(), [=](Pixel p) { return Pixel{shifted(p.b, B), shifted(p.g, G), shifted(p.r, R)}; });
}

void CDIBb::ShiftColorsEx(int R, int G, int B, Color Except) {
    forEachPixel(bytes(), [=](Pixel p) {
        if (p.color() == Except) return p;
        return Pixel{shifted(p.b, B), shifted(p.g, G), shifted(p.r, R)};
    });
}

void CDIBb::ExchangeRGB(int Mode) {
    switch (Mode) {
        case 1:
            return forEachPixel(bytes(), [](Pixel p) { return Pixel{p.g, p.r, p.b}; });
        case 2:
            return forEachPixel(bytes(), [](Pixel p) { return Pixel{p.r, p.b, p.g}; });
        case 3:
            return forEachPixel(bytes(), [](Pixel p) { return Pixel{p.r, p.g, p.b}; });
        default:
            return;
    }
}

void CDIBb::MakeEmboss(int Level, bool Diagonal, bool Grey) {
    const std::span<std::uint8_t> memory = bytes();
    const std::size_t offset = (Diagonal ? rowBytes() : 0) + kPixelBytes;
    const int level = std::clamp(Level, -511, 511);  // no difference is beyond 255
    std::uint8_t clamped = 0;
    const auto emboss = [&](std::uint8_t component, std::uint8_t other) {
        clamp(component - other + level, clamped);
        return clamped;
    };
    forFlatPixels(memory, [&](Pixel p, std::size_t at) {
        const Pixel other = pixelAt(memory, at + offset);
        const Pixel embossed{emboss(p.b, other.b), emboss(p.g, other.g), emboss(p.r, other.r)};
        return Grey ? greyPixel(embossed.sum() / 3) : embossed;
    });
}

void CDIBb::Greyscale() {
    forEachPixel(bytes(), [](Pixel p) { return greyPixel(p.sum() / 3); });
}

void CDIBb::Brightness(int Level) {
    ShiftColors(Level, Level, Level);
}

void CDIBb::InvertColors() {
    forEachPixel(bytes(), [](Pixel p) {
        return Pixel{toByte(255 - p.b), toByte(255 - p.g), toByte(255 - p.r)};
    });
}

void CDIBb::FilterOutColors(bool R, bool G, bool B) {
    ShiftColors(R ? 0 : -255, G ? 0 : -255, B ? 0 : -255);
}

void CDIBb::ScanLines(int Percent) {
    if (Percent <= 0 || bytes().empty()) return;
    const int step = std::max(roundInt(100.0 / Percent), 1);
    for (int row = 0; row < m_height; row += step)
        std::fill_n(m_section.row(row), rowBytes(), std::uint8_t{0});
}

void CDIBb::clamp(std::int32_t value, std::uint8_t& destination) noexcept {
    if (value >= 0) destination = clampByte(value);
}

void CDIBb::Monochrome(int Threshold) {
    forEachPixel(bytes(), [=](Pixel p) { return greyPixel(p.sum() / 3 < Threshold ? 0 : 255); });
}

void CDIBb::DynamicBlur(int Radius) {
    const std::span<std::uint8_t> memory = bytes();
    if (Radius < 1 || memory.empty()) return;
    const int radius = std::min(Radius, std::max(m_width, m_height));
    const std::vector<std::uint8_t> unchanged(memory.begin(), memory.end());
    const auto unchangedRow = [&](int row) {
        return unchanged.data() + static_cast<std::size_t>(row) * rowBytes();
    };

    std::vector<std::int64_t> sums(static_cast<std::size_t>(m_width) * kPixelBytes);
    for (int row = 0; row < std::min(radius, m_height); ++row) addRow(sums, unchangedRow(row), 1);
    for (int row = 0; row < m_height; ++row) {
        if (row + radius < m_height) addRow(sums, unchangedRow(row + radius), 1);
        if (row - radius > 0) addRow(sums, unchangedRow(row - radius - 1), -1);
        const int rows = std::min(row + radius, m_height - 1) - std::max(row - radius, 0) + 1;
        blurRow(sums, m_section.row(row), m_width, radius, rows);
    }
}

void CDIBb::FastBlur() {
    if (bytes().empty()) return;
    const std::size_t blurred = static_cast<std::size_t>(m_width - 1) * kPixelBytes;
    for (int row = 0; row < m_height; ++row) {
        std::uint8_t* byte = m_section.row(row);
        for (std::size_t i = 0; i < blurred; ++i) byte[i] = toByte((byte[i] + byte[i + kPixelBytes]) / 2);
    }
}

void CDIBb::AlphaBlend(const DeviceContext& Source, int Alpha) {
    // On the lent target, so that this surface's own target can be the source.
    DeviceContext* target = hdc();
    if (target == nullptr) return;
    const int alpha = clampByte(Alpha);
    const int width = std::min(m_width, Source.width());
    for (int y = 0; y < std::min(m_height, Source.height()); ++y) {
        const std::uint8_t* from = Source.line(y);
        std::uint8_t* to = target->line(y);
        for (int x = 0; x < width; ++x, from += 4, to += 4) {
            for (std::size_t i = 0; i < kPixelBytes; ++i) {
                to[i] = toByte((to[i] * (255 - alpha) + from[i] * alpha) / 255);
            }
        }
    }
}

void CDIBb::Sharpen() {
    const std::span<std::uint8_t> memory = bytes();
    std::uint8_t clamped = 0;
    const auto sharpen = [&](std::uint8_t component, std::uint8_t next) {
        clamp(2 * component - next, clamped);
        return clamped;
    };
    forFlatPixels(memory, [&](Pixel p, std::size_t at) {
        const Pixel next = pixelAt(memory, at + kPixelBytes);
        return Pixel{sharpen(p.b, next.b), sharpen(p.g, next.g), sharpen(p.r, next.r)};
    });
}

void CDIBb::Flame() {
    forEachPixel(bytes(), [](Pixel p) {
        const Glow glow(p.sum());
        return Pixel{glow.third, glow.second, glow.first};
    });
}

void CDIBb::Freeze() {
    forEachPixel(bytes(), [](Pixel p) {
        const Glow glow(p.sum());
        return Pixel{glow.first, glow.second, glow.third};
    });
}

void CDIBb::Brown() {
    const auto product = [](std::uint8_t a, std::uint8_t b) { return toByte(roundInt(a * b / 256.0)); };
    forEachPixel(bytes(), [&](Pixel p) {
        p.r = product(p.g, p.b);
        p.g = product(p.r, p.b);
        p.b = product(p.r, p.g);
        return p;
    });
}

void CDIBb::Aqua() {
    const auto difference = [](int a, int b) { return clampByte((a - b) * (a - b) / 128); };
    forEachPixel(bytes(), [&](Pixel p) {
        return Pixel{difference(p.r, p.g), difference(p.r, p.b), difference(p.g, p.b)};
    });
}

void CDIBb::NightShade() {
    forEachPixel(bytes(), [](Pixel p) {
        p.r = toByte(std::abs(p.r - 64));
        p.g = p.b = toByte(std::abs(p.r - 64));
        return p;
    });
}

void CDIBb::PurpleStain() {
    forEachPixel(bytes(), [](Pixel p) {
        p.r = clampByte(p.r / 2 + p.g);
        p.g = clampByte(p.g / 2 + p.b);
        p.b = clampByte(p.b / 2 + p.r);
        return p;
    });
}

void CDIBb::Spooky() {
    forEachPixel(bytes(), [](Pixel p) {
        return Pixel{clampByte(p.b / 2 + p.r), clampByte(p.g / 2 + p.r), p.r};
    });
}

void CDIBb::Psycho() {
    const auto wild = [](int component, int others) {
        return clampByte(roundInt(std::abs(1.2 * others - 1.4 * component)));
    };
    forEachPixel(bytes(), [&](Pixel p) {
        return Pixel{wild(p.b, p.g + p.r), wild(p.g, p.b + p.r), wild(p.r, p.b + p.g)};
    });
}

}  // namespace mobrel
