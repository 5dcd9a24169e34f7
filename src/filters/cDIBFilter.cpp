// SPDX-License-Identifier: MIT
#include "filters/cDIBFilter.hpp"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

#include "filters/FilterFrame.hpp"
#include "filters/NearRows.hpp"
#include "filters/kernels/colour_replacement.hpp"
#include "filters/kernels/contrast.hpp"
#include "filters/kernels/convolution.hpp"
#include "filters/kernels/despeckle.hpp"
#include "filters/kernels/diffuse_noise.hpp"
#include "filters/kernels/edges.hpp"
#include "filters/kernels/pixelize.hpp"
#include "filters/kernels/point.hpp"
#include "filters/kernels/rank.hpp"
#include "filters/kernels/relief.hpp"
#include "filters/kernels/salt_and_pepper.hpp"
#include "filters/kernels/texture.hpp"
#include "imaging/grey_vectors.hpp"
#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

/// A percentage as the factor 1 per hundred, stored as a float.
float factor(std::int32_t percent) {
    return static_cast<float>(percent / 100.0);
}

/// A table of 256 bytes, entry i being rule(i).
template <typename Rule>
kernels::ByteTable byteTable(Rule rule) {
    kernels::ByteTable table{};
    for (int i = 0; i < 256; ++i) table[static_cast<std::size_t>(i)] = rule(i);
    return table;
}

/// The sum of the plain greys (R + G + B) div 3 of a row; wraps at 32 bits.
std::int32_t plainGreySum(const std::uint8_t* row, int width) {
    return static_cast<std::int32_t>(sumOfPlainGreys(row, static_cast<std::size_t>(width)));
}

kernels::ByteTable shiftTable(std::int32_t increment) {
    return byteTable([=](int i) { return clampByte(wrapAdd(i, increment)); });
}

}  // namespace

/// One pass over every row, each row from itself alone.
template <typename RowWork>
void cDIBFilter::runInPlace(cDIB& DIB, RowWork rowWork) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    frame.onePass(0, frame.height(), [&](int y) { rowWork(frame.row(y), frame.width()); });
    frame.finish();
}

/// One pass over the inner rows, each from the three unchanged rows around it.
template <typename RowWork>
void cDIBFilter::runOnInnerRows(cDIB& DIB, RowWork rowWork) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    UnchangedRows rows(frame);
    frame.onePass(1, frame.height() - 1,
                  [&](int y) { rowWork(rows.around(y), frame.row(y), frame.width()); });
    frame.finish();
}

/// Four passes over the inner pixels, in place, each with the two neighbours of one direction. A pass reads
/// the row below as it has left it and the row above as the pass before has, so one follows the other.
template <typename MoveRow, typename MoveAlong>
void cDIBFilter::runInFourDirections(cDIB& DIB, MoveRow moveRow, MoveAlong moveAlong) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const auto columns = static_cast<std::size_t>(std::max(frame.width() - 2, 0));
    const auto passTowards = [&](int dx, int dy) {
        return [&, dx, dy](int y) {
            std::uint8_t* row = frame.row(y) + 4;
            moveRow(row, frame.row(y + dy) + 4 + dx * 4, frame.row(y - dy) + 4 - dx * 4, columns);
        };
    };
    for (RowBands bands(1, frame.height() - 1); !bands.areDone(); bands.advance()) {
        frame.sharedPass(0.25F, bands.first(0), bands.end(0), passTowards(0, -1));
        const auto rows = static_cast<std::size_t>(bands.end(1) - bands.first(1));
        moveAlong({frame.row(bands.first(1)) + 4, frame.rowBytes(), rows, columns});
        frame.sharedPass(0.25F, bands.first(1), bands.end(1), [](int) {});
        frame.sharedPass(0.25F, bands.first(2), bands.end(2), passTowards(-1, -1));
        frame.sharedPass(0.25F, bands.first(3), bands.end(3), passTowards(-1, 1));
    }
    frame.finish();
}

void cDIBFilter::Blur(cDIB& DIB, std::int32_t Level) {
    runOnInnerRows(DIB, [w = wrapSub(101, Level)](kernels::Rows3 S, std::uint8_t* D, int width) {
        kernels::blurRow(S, D, width, w);
    });
}

void cDIBFilter::Contour(cDIB& DIB) {
    runOnInnerRows(DIB, kernels::contourRow);
}

void cDIBFilter::Contrast(cDIB& DIB, std::int32_t Level) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const int width = frame.width();
    const int height = frame.height();

    std::int32_t sum = 0;
    frame.sharedPass(0.5F, 0, height, [&](int y) { sum = wrapAdd(sum, plainGreySum(frame.row(y), width)); });
    const std::int32_t mean = div(sum, width * height);

    const kernels::ContrastTable table(factor(wrapAdd(Level, 100)), mean);
    frame.sharedPass(0.5F, 0, height, [&](int y) { table.run(frame.row(y), width); });
    frame.finish();
}

void cDIBFilter::Colorize(cDIB& DIB, float Hue, float Saturation, float Luminosity) {
    runInPlace(DIB, [table = kernels::ColorizeTable(Hue, Saturation, Luminosity)](
                        std::uint8_t* row, int width) { kernels::colorizeRow(row, width, table); });
}

void cDIBFilter::Despeckle(cDIB& DIB) {
    runInFourDirections(DIB, kernels::despeckleRow, kernels::despeckleAlong);
}

void cDIBFilter::DespeckleMore(cDIB& DIB) {
    runInFourDirections(DIB, kernels::despeckleMoreRow, kernels::despeckleMoreAlong);
}

void cDIBFilter::Diffuse(cDIB& DIB, std::int32_t xRange, std::int32_t yRange, std::int32_t DiffuseStep) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    NearRows rows(frame, yRange);
    const std::int32_t step = DiffuseStep < 1 ? 1 : DiffuseStep;
    const auto work = [&](int y) {
        kernels::diffuseRow(rows.around(y), y, frame.row(y), {xRange, yRange}, step, m_random);
    };
    frame.onePass(0, frame.height(), work, step);
    frame.finish();
}

void cDIBFilter::Emboss(cDIB& DIB, std::int32_t Level, bool ConnectMargins) {
    runRelief(DIB, factor(Level), ConnectMargins);
}

void cDIBFilter::Engrave(cDIB& DIB, std::int32_t Level, bool ConnectMargins) {
    runRelief(DIB, -factor(Level), ConnectMargins);
}

/// Relief and grey in one sweep: the row above is not changed yet, and of the changed rows only the
/// first is asked for again. kept: the last row takes the first as the one above it even where the
/// margins are not connected.
void cDIBFilter::runRelief(cDIB& DIB, float strength, bool ConnectMargins) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const int reliefWidth = ConnectMargins ? frame.width() : frame.width() - 1;
    const int reliefHeight = ConnectMargins ? frame.height() : frame.height() - 1;
    const std::vector<std::uint8_t> firstRow(frame.row(0), frame.row(0) + frame.rowBytes());
    for (int y = 0; y < frame.height(); ++y) {
        std::uint8_t* row = frame.row(y);
        if (y < reliefHeight) {
            const std::uint8_t* above = y == reliefHeight - 1 ? firstRow.data() : frame.row(y + 1);
            kernels::embossRow(row, above, row, reliefWidth, strength);
            frame.advance(0.5F);
        }
        kernels::reliefGreysRow(row, frame.width());
        frame.advance(0.5F);
    }
    frame.finish();
}

void cDIBFilter::Greys(cDIB& DIB) {
    runInPlace(DIB, kernels::greysRow);
}

void cDIBFilter::Negative(cDIB& DIB) {
    runInPlace(DIB, kernels::negativeRow);
}

void cDIBFilter::Noise(cDIB& DIB, std::int32_t Level, std::int32_t xyStep) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const auto work = [&](int y) { kernels::noiseRow(frame.row(y), frame.width(), Level, xyStep, m_random); };
    frame.onePass(0, frame.height(), work, xyStep);
    frame.finish();
}

/// Mean and edge in one sweep, since both read the unchanged picture.
void cDIBFilter::Outline(cDIB& DIB, std::int32_t Level, std::int32_t Shift) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    UnchangedRows rows(frame);
    const auto k = static_cast<float>(wrapSub(0, Level) / 50.0);
    for (int y = 1; y < frame.height() - 1; ++y) {
        kernels::outlineRow(rows.around(y), frame.row(y), frame.width(), k, Shift);
        frame.advance(0.5F);
        frame.advance(0.5F);
    }
    frame.finish();
}

/// A band of blocks has its means made before its first row is written.
void cDIBFilter::Pixelize(cDIB& DIB, std::int32_t PixelSize) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    kernels::BlockBand blocks(frame.width(), PixelSize);
    frame.onePass(0, frame.height(), [&](int y) {
        if (y == div(y, PixelSize) * PixelSize) {
            const int rows = std::min(PixelSize, frame.height() - y);
            blocks.measure({frame.row(y), frame.width(), rows});
        }
        blocks.lay(frame.row(y));
    });
    frame.finish();
}

void cDIBFilter::RankFilterMaximum(cDIB& DIB) {
    runOnInnerRows(DIB, kernels::maximumRow);
}

void cDIBFilter::RankFilterMinimum(cDIB& DIB) {
    runOnInnerRows(DIB, kernels::minimumRow);
}

void cDIBFilter::Relieve(cDIB& DIB, std::int32_t Level) {
    const kernels::ReliefFactor factor(static_cast<float>(wrapSub(101, Level) / 10.0));
    runOnInnerRows(
        DIB, [&](kernels::Rows3 S, std::uint8_t* D, int width) { kernels::relieveRow(S, D, width, factor); });
}

void cDIBFilter::ReplaceHS(cDIB& DIB, std::uint32_t ColorFrom, std::uint32_t ColorTo, std::int32_t Tolerance,
                           std::int32_t HTolerance, std::int32_t STolerance) {
    if (DIB.hDIB() == nullptr) return;
    const kernels::HueSaturationReplacement replacement({ColorFrom, Tolerance}, ColorTo, HTolerance,
                                                        STolerance);
    runInPlace(DIB, [&](std::uint8_t* row, int width) { replacement.run(row, width); });
}

void cDIBFilter::ReplaceL(cDIB& DIB, std::uint32_t ColorFrom, std::uint32_t ColorTo, std::int32_t Tolerance,
                          std::int32_t LTolerance) {
    if (DIB.hDIB() == nullptr) return;
    const kernels::LuminosityReplacement replacement({ColorFrom, Tolerance}, ColorTo, LTolerance);
    runInPlace(DIB, [&](std::uint8_t* row, int width) { replacement.run(row, width); });
}

/// A cleaned block counts as cleaned in the rings of the next ones, so the rows are read as they are.
void cDIBFilter::SaltAndPepperRemoval(cDIB& DIB, std::int32_t Threshold) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    frame.onePass(1, frame.height() - 2, [&](int y) {
        std::uint8_t* const rows[4] = {frame.row(y - 1), frame.row(y), frame.row(y + 1), frame.row(y + 2)};
        kernels::saltAndPepperRow(rows, frame.width(), Threshold);
    });
    frame.finish();
}

void cDIBFilter::Saturation(cDIB& DIB, std::int32_t Level) {
    runInPlace(DIB,
               [f = factor(Level)](std::uint8_t* row, int width) { kernels::saturationRow(row, width, f); });
}

void cDIBFilter::ScanLines(cDIB& DIB, std::int32_t BlackLevel, std::int32_t WhiteLevel) {
    if (DIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const double wf = static_cast<float>(1 + WhiteLevel / 100.0);
    const double bf = static_cast<float>(1 - BlackLevel / 100.0);
    const auto white =
        byteTable([=](int i) { return wf * i > 255 ? std::uint8_t{255} : toByte(roundInt(wf * i)); });
    const auto black =
        byteTable([=](int i) { return bf * i < 0 ? std::uint8_t{0} : toByte(roundInt(bf * i)); });
    const auto work = [&](int y) {
        kernels::scaleRow(frame.row(y), frame.width(), wf, white);
        kernels::scaleRow(frame.row(y + 1), frame.width(), bf, black);
    };
    frame.onePass(0, frame.height() - 1, work, 2);
    frame.finish();
}

void cDIBFilter::Sharpen(cDIB& DIB, std::int32_t Level) {
    runOnInnerRows(DIB, [w = wrapSub(109, Level)](kernels::Rows3 S, std::uint8_t* D, int width) {
        kernels::sharpenRow(S, D, width, w);
    });
}

void cDIBFilter::Shift(cDIB& DIB, std::uint32_t ColorFrom, std::int32_t Inc, std::int32_t Tolerance) {
    if (DIB.hDIB() == nullptr) return;
    const kernels::ColourSphere sphere(ColorFrom, Tolerance);
    runInPlace(DIB, [&](std::uint8_t* row, int width) { kernels::shiftRow(row, width, sphere, Inc); });
}

void cDIBFilter::ShiftRGB(cDIB& DIB, std::int32_t RInc, std::int32_t GInc, std::int32_t BInc) {
    constexpr std::int32_t kLargestWithoutWrap = std::numeric_limits<std::int32_t>::max() - 255;
    if (std::max({RInc, GInc, BInc}) <= kLargestWithoutWrap) {
        return runInPlace(DIB, [increments = std::array{BInc, GInc, RInc}](std::uint8_t* row, int width) {
            kernels::shiftChannelsRow(row, width, increments);
        });
    }
    runInPlace(DIB, [TB = shiftTable(BInc), TG = shiftTable(GInc), TR = shiftTable(RInc)](
                        std::uint8_t* row, int width) { kernels::tableRow(row, width, TB, TG, TR); });
}

void cDIBFilter::Soften(cDIB& DIB, std::int32_t Level) {
    runOnInnerRows(DIB, [w = wrapSub(101, Level)](kernels::Rows3 S, std::uint8_t* D, int width) {
        kernels::softenRow(S, D, width, w);
    });
}

/// Row by row over the tiles of a band; the value of a band is that of its first row.
void cDIBFilter::Texturize(cDIB& DIB, const cDIB& TextureDIB) {
    if (DIB.hDIB() == nullptr || TextureDIB.hDIB() == nullptr) return;
    FilterFrame frame(DIB, Progress, ProgressEnd);
    const PixelBuffer& texture = *TextureDIB.hDIB();
    std::vector<std::uint8_t> repeated(frame.rowBytes());
    const auto work = [&](int band) {
        const int rows = std::min(texture.height(), frame.height() - band);
        for (int j = 0; j < rows; ++j) {
            kernels::repeatRow(texture.row(j), texture.bytesPerRow(), repeated);
            kernels::texturizeRow(frame.row(band + j), frame.width(), repeated.data());
        }
    };
    frame.onePass(0, frame.height(), work, texture.height());
    frame.finish();
}

}  // namespace mobrel
