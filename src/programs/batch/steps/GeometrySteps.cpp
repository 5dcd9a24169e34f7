// SPDX-License-Identifier: MIT
#include "programs/batch/steps/GeometrySteps.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <utility>

#include "imaging/mGDIpEx.hpp"
#include "platform/base/Numbers.hpp"
#include "programs/batch/steps/Failure.hpp"

namespace mobrel::batch {

namespace {

constexpr double kMostSide = std::numeric_limits<std::int32_t>::max();

Argument integerArgument(std::string_view name, double least, double greatest) {
    return {name, ArgumentKind::Integer, least, greatest};
}

Argument optionalArgument(Argument argument) {
    argument.isOptional = true;
    return argument;
}

Argument booleanArgument(std::string_view name, bool preset) {
    return {name, ArgumentKind::Boolean, 0, 1, preset ? 1.0 : 0.0};
}

struct PictureSize {
    double width;
    double height;
};

// The sides in the order of the arguments; at least one of the three stands.
struct Resizing {
    std::optional<double> width;
    std::optional<double> height;
    std::optional<double> percent;

    PictureSize sizeFor(PictureSize old) const {
        if (percent) return {old.width * *percent / 100, old.height * *percent / 100};
        if (!height) return {*width, *width / old.width * old.height};
        if (!width) return {*height / old.height * old.width, *height};
        return {*width, *height};
    }
};

// To nearest, and no side vanishes.
int sideOf(double side) {
    if (side > kMostSide) throw Failure("a side of that many pixels is more than a picture can have");
    return std::max(roundInt(side), 1);
}

void resize(Document& document, const Resizing& resizing, bool resample) {
    cDIB& surface = document.surface;
    const PictureSize size =
        resizing.sizeFor({static_cast<double>(surface.Width()), static_cast<double>(surface.Height())});
    const int width = sideOf(size.width);
    const int height = sideOf(size.height);
    if (!PixelBuffer::isValidSize(width, height)) {
        throw Failure(std::to_string(width) + " x " + std::to_string(height) +
                      " pixels are more than a picture can have");
    }
    if (!StretchDIB(surface, width, height, resample)) throw Failure("not enough memory");
    document.dropPalette();
}

StepAction prepareResize(const StepValues& values, const ReadOptions&) {
    const Resizing resizing{values.numbers[0], values.numbers[1], values.numbers[2]};
    const bool hasSide = resizing.width || resizing.height;
    if (!hasSide && !resizing.percent) throw UsageError("Resize needs Width, Height or Percent");
    if (hasSide && resizing.percent) throw UsageError("Resize takes either sides or Percent");
    const bool resample = *values.numbers[3] != 0;
    return [=](Document& document, cDIBFilter&) { resize(document, resizing, resample); };
}

struct Turn {
    bool rotate90;
    bool flipH;
    bool flipV;
};

void turn(Document& document, const Turn& turn) {
    document.surface.Orientation(turn.rotate90, turn.flipH, turn.flipV);
    if (document.surface.hDIB() == nullptr) throw Failure("not enough memory");
    document.dropPalette();
}

StepAction prepareOrientation(const StepValues& values, const ReadOptions&) {
    const Turn asked{*values.numbers[0] != 0, *values.numbers[1] != 0, *values.numbers[2] != 0};
    if (!asked.rotate90 && !asked.flipH && !asked.flipV) {
        throw UsageError("Orientation needs Rotate90, FlipH or FlipV to be true");
    }
    return [=](Document& document, cDIBFilter&) { turn(document, asked); };
}

void crop(Document& document, const Rect& asked) {
    cDIB& surface = document.surface;
    const Rect within{asked.left, asked.top, std::min(asked.right, surface.Width()),
                      std::min(asked.bottom, surface.Height())};
    if (within.left >= within.right || within.top >= within.bottom) {
        throw Failure("the rectangle lies outside the picture of " + std::to_string(surface.Width()) + " x " +
                      std::to_string(surface.Height()) + " pixels");
    }
    auto part = surface.part(within);
    if (!part) throw Failure("not enough memory");
    surface.adopt(*std::move(part));
    document.dropPalette();
}

StepAction prepareCrop(const StepValues& values, const ReadOptions&) {
    const auto side = [&](std::size_t i) { return static_cast<int>(*values.numbers[i]); };
    const Rect asked{side(0), side(1), side(2), side(3)};
    if (asked.left >= asked.right || asked.top >= asked.bottom) {
        throw UsageError("Crop needs Left below Right and Top below Bottom");
    }
    return [=](Document& document, cDIBFilter&) { crop(document, asked); };
}

}  // namespace

StepKind resizeStep() {
    return {"Resize",
            "another size, bicubic unless Resample is false; one side, both or Percent",
            {optionalArgument(integerArgument("Width", 1, kMostSide)),
             optionalArgument(integerArgument("Height", 1, kMostSide)),
             optionalArgument({"Percent", ArgumentKind::Float, 0.001, 1'000'000}),
             booleanArgument("Resample", true)},
            prepareResize};
}

StepKind orientationStep() {
    return {"Orientation",
            "mirrors, then turns by 90 degrees counter-clockwise; FlipH and FlipV are those of the result",
            {booleanArgument("Rotate90", false), booleanArgument("FlipH", false),
             booleanArgument("FlipV", false)},
            prepareOrientation};
}

StepKind cropStep() {
    return {"Crop",
            "cuts to a rectangle, as far as it lies in the picture; Right and Bottom lie outside of it",
            {integerArgument("Left", 0, kMostSide), integerArgument("Top", 0, kMostSide),
             integerArgument("Right", 1, kMostSide), integerArgument("Bottom", 1, kMostSide)},
            prepareCrop};
}

void turnUpright(Document& document, int orientation) {
    // A turn is counter-clockwise, and the mirrors before it are told in the frame of the result.
    static constexpr std::array<Turn, 7> kTurns = {{
        {false, true, false},  // 2: mirrored left to right
        {false, true, true},   // 3: upside down
        {false, false, true},  // 4: mirrored top to bottom
        {true, false, true},   // 5: columns and rows exchanged
        {true, true, true},    // 6: lying on its left side
        {true, true, false},   // 7: exchanged about the other diagonal
        {true, false, false},  // 8: lying on its right side
    }};
    if (orientation < 2 || orientation > 8) return;
    turn(document, kTurns[static_cast<std::size_t>(orientation) - 2]);
}

}  // namespace mobrel::batch
