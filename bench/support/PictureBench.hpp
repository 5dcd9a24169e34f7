// SPDX-License-Identifier: MIT
// Times an operation on a picture, against a copy of the same picture.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

#include "imaging/cDIB.hpp"

namespace mobrel::bench {

struct Size {
    int width = 0;
    int height = 0;

    std::string toString() const { return std::to_string(width) + 'x' + std::to_string(height); }
};

/// The counters of a row: both the least of all rounds.
inline constexpr const char* kPerPixel = "ns/pixel";
inline constexpr const char* kPerCopy = "x memcpy";

/// An operation and what its result must be.
struct PictureOperation {
    std::string group;
    std::string name;
    std::function<void(cDIB& picture)> run;
    /// The result by a slower road, asked for pictures of up to 512 x 512 pixels. Larger pictures are
    /// held to the result of their own first round.
    std::function<void(cDIB& picture)> runPlainly;
};

/// Adds a row. A round copies the photo-like picture, runs the operation on the copy and compares the
/// bytes; copy and operation are timed apart, so both see the same machine. A row whose bytes are wrong, or
/// whose operation throws, ends in an error. 0 rounds stand for as many as the size deserves.
void addPictureBench(const PictureOperation& operation, const Size& size, int rounds);

}  // namespace mobrel::bench
