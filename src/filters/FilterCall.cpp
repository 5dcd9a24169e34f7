// SPDX-License-Identifier: MIT
#include "filters/FilterCall.hpp"

#include "platform/base/RuntimeError.hpp"

namespace mobrel {

namespace {

std::int32_t integer(double value) {
    return static_cast<std::int32_t>(value);
}
float real(double value) {
    return static_cast<float>(value);
}
std::uint32_t color(double value) {
    return static_cast<std::uint32_t>(value);
}

const cDIB& textureOf(const FilterValues& values) {
    if (values.texture == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
    return *values.texture;
}

}  // namespace

void callFilter(int slot, cDIBFilter& filter, cDIB& DIB, const FilterValues& values) {
    const auto& v = values.values;
    switch (slot) {
        case 1:
            return filter.Blur(DIB, integer(v[0]));
        case 2:
            return filter.Contour(DIB);
        case 3:
            return filter.Contrast(DIB, integer(v[0]));
        case 4:
            return filter.Colorize(DIB, real(v[0]), real(v[1]), real(v[2]));
        case 5:
            return filter.Despeckle(DIB);
        case 6:
            return filter.DespeckleMore(DIB);
        case 7:
            return filter.Diffuse(DIB, integer(v[0]), integer(v[1]), integer(v[2]));
        case 8:
            return filter.Emboss(DIB, integer(v[0]), v[1] != 0);
        case 9:
            return filter.Engrave(DIB, integer(v[0]), v[1] != 0);
        case 10:
            return filter.Greys(DIB);
        case 11:
            return filter.Negative(DIB);
        case 12:
            return filter.Noise(DIB, integer(v[0]), integer(v[1]));
        case 13:
            return filter.Outline(DIB, integer(v[0]), integer(v[1]));
        case 14:
            return filter.Pixelize(DIB, integer(v[0]));
        case 15:
            return filter.RankFilterMaximum(DIB);
        case 16:
            return filter.RankFilterMinimum(DIB);
        case 17:
            return filter.Relieve(DIB, integer(v[0]));
        case 18:
            return filter.ReplaceHS(DIB, color(v[0]), color(v[1]), integer(v[2]), integer(v[3]),
                                    integer(v[4]));
        case 19:
            return filter.ReplaceL(DIB, color(v[0]), color(v[1]), integer(v[2]), integer(v[3]));
        case 20:
            return filter.SaltAndPepperRemoval(DIB, integer(v[0]));
        case 21:
            return filter.Saturation(DIB, integer(v[0]));
        case 22:
            return filter.ScanLines(DIB, integer(v[0]), integer(v[1]));
        case 23:
            return filter.Sharpen(DIB, integer(v[0]));
        case 24:
            return filter.Shift(DIB, color(v[0]), integer(v[1]), integer(v[2]));
        case 25:
            return filter.ShiftRGB(DIB, integer(v[0]), integer(v[1]), integer(v[2]));
        case 26:
            return filter.Soften(DIB, integer(v[0]));
        case 27:
            return filter.Texturize(DIB, textureOf(values));
        default:
            throw RuntimeError(ErrorNumber::InvalidCall);
    }
}

}  // namespace mobrel
