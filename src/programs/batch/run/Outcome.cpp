// SPDX-License-Identifier: MIT
#include "programs/batch/run/Outcome.hpp"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <new>
#include <span>

#include "filters/cDIBFilter.hpp"
#include "platform/base/RandomSource.hpp"
#include "platform/system/Files.hpp"
#include "programs/batch/run/Interrupt.hpp"
#include "programs/batch/run/TargetFile.hpp"
#include "programs/batch/steps/Document.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/Formats.hpp"
#include "programs/batch/steps/GeometrySteps.hpp"
#include "programs/batch/steps/PictureFile.hpp"

namespace mobrel::batch {

namespace {

struct Interrupted {};

void stopWhenInterrupted() {
    if (interrupted()) throw Interrupted();
}

void readPicture(const Task& task, const Options& options, Document& document) {
    if (task.picture != kStandardStream) {
        return readPictureFile(task.picture, options.reading, document);
    }
    FileSource source = FileSource::borrowed(STDIN_FILENO);
    readDocument(source, options.reading, document);
}

void applySteps(std::span<const StepAction> steps, Document& document) {
    RandomSource random;
    cDIBFilter filter(random);
    filter.Progress.connect([](std::int32_t) { stopWhenInterrupted(); });
    document.indices.Progress.connect([](std::int32_t) { stopWhenInterrupted(); });
    for (const StepAction& step : steps) {
        stopWhenInterrupted();
        step(document, filter);
    }
    stopWhenInterrupted();
}

const PictureFormat& resultFormat(const Options& options, const Document& document) {
    return options.format ? *options.format : formatFor(document.format);
}

void checkSides(const cDIB& surface, const PictureFormat& format) {
    if (std::max(surface.Width(), surface.Height()) <= format.mostSide) return;
    throw Failure(std::to_string(surface.Width()) + " x " + std::to_string(surface.Height()) +
                  " pixels are too long for a " + std::string(format.name) +
                  " file, whose sides have at most " + std::to_string(format.mostSide));
}

// What is lost besides what the steps change.
std::string noteOn(const Document& document) {
    std::string note;
    if (document.hadTransparency) note = "has transparency, which is laid over the background";
    if (document.hasMoreFrames) {
        if (!note.empty()) note += "; ";
        note += "has more pictures, of which the first counts";
    }
    return note;
}

void writeResult(const Task& task, const Options& options, const Document& document) {
    const PictureFormat& format = resultFormat(options, document);
    checkSides(document.surface, format);
    const auto write = [&](FileWriter& file) { format.write(file, document, options.quality); };
    switch (options.placement) {
        case Placement::Beside:
            return writeBeside(task.target, write);
        case Placement::Over:
            return writeOver(task.target, write);
        case Placement::InPlace:
            return writeInPlace(task.target, write);
        case Placement::StandardOutput:
            return writeToStandardOutput(write);
        case Placement::Nowhere:
            return;
    }
}

void tryTask(const Task& task, std::span<const StepAction> steps, const Options& options, Outcome& outcome) {
    if (!task.refusal.empty()) throw Failure(task.refusal);
    Document document;
    if (options.placement == Placement::Beside) checkFree(task.target);
    readPicture(task, options, document);
    outcome.note = noteOn(document);
    if (!options.keepOrientation) turnUpright(document, document.orientation);
    applySteps(steps, document);
    writeResult(task, options, document);
    const bool isResult = options.placement != Placement::Nowhere;
    if (!isResult)
        outcome.info = infoOf(document.surface, document.palette, document.indices, document.depth);
    outcome.width = document.surface.Width();
    outcome.height = document.surface.Height();
    const int depth = document.depth;
    outcome.depth = isResult ? resultFormat(options, document).depth.value_or(depth) : depth;
    outcome.status = Status::Done;
}

}  // namespace

Outcome doTask(const Task& task, std::span<const StepAction> steps, const Options& options) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    Outcome outcome;
    const auto fail = [&](const char* reason) {
        outcome.status = Status::Failed;
        outcome.error = reason;
    };
    try {
        tryTask(task, steps, options, outcome);
    } catch (const Interrupted&) {
        outcome.status = Status::NotDone;
    } catch (const std::bad_alloc&) {
        fail("not enough memory");
    } catch (const std::exception& error) {
        fail(error.what());
    }
    outcome.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return outcome;
}

}  // namespace mobrel::batch
