// SPDX-License-Identifier: MIT
// Every filter once more, as slowly and plainly as its recipe reads: the oracle of the filter tests.
#pragma once

#include <cstdint>
#include <functional>

#include "support/EventLog.hpp"
#include "support/TestPictures.hpp"

/// Each recipe changes the picture in place and logs the events of the filter. It does and logs nothing
/// on a picture without pixels. An error (6 for a value that does not fit, 11 for a division by zero)
/// leaves picture and log as they are at that step.
namespace mobrel::recipes {

using test::EventLog;
using test::Picture;

/// Gives the next number in [0, 1).
using NextRandom = std::function<float()>;

void contrast(Picture& D, std::int32_t Level, EventLog& log);
void greys(Picture& D, EventLog& log);
void negative(Picture& D, EventLog& log);
void saturation(Picture& D, std::int32_t Level, EventLog& log);
void shiftRGB(Picture& D, std::int32_t RInc, std::int32_t GInc, std::int32_t BInc, EventLog& log);

void blur(Picture& D, std::int32_t Level, EventLog& log);
void contour(Picture& D, EventLog& log);
void emboss(Picture& D, std::int32_t Level, bool ConnectMargins, EventLog& log);
void engrave(Picture& D, std::int32_t Level, bool ConnectMargins, EventLog& log);
void outline(Picture& D, std::int32_t Level, std::int32_t Shift, EventLog& log);
void relieve(Picture& D, std::int32_t Level, EventLog& log);
void sharpen(Picture& D, std::int32_t Level, EventLog& log);
void soften(Picture& D, std::int32_t Level, EventLog& log);

void despeckle(Picture& D, EventLog& log);
void despeckleMore(Picture& D, EventLog& log);
void rankFilterMaximum(Picture& D, EventLog& log);
void rankFilterMinimum(Picture& D, EventLog& log);
void saltAndPepperRemoval(Picture& D, std::int32_t Threshold, EventLog& log);

void diffuse(Picture& D, std::int32_t xRange, std::int32_t yRange, std::int32_t DiffuseStep,
             const NextRandom& nextRandom, EventLog& log);
/// xyStep is at least 1.
void noise(Picture& D, std::int32_t Level, std::int32_t xyStep, const NextRandom& nextRandom, EventLog& log);
void pixelize(Picture& D, std::int32_t PixelSize, EventLog& log);
void scanLines(Picture& D, std::int32_t BlackLevel, std::int32_t WhiteLevel, EventLog& log);

void colorize(Picture& D, float Hue, float Saturation, float Luminosity, EventLog& log);
void replaceHS(Picture& D, std::int32_t ColorFrom, std::int32_t ColorTo, std::int32_t Tolerance,
               std::int32_t HTolerance, std::int32_t STolerance, EventLog& log);
void replaceL(Picture& D, std::int32_t ColorFrom, std::int32_t ColorTo, std::int32_t Tolerance,
              std::int32_t LTolerance, EventLog& log);
void shift(Picture& D, std::int32_t ColorFrom, std::int32_t Inc, std::int32_t Tolerance, EventLog& log);

/// The texture has pixels.
void texturize(Picture& D, const Picture& texture, EventLog& log);

}  // namespace mobrel::recipes
