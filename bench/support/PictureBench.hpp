// SPDX-License-Identifier: MIT
// Times an operation on a picture, against a copy of the same picture.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>

#include "imaging/cDIB.hpp"
#include "support/Size.hpp"

namespace mobrel::bench {

/// The counters of a row, each the least of all rounds. Other libraries have one each, under their name, in
/// nanoseconds a pixel.
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
    /// What `run` needs done before it, if anything, and what brings its result into the picture. Neither is
    /// timed, and neither belongs to runPlainly.
    std::function<void(cDIB& picture)> prepare = {};
    std::function<void(cDIB& picture)> conclude = {};
};

/// Adds a row. A round copies the photo-like picture, runs the operation on the copy and compares size and
/// bytes; copy, operation and the nearest operations of other libraries are timed apart, in turn, so all see
/// the same machine. A row whose bytes are wrong, or whose operation throws, ends in an error. 0 rounds stand
/// for as many as the size deserves.
void addPictureBench(const PictureOperation& operation, const Size& size, int rounds);

}  // namespace mobrel::bench
