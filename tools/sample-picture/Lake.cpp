// SPDX-License-Identifier: MIT
#include "Lake.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "Shading.hpp"

namespace sample {

namespace {

// Places are measured in picture heights: x from the middle to the right, y from the top down.
constexpr double kHorizon = 0.60;
constexpr double kSunX = -0.30;
constexpr double kSunY = 0.425;
constexpr double kSunRadius = 0.052;

/// A point of the picture and the size of a pixel there, by which edges are softened.
struct Place {
    double x;
    double y;
    double pixel;

    /// 1 inside, 0 outside, in between for the pixel that the edge crosses.
    double cover(double inside) const { return clamp01(0.5 + inside / pixel); }
};

Rgb sky(const Place& at) {
    static constexpr std::array<Stop, 6> kStops = {{{0.00, rgb(0x141A48)},
                                                    {0.22, rgb(0x3B2F73)},
                                                    {0.38, rgb(0x96497F)},
                                                    {0.50, rgb(0xE2716B)},
                                                    {0.57, rgb(0xF9A65A)},
                                                    {0.62, rgb(0xFFD98C)}}};
    Rgb color = gradient(kStops, at.y);

    const double distance = std::sqrt(square(at.x - kSunX) + square(at.y - kSunY));
    const double wide = std::sqrt(square(at.x - kSunX) * 0.35 + square((at.y - kSunY) * 1.4));
    color = add(color, rgb(0xFFB060), 0.42 / (1 + square(wide / 0.16)));
    color = add(color, rgb(0xFFE0A0), 0.40 / (1 + square(distance / 0.07)));

    // bands of cloud, lit from below where they are near the sun
    const double body = clouds(at.x * 2.2 + 9, at.y * 13 + clouds(at.x * 3, at.y * 3, 70, 2) * 1.5, 40, 5);
    const double thick = smooth(0.52, 0.78, body) * smooth(0.02, 0.16, at.y) * (1 - smooth(0.46, 0.56, at.y));
    const double lit = smooth(0.10, 0.45, at.y) / (1 + square(wide / 0.45));
    color = mix(color, mix(rgb(0x4A3568), rgb(0xFFB47A), clamp01(lit * 1.25)), thick * 0.8);

    const double disc = at.cover(kSunRadius - distance);
    return mix(color, mix(rgb(0xFFFCF0), rgb(0xFFF0B4), smooth(-kSunRadius, kSunRadius, at.y - kSunY)), disc);
}

struct Ridge {
    double base;
    double height;
    double frequency;
    std::uint32_t seed;
    Rgb top;
    Rgb foot;
};

constexpr std::array<Ridge, 4> kRidges = {{{0.545, 0.150, 2.1, 11, rgb(0xB0607F), rgb(0xF0A070)},
                                           {0.568, 0.120, 3.0, 23, rgb(0x7D4376), rgb(0xC4726F)},
                                           {0.588, 0.095, 3.8, 37, rgb(0x4A2C62), rgb(0x7E4868)},
                                           {0.602, 0.052, 5.3, 53, rgb(0x221A40), rgb(0x3A2750)}}};

double ridgeLine(const Ridge& ridge, double x) {
    return ridge.base - ridge.height * square(clouds(x * ridge.frequency + 31, 0.5, ridge.seed, 6)) * 1.7;
}

/// Height of the firs above the ridge at x.
double firs(double x) {
    double height = 0;
    for (const double spacing : {0.0115, 0.0173}) {
        const double cell = std::floor(x / spacing);
        const auto tree = static_cast<std::int32_t>(cell);
        const double size = 0.010 + 0.024 * chance(tree, 3, 90);
        const double off = std::abs(x / spacing - cell - 0.5) * 2;
        const double present = noise(x * 5, 0, 91) > 0.42 ? 1 : 0;
        height = std::max(height, present * size * (1 - off * 1.15));
    }
    return height;
}

Rgb land(const Place& at, Rgb color) {
    for (const Ridge& ridge : kRidges) {
        double line = ridgeLine(ridge, at.x);
        if (&ridge == &kRidges.back()) line -= firs(at.x);
        const Rgb hill = mix(ridge.top, ridge.foot, smooth(ridge.base - ridge.height, kHorizon, at.y));
        const double grain = 1 + 0.10 * (clouds(at.x * 40, at.y * 90, ridge.seed, 2) - 0.5);
        color = mix(color, {hill.red * grain, hill.green * grain, hill.blue * grain},
                    at.cover((at.y - line) * 0.8));
    }
    return color;
}

struct Balloon {
    double x;
    double y;
    double radius;
    std::array<Rgb, 3> gores;
};

constexpr std::array<Balloon, 3> kBalloons = {
    {{0.30, 0.205, 0.105, {rgb(0xE8202C), rgb(0xFFC818), rgb(0xF07018)}},
     {0.535, 0.350, 0.052, {rgb(0x1290D8), rgb(0xF4F0E4), rgb(0x10B8A8)}},
     {-0.06, 0.335, 0.034, {rgb(0x38B040), rgb(0xF8E028), rgb(0x208848)}}}};

/// The coloured strips of the envelope, which look narrower toward the rim. The place goes from -1 to 1
/// across the balloon.
Rgb gores(const Balloon& b, const Place& seam) {
    // sines of the angles at which the strips meet
    static constexpr std::array<double, 7> kSeams = {-0.9239, -0.7071, -0.3827, 0, 0.3827, 0.7071, 0.9239};
    Rgb cloth = b.gores[0];
    for (std::size_t i = 0; i < kSeams.size(); ++i) {
        cloth = mix(cloth, b.gores[(i + 1) % b.gores.size()], seam.cover(seam.x - kSeams[i]));
    }
    return cloth;
}

Rgb balloon(const Place& at, const Balloon& b, Rgb color) {
    const double x = (at.x - b.x) / b.radius;
    const double y = (at.y - b.y) / b.radius;
    if (std::abs(x) > 1.1 || y < -1.1 || y > 2.1) return color;

    // a ball that narrows to a mouth below its middle
    const double narrow = y < 0 ? std::sqrt(std::max(0.0, 1 - y * y)) : 1 - 0.72 * square(y / 1.25);
    const double envelope =
        y < 1.25 ? (y < 0 ? 1 - std::sqrt(x * x + y * y) : (narrow - std::abs(x)) * 0.8) : -1;
    const double inside = std::min(envelope, (1.25 - y)) * b.radius;
    const double cover = at.cover(inside);
    if (cover > 0) {
        const double across = std::clamp(x / std::max(narrow, 0.05), -1.0, 1.0);
        const double light = 0.50 + 0.62 * smooth(0.9, -0.9, across) * (0.75 + 0.25 * smooth(-1, 0.8, y));
        const Place seam = {across, 0, at.pixel / (b.radius * std::max(narrow, 0.05))};
        const Rgb cloth = gores(b, seam);
        color = mix(color, {cloth.red * light, cloth.green * light * 0.97, cloth.blue * light * 0.95}, cover);
    }
    const double basket = std::min(0.15 - std::abs(x), 0.13 - std::abs(y - 1.68)) * b.radius;
    color = mix(color, rgb(0x5A3018), at.cover(basket));
    const double rope = std::abs(std::abs(x) - (0.27 - 0.13 * smooth(1.25, 1.56, y)));
    if (y > 1.2 && y < 1.58)
        color = mix(color, rgb(0x2C1C20), 0.8 * at.cover(0.016 * b.radius - rope * b.radius));
    return color;
}

struct Boat {
    double x;
    double waterline;
    double size;
    Rgb mainsail;
    Rgb jib;
};

constexpr std::array<Boat, 3> kBoats = {{{0.43, 0.715, 0.165, rgb(0xF03A20), rgb(0xFFD23A)},
                                         {0.07, 0.655, 0.078, rgb(0xF6F2E6), rgb(0x18A8D8)},
                                         {-0.47, 0.640, 0.055, rgb(0xFFB020), rgb(0xE83060)}}};

/// Inside distance of the triangle with a mast side at x = edge, its foot at y = 0 and its top at -1.
double sail(double x, double y, double edge, double foot) {
    const double side = foot > edge ? 1 : -1;
    const double width = std::abs(foot - edge);
    const double along = (x - edge) * side;
    const double belly = 0.10 * (1 + y) * -y;
    return std::min({along, -y, (width * (1 + y) - along) / std::sqrt(1 + width * width) + belly});
}

/// The boat, upright above its waterline; mirrored below it when `y` counts downwards from there.
Rgb boat(const Place& at, const Boat& b, double y, Rgb color) {
    const double x = (at.x - b.x) / b.size;
    if (std::abs(x) > 0.8 || y > 0.08 || y < -1.2) return color;
    const double fold =
        0.86 + 0.14 * smooth(-0.5, 0.5, x) + 0.05 * (std::floor((y + 2) * 7) - (y + 2) * 7 + 0.5);

    const Rgb m = {b.mainsail.red * fold, b.mainsail.green * fold, b.mainsail.blue * fold};
    color = mix(color, m, at.cover(sail(x, (y + 0.12) / 0.98, 0.02, 0.52) * b.size));
    color = mix(color, b.jib, at.cover(sail(x, (y + 0.12) / 0.80, -0.02, -0.36) * b.size));
    color =
        mix(color, rgb(0x30202C), at.cover((0.014 - std::abs(x)) * b.size) * (y > -1.12 && y < 0 ? 1 : 0));

    const double hull = std::min({y + 0.10, 0.045 - y, 0.50 - std::abs(x) - (y + 0.10) * 1.1});
    const Rgb wood = mix(rgb(0x74402A), rgb(0x2A1620), smooth(-0.10, 0.05, y));
    color = mix(color, wood, at.cover(hull * b.size));
    return mix(color, rgb(0xF2E4C8), at.cover(std::min(hull, 0.016 - std::abs(y + 0.084)) * b.size));
}

Rgb aboveWater(const Place& at) {
    Rgb color = sky(at);
    for (const Balloon& b : kBalloons) color = balloon(at, b, color);
    return land(at, color);
}

Rgb water(const Place& at) {
    const double depth = at.y - kHorizon;
    const double far = 0.020 + depth;  // ripples grow toward the viewer
    const double ripple = clouds(at.x / (far * 1.9) + 3, 1.15 / far, 60, 3) - 0.5;
    const double chop = noise(at.x / (far * 0.5), 4.6 / far, 66) - 0.5;
    const double sway = ripple * (0.016 + depth * 0.16);

    const Place mirrored = {
        at.x + sway, std::max(0.0, kHorizon - depth * 1.32 + sway * 0.9 + chop * depth * 0.05), at.pixel};
    const Rgb reflected = aboveWater(mirrored);
    const double bright = 0.80 - depth * 0.75 + ripple * 0.34 + chop * 0.20;
    Rgb color = mix({reflected.red * bright, reflected.green * bright * 0.97, reflected.blue * bright * 1.04},
                    rgb(0x16204E), 0.10 + clamp01(depth * 1.1));

    // the sun's road: broken glints that widen toward the viewer
    const double road = 1 / (1 + square(square((at.x - kSunX + sway) / (0.035 + depth * 0.42))));
    const double glint = smooth(0.50, 0.70, clouds(at.x / (far * 0.55), 5.2 / far, 80, 2) + road * 0.10);
    color = add(color, rgb(0xFFC878), road * (0.26 + 0.62 * glint) * (1 - depth * 1.25));

    for (const Boat& b : kBoats) {
        const double below = (at.y - b.waterline) / b.size;
        if (below < 0) continue;
        const Place shaken = {at.x + sway * 0.7, at.y, at.pixel * 1.6};
        const Rgb image = boat(shaken, b, 0.03 - below * 1.1, color);
        color = mix(color, image, 0.55 * (1 - 0.6 * clamp01(below)));
    }
    return color;
}

/// Reeds and a bank in front of the lower left corner.
Rgb foreground(const Place& at, double left, Rgb color) {
    const double x = at.x - left;
    const double bank = 0.985 - 0.16 * square(1 - smooth(0, 0.62, x)) + 0.02 * clouds(x * 9, 1, 120, 3);
    color = mix(color, mix(rgb(0x1C1630), rgb(0x080816), smooth(0.88, 1.0, at.y)), at.cover(at.y - bank));
    if (x > 0.62 || at.y < 0.55) return color;
    for (int stem = 0; stem < 26; ++stem) {
        const double root = 0.012 + 0.56 * square(chance(stem, 1, 130));
        const double top = 0.975 - (0.14 + 0.17 * chance(stem, 2, 130)) * (1 - root);
        if (at.y < top - 0.03) continue;
        const double lean = (chance(stem, 3, 130) - 0.35) * 0.45;
        const double off = std::abs(x - root - lean * square(0.98 - at.y) * 2.2);
        const double width = 0.0022 * smooth(top, 0.98, at.y) + 0.0006;
        double inside = std::min(width - off, at.y - top);
        if (stem % 3 == 0) {  // some carry a head
            inside = std::max(
                inside, 0.006 * std::sqrt(std::max(0.0, 1 - square((at.y - top - 0.012) / 0.026))) - off);
        }
        color = mix(color, stem % 3 == 0 ? rgb(0x2A1A24) : rgb(0x14142C), at.cover(inside));
    }
    return color;
}

/// Grain of film over everything, and here and there a speck of dust.
Rgb film(int x, int y, Rgb color) {
    const double grain = (chance(x, y, 200) + chance(x, y, 201) + chance(x, y, 202) - 1.5) * 8;
    color = add(color, {grain, grain, grain}, 1);
    const double dust = chance(x, y, 203);
    if (dust < 0.0007) return mix(color, rgb(0xFFFFFF), 0.55);
    if (dust > 0.9993) return mix(color, rgb(0x000000), 0.50);
    return color;
}

Rgb pointAt(int x, int y, int width, int height) {
    const double scale = 1.0 / height;
    const Place at = {(x + 0.5 - width * 0.5) * scale, (y + 0.5) * scale, scale};
    Rgb color = at.y < kHorizon ? aboveWater(at) : water(at);
    for (auto b = kBoats.rbegin(); b != kBoats.rend(); ++b) {
        color = boat(at, *b, (at.y - b->waterline) / b->size, color);
    }
    color = foreground(at, -width * 0.5 * scale, color);
    return film(x, y, color);
}

std::uint8_t channel(double value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 255.0)));
}

}  // namespace

void paintLake(mobrel::cDIB& picture) {
    const int width = picture.Width();
    const int height = picture.Height();
    std::uint8_t* pixel = picture.DIBitsPtr();
    for (int row = 0; row < height; ++row) {
        for (int x = 0; x < width; ++x, pixel += 4) {
            const Rgb color = pointAt(x, height - 1 - row, width, height);
            pixel[0] = channel(color.blue);
            pixel[1] = channel(color.green);
            pixel[2] = channel(color.red);
        }
    }
}

}  // namespace sample
