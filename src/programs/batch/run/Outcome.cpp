// SPDX-License-Identifier: MIT
#include "programs/batch/run/Outcome.hpp"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <exception>
#include <new>

#include "filters/cDIBFilter.hpp"
#include "platform/base/RandomSource.hpp"
#include "platform/system/Files.hpp"
#include "programs/batch/run/Interrupt.hpp"
#include "programs/batch/run/TargetFile.hpp"
#include "programs/batch/steps/Document.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/Formats.hpp"
#include "programs/batch/steps/GeometrySteps.hpp"
#include "programs/batch/steps/MessageText.hpp"
#include "programs/batch/steps/PictureFile.hpp"

namespace mobrel::batch {

namespace {

struct Interrupted {};

void stopWhenInterrupted() {
    if (interrupted()) throw Interrupted();
}

void readPicture(const Task& task, const Work& work, Document& document) {
    if (task.picture != kStandardStream) {
        return readPictureFile(task.picture, work.reading, document);
    }
    FileSource source = FileSource::borrowed(STDIN_FILENO);
    readDocument(source, work.reading, document);
}

void applySteps(const Work& work, Document& document) {
    RandomSource random;
    cDIBFilter filter(random);
    filter.Progress.connect([](std::int32_t) { stopWhenInterrupted(); });
    document.indices.Progress.connect([](std::int32_t) { stopWhenInterrupted(); });
    for (const StepAction& step : work.steps) {
        stopWhenInterrupted();
        step(document, filter);
    }
    stopWhenInterrupted();
}

const PictureFormat& resultFormat(const Work& work, const Document& document) {
    return work.format ? *work.format : formatOf(document.format);
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

void writeResult(const Task& task, const Work& work, const Document& document) {
    const PictureFormat& format = resultFormat(work, document);
    checkSides(document.surface, format);
    const auto write = [&](FileWriter& file) { format.write(file, document, work.quality); };
    switch (work.placement) {
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

void doSteps(const Task& task, const Work& work, Outcome& outcome) {
    if (!task.refusal.empty()) throw Failure(task.refusal);
    Document document;
    if (work.placement == Placement::Beside) checkFree(task.target);
    readPicture(task, work, document);
    outcome.note = noteOn(document);
    if (!work.keepOrientation) turnUpright(document, document.orientation);
    applySteps(work, document);
    writeResult(task, work, document);
    if (work.placement == Placement::Nowhere) outcome.info = infoOf(document);
    outcome.width = document.surface.Width();
    outcome.height = document.surface.Height();
    const bool isResult = work.placement != Placement::Nowhere;
    outcome.depth = isResult ? resultFormat(work, document).depthOf(document) : document.depth;
    outcome.status = Status::Done;
}

StepAction prepareStep(const Step& step, const ReadOptions& reading) {
    try {
        return step.kind->prepare(step.values, reading);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const UsageError&) {
        throw;
    } catch (const std::exception& error) {
        throw UsageError(onOneLine(step.values.file) + ": " + error.what());
    }
}

}  // namespace

Work prepareWork(const Options& options) {
    Work work;
    for (const Step& step : options.steps) {
        if (interrupted()) break;
        work.steps.push_back(prepareStep(step, options.reading));
    }
    work.format = options.format;
    work.placement = options.placement;
    work.quality = options.quality;
    work.reading = options.reading;
    work.keepOrientation = options.keepOrientation;
    return work;
}

Outcome doPicture(const Task& task, const Work& work) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point start = Clock::now();
    Outcome outcome;
    const auto fail = [&](const char* reason) {
        outcome.status = Status::Failed;
        outcome.error = reason;
    };
    try {
        doSteps(task, work, outcome);
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
