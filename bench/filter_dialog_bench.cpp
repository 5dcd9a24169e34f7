// SPDX-License-Identifier: MIT
// Times the filter dialog under a user's hand: a slider is moved step by step over its whole range, and each
// step counts until the after pane is painted. Windows are drawn into memory unless QT_QPA_PLATFORM says
// otherwise. Milliseconds a step.
//
//     mobrel-bench-dialog [--size=WxH]...
#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>
#include <string>

#include "controls/zenSlider.hpp"
#include "desktop/Application.hpp"
#include "dialogs/filter/fFilter.hpp"
#include "shell/fMain.hpp"
#include "support/Arguments.hpp"
#include "support/PhotoPicture.hpp"

namespace mobrel::bench {
namespace {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

struct StepTimes {
    double total = 0;
    double longest = 0;
    int steps = 0;

    void add(double milliseconds) {
        total += milliseconds;
        longest = std::max(longest, milliseconds);
        ++steps;
    }
};

StepTimes dragOver(zenSlider& slider) {
    StepTimes times;
    for (std::int32_t value = slider.Min(); value <= slider.Max(); ++value) {
        const auto start = Clock::now();
        slider.setValue(value);
        times.add(millisecondsSince(start));
    }
    return times;
}

zenSlider& firstSlider(fFilter& dialog) {
    return dynamic_cast<zenSlider&>(dialog.findChild<ControlWidget*>("sbParam(0)")->control());
}

void measure(const Size& size) {
    cDIB& document = fMain::Global().Canvas.DIB;
    document.Create(size.width, size.height, 0);
    paintPhoto(document);
    for (std::size_t i = 1; i < kFilterTable.size(); ++i) {
        if (kFilterTable[i].sliders[0].caption.empty()) continue;
        const auto start = Clock::now();
        fFilter dialog(fMain::Global());
        dialog.Initialize(static_cast<int>(i));
        dialog.show();
        QCoreApplication::processEvents();
        const double opened = millisecondsSince(start);
        const StepTimes times = dragOver(firstSlider(dialog));
        std::printf("%-24s %12s %8.1f %8d %8.2f %8.2f\n", kFilterTable[i].caption.data(),
                    size.toString().c_str(), opened, times.steps, times.total / times.steps, times.longest);
    }
}

}  // namespace
}  // namespace mobrel::bench

int main(int argc, char** argv) {
    using namespace mobrel;
    bench::Measure plan{{}, 1};
    for (int i = 1; i < argc; ++i) {
        if (bench::takeArgument(argv[i], plan).value_or(false)) continue;
        std::fputs("usage: mobrel-bench-dialog [--size=WxH]...\n", stderr);
        return 2;
    }
    if (plan.sizes.empty()) plan.sizes = {{4000, 3000}};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
    std::printf("%-24s %12s %8s %8s %8s %8s\n", "slider", "size", "opened", "steps", "mean", "longest");
    for (const bench::Size& size : plan.sizes) bench::measure(size);
    return 0;
}
