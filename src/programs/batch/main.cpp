// SPDX-License-Identifier: MIT
// The same steps on many pictures, without a window.
#include <fcntl.h>
#include <unistd.h>

#include <exception>
#include <string>
#include <variant>
#include <vector>

#include "programs/batch/run/Interrupt.hpp"
#include "programs/batch/run/Options.hpp"
#include "programs/batch/run/Report.hpp"
#include "programs/batch/run/Run.hpp"
#include "programs/batch/run/Task.hpp"
#include "programs/batch/steps/Failure.hpp"

namespace mobrel::batch {

namespace {

// A file must not get the number of a standard stream that was closed at the start: what is meant for the
// stream would go into it.
void fillStandardStreams() {
    int descriptor = 0;
    do {
        descriptor = ::open("/dev/null", O_RDONLY);
    } while (descriptor >= 0 && descriptor <= STDERR_FILENO);
    if (descriptor >= 0) ::close(descriptor);
}

int runBatch(const Options& options) {
    const std::vector<StepAction> steps = prepareSteps(options);
    const std::vector<Task> tasks = planTasks(options);
    if (options.fromStandardInput) {
        endAtInterrupt(options.quiet ? "" : "0 done, 0 failed, 1 not done\n");
    }
    Report report(tasks.size(), options);
    runTasks(tasks, steps, options, report);
    report.finish();
    if (interrupted()) return kInterruptStatus;
    return report.allDone() ? 0 : 1;
}

int run(const std::vector<std::string>& arguments) {
    const auto request = readOptions(arguments);
    if (const auto* const printed = std::get_if<PrintedText>(&request)) {
        return printOutput(printed->text) ? 0 : 1;
    }
    return runBatch(std::get<Options>(request));
}

}  // namespace

}  // namespace mobrel::batch

int main(int argc, char** argv) {
    using namespace mobrel::batch;
    fillStandardStreams();
    listenForSignals();
    try {
        return run({argv + (argc > 0 ? 1 : 0), argv + argc});
    } catch (const UsageError& error) {
        printError(error.what());
        return 2;
    } catch (const std::bad_alloc&) {
        printError("not enough memory");
    } catch (const std::exception& error) {
        printError(error.what());
    }
    return 1;
}
