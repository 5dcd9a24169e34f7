// SPDX-License-Identifier: MIT
// The command line.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "platform/pictures/ReadOptions.hpp"
#include "programs/batch/steps/StepText.hpp"

namespace mobrel::batch {

struct PictureFormat;

/// A picture of this name comes from standard input; its result goes to standard output.
inline constexpr const char* kStandardStream = "-";

inline constexpr int kUsualQuality = 90;

enum class Placement {
    Beside,          ///< to a folder, where nothing of that name may be yet
    Over,            ///< to a folder, in place of what has that name
    InPlace,         ///< over the picture itself
    StandardOutput,  ///< the one picture of a pipe
    Nowhere,         ///< no result: the picture is only looked at
};

struct Options {
    std::vector<Step> steps;
    std::vector<std::string> pictures;
    /// The one picture is kStandardStream.
    bool fromStandardInput = false;
    Placement placement = Placement::Beside;
    /// Set for Beside and Over.
    std::string folder;
    /// Null where each picture keeps its own.
    const PictureFormat* format = nullptr;
    /// Of JPEG, 0 to 100.
    int quality = kUsualQuality;
    /// At least 1.
    unsigned jobs = 1;
    ReadOptions reading;
    /// Pictures stay as they are stored, whatever their files say of the camera.
    bool keepOrientation = false;
    bool stopOnError = false;
    bool json = false;
    bool quiet = false;
};

/// What a run prints on standard output instead of work: --help, --version, --list.
struct PrintedText {
    std::string text;
};

/// Reads the arguments behind the program's name. Names of pictures are what stands behind the first --,
/// byte for byte. Throws UsageError.
std::variant<Options, PrintedText> readOptions(const std::vector<std::string>& arguments);

}  // namespace mobrel::batch
