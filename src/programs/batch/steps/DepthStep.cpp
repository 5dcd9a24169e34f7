// SPDX-License-Identifier: MIT
#include "programs/batch/steps/DepthStep.hpp"

#include <array>
#include <cstddef>

#include "imaging/ColourDepth.hpp"

namespace mobrel::batch {

namespace {

constexpr std::array<std::string_view, 6> kModes = {"BlackAndWhite", "Greys16",   "Greys256",
                                                    "Colors16",      "Colors256", "TrueColor"};
constexpr std::array<DepthCommand, kModes.size()> kCommands = {
    DepthCommand::BlackAndWhite, DepthCommand::Greys16,   DepthCommand::Greys256,
    DepthCommand::Colors16,      DepthCommand::Colors256, DepthCommand::TrueColor};

StepAction prepareDepth(const StepValues& values, const ReadOptions&) {
    const DepthCommand command = kCommands[static_cast<std::size_t>(*values.numbers.front())];
    return [command](Document& document, cDIBFilter&) {
        changeDepth(command, {document.surface, document.palette, document.indices, document.depth},
                    [](bool) {});
    };
}

}  // namespace

StepKind depthStep() {
    return {"Depth",
            "reduces the colours, with error diffusion; a later filter gives 24 bits again",
            {choiceArgument("Mode", kModes)},
            prepareDepth};
}

}  // namespace mobrel::batch
