// SPDX-License-Identifier: MIT
#include "filters/cDIBFilter.hpp"

#include <array>

#include "filters/FilterFrame.hpp"
#include "filters/kernels/point.hpp"
#include "filters/kernels/rank.hpp"
#include "filters/kernels/select.hpp"
#include "platform/Numbers.hpp"

namespace mobrel {

namespace {

/// A percentage as the factor 1 per hundred, stored as a float.
float factor(std::int32_t percent) {
    return static_cast<float>(percent / 100.0);
}

kernels::ByteTable shiftTable(std::int32_t increment) {
    kernels::ByteTable table{};
    for (int i = 0; i < 256; ++i) table[static_cast<std::size_t>(i)] = clampByte(wrapAdd(i, increment));
    return table;
}

}  // namespace

/// A filter of one pass over every row, each row from itself alone.
template <typename RowWork>
void cDIBFilter::runInPlace(cDIB& DIB, RowWork rowWork) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    frame.onePass(0, frame.height(), [&](int y) { rowWork(frame.row(y), frame.width()); });
    frame.finish();
}

void cDIBFilter::Contrast(cDIB& DIB, std::int32_t Level) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const int width = frame.width();
    const int height = frame.height();

    std::int32_t sum = 0;
    frame.sharedPass(0.5F, 0, height,
                     [&](int y) { sum = wrapAdd(sum, kernels::plainGreySum(frame.row(y), width)); });
    const std::int32_t mean = div(sum, width * height);

    const double f = factor(wrapAdd(Level, 100));
    kernels::IntTable table{};
    for (int i = 0; i < 256; ++i) table[static_cast<std::size_t>(i)] = roundInt(f * (i - mean) + mean);
    frame.sharedPass(0.5F, 0, height, [&](int y) { kernels::contrastRow(frame.row(y), width, table); });
    frame.finish();
}

void cDIBFilter::Colorize(cDIB& DIB, float Hue, float Saturation, float Luminosity) {
    runInPlace(DIB, [table = kernels::ColorizeTable(Hue, Saturation, Luminosity)](
                        std::uint8_t* row, int width) { kernels::colorizeRow(row, width, table); });
}

void cDIBFilter::Despeckle(cDIB& DIB) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const int inner = frame.width() - 2;
    // The two neighbours of each pass, as columns and rows beside the pixel.
    struct Step {
        int x;
        int y;
    };
    struct Direction {
        Step a;
        Step b;
    };
    constexpr std::array<Direction, 4> kDirections = {{
        {{0, -1}, {0, 1}},
        {{-1, 0}, {1, 0}},
        {{-1, -1}, {1, 1}},
        {{-1, 1}, {1, -1}},
    }};
    for (const auto& [a, b] : kDirections) {
        frame.sharedPass(0.25F, 1, frame.height() - 1, [&](int y) {
            kernels::despeckleRow(frame.row(y) + 4, frame.row(y + a.y) + 4 + a.x * 4,
                                  frame.row(y + b.y) + 4 + b.x * 4, inner);
        });
    }
    frame.finish();
}

void cDIBFilter::Greys(cDIB& DIB) {
    runInPlace(DIB, kernels::greysRow);
}

void cDIBFilter::Negative(cDIB& DIB) {
    runInPlace(DIB, kernels::negativeRow);
}

void cDIBFilter::Saturation(cDIB& DIB, std::int32_t Level) {
    runInPlace(DIB,
               [f = factor(Level)](std::uint8_t* row, int width) { kernels::saturationRow(row, width, f); });
}

void cDIBFilter::ShiftRGB(cDIB& DIB, std::int32_t RInc, std::int32_t GInc, std::int32_t BInc) {
    runInPlace(DIB, [TB = shiftTable(BInc), TG = shiftTable(GInc), TR = shiftTable(RInc)](
                        std::uint8_t* row, int width) { kernels::tableRow(row, width, TB, TG, TR); });
}

}  // namespace mobrel
