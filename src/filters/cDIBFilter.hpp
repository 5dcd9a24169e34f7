// SPDX-License-Identifier: MIT
// The catalogue of pixel filters.
#pragma once

#include <cstdint>

#include "imaging/cDIB.hpp"
#include "platform/base/Event.hpp"
#include "platform/base/RandomSource.hpp"

namespace mobrel {

/// Each operation changes the surface in place and never touches byte 3 of a pixel. On an empty
/// surface it does nothing and raises nothing. No operation tests its arguments: where a recipe's
/// result leaves what it is stored in, the operation ends with error 6, a division by zero with 11.
/// Colours are 0x00BBGGRR. The ranges that never end in an error stand in FilterCatalogue.
///
/// Rows count from the bottom line of the picture. "Spares the border" means that the outermost ring of
/// pixels keeps its colours.
class cDIBFilter {
 public:
    /// Noise and Diffuse draw from `random`, which must outlive the object.
    explicit cDIBFilter(RandomSource& random = processRandomSource()) : m_random(random) {}

    /// Raised after each finished row; the value climbs from 0 to about the picture's height.
    Event<std::int32_t> Progress;
    /// Raised once, when the filter has finished.
    Event<> ProgressEnd;

    /// Mean of the 3 x 3 pixels around with the centre weighted 101 - Level. Spares the border.
    void Blur(cDIB& DIB, std::int32_t Level);
    /// White, with dark lines on the dark side of edges. Spares the border.
    void Contour(cDIB& DIB);
    /// Stretches channels about the picture's mean brightness; what clips moves to the other channels.
    /// Level is percent: 0 leaves the picture as it is, -100 makes it flat.
    void Contrast(cDIB& DIB, std::int32_t Level);
    /// Repaints the picture in one hue (-1 to 5, see mHSL), keeping its brightness times Luminosity.
    void Colorize(cDIB& DIB, float Hue, float Saturation, float Luminosity);
    /// Moves each sample towards its neighbours in four directions, at most two steps a direction.
    /// Spares the border.
    void Despeckle(cDIB& DIB);
    /// The same with up to four steps a direction.
    void DespeckleMore(cDIB& DIB);
    /// Each DiffuseStep-th pixel takes the colour of a random one at most xRange and yRange away.
    void Diffuse(cDIB& DIB, std::int32_t xRange, std::int32_t yRange, std::int32_t DiffuseStep);
    /// A grey relief, lit from the pixel one left and one above. ConnectMargins takes the last row and
    /// column in; the row above the last is the first.
    void Emboss(cDIB& DIB, std::int32_t Level, bool ConnectMargins);
    /// The same, lit from the other side.
    void Engrave(cDIB& DIB, std::int32_t Level, bool ConnectMargins);
    /// Weighted grey: 0.707 green, 0.222 red, 0.071 blue.
    void Greys(cDIB& DIB);
    /// The complement of every channel.
    void Negative(cDIB& DIB);
    /// Adds one random amount up to Level to the channels of each xyStep-th pixel. A step of 0 never
    /// ends.
    void Noise(cDIB& DIB, std::int32_t Level, std::int32_t xyStep);
    /// Five-point mean, darker (Level below 0) or brighter where a brighter neighbour lies, plus Shift.
    /// Spares the border.
    void Outline(cDIB& DIB, std::int32_t Level, std::int32_t Shift);
    /// Mosaic of means over blocks of PixelSize, from the bottom left. Error 11 for size 0.
    void Pixelize(cDIB& DIB, std::int32_t PixelSize);
    /// The largest of the plus of five pixels: dilates. Spares the border.
    void RankFilterMaximum(cDIB& DIB);
    /// The smallest of the plus of five pixels: erodes. Spares the border.
    void RankFilterMinimum(cDIB& DIB);
    /// A coloured relief, stronger as Level rises to 100. Spares the border.
    void Relieve(cDIB& DIB, std::int32_t Level);
    /// Moves colours near ColorFrom in hue and saturation towards ColorTo, fading with distance.
    void ReplaceHS(cDIB& DIB, std::uint32_t ColorFrom, std::uint32_t ColorTo, std::int32_t Tolerance,
                   std::int32_t HTolerance, std::int32_t STolerance);
    /// Moves colours near ColorFrom in luminosity towards ColorTo, fading with distance.
    void ReplaceL(cDIB& DIB, std::uint32_t ColorFrom, std::uint32_t ColorTo, std::int32_t Tolerance,
                  std::int32_t LTolerance);
    /// Sets pixels of 2 x 2 blocks that differ from the ring around by more than Threshold to its mean.
    /// Spares the border.
    void SaltAndPepperRemoval(cDIB& DIB, std::int32_t Threshold);
    /// Moves channels away from the plain grey, or towards it. Level is percent: -100 is grey.
    void Saturation(cDIB& DIB, std::int32_t Level);
    /// Brightens every second row and darkens the ones between, in percent.
    void ScanLines(cDIB& DIB, std::int32_t BlackLevel, std::int32_t WhiteLevel);
    /// Strengthens each pixel against the eight around it, most at Level 100. Spares the border. Error
    /// 11 for Level 101.
    void Sharpen(cDIB& DIB, std::int32_t Level);
    /// Adds Inc to the channels of colours near ColorFrom, fading with distance.
    void Shift(cDIB& DIB, std::uint32_t ColorFrom, std::int32_t Inc, std::int32_t Tolerance);
    /// Adds to each channel, limited to 0 to 255.
    void ShiftRGB(cDIB& DIB, std::int32_t RInc, std::int32_t GInc, std::int32_t BInc);
    /// Mean of the plus of five pixels with the centre weighted 101 - Level. Spares the border.
    void Soften(cDIB& DIB, std::int32_t Level);
    /// Scales and shifts pixels by the blue of a texture, repeated from the bottom left; 128 changes
    /// nothing. Nothing for an empty texture.
    void Texturize(cDIB& DIB, const cDIB& TextureDIB);

 private:
    template <typename RowWork>
    void runInPlace(cDIB& DIB, RowWork rowWork);
    template <typename RowWork>
    void runOnInnerRows(cDIB& DIB, RowWork rowWork);
    template <typename MoveRow, typename MoveAlong>
    void runInFourDirections(cDIB& DIB, MoveRow moveRow, MoveAlong moveAlong);
    void runRelief(cDIB& DIB, float strength, bool ConnectMargins);

    RandomSource& m_random;
};

}  // namespace mobrel
