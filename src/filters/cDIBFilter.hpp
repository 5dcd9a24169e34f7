// SPDX-License-Identifier: MIT
// The catalogue of pixel filters.
#pragma once

#include <cstdint>

#include "imaging/cDIB.hpp"
#include "platform/Event.hpp"

namespace mobrel {

class FilterFrame;

/// Each operation changes the surface in place and never touches byte 3 of a pixel. On an empty
/// surface it does nothing and raises nothing. No operation tests its arguments: where a recipe's
/// result leaves what it is stored in, the operation ends with error 6, a division by zero with 11.
class cDIBFilter {
 public:
    /// Raised after each finished row; the value climbs from 0 to about the picture's height.
    Event<std::int32_t> Progress;
    /// Raised once, when the filter has finished.
    Event<> ProgressEnd;

    /// Stretches channels about the picture's mean brightness; what clips moves to the other channels.
    /// Level is percent: 0 leaves the picture as it is, -100 makes it flat.
    void Contrast(cDIB& DIB, std::int32_t Level);
    /// Repaints the picture in one hue (-1 to below 5, see mHSL), keeping its brightness times
    /// Luminosity (0 to 1).
    void Colorize(cDIB& DIB, float Hue, float Saturation, float Luminosity);
    /// Moves each sample towards its neighbours in four directions, at most two steps a direction.
    void Despeckle(cDIB& DIB);
    /// Weighted grey: 0.707 green, 0.222 red, 0.071 blue.
    void Greys(cDIB& DIB);
    /// The complement of every channel.
    void Negative(cDIB& DIB);
    /// Moves channels away from the plain grey, or towards it. Level is percent: -100 is grey.
    void Saturation(cDIB& DIB, std::int32_t Level);
    /// Adds to each channel, limited to 0 to 255.
    void ShiftRGB(cDIB& DIB, std::int32_t RInc, std::int32_t GInc, std::int32_t BInc);

 private:
    template <typename RowWork>
    void runInPlace(cDIB& DIB, RowWork rowWork);
};

}  // namespace mobrel
