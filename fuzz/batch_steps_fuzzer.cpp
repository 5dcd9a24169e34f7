// SPDX-License-Identifier: MIT
// Fuzz target of the step texts: any text is refused with a reason or gives a step that runs.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/RandomSource.hpp"
#include "platform/base/RuntimeError.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/StepText.hpp"

namespace {

using namespace mobrel;
using namespace mobrel::batch;

constexpr int kWidth = 5;
constexpr int kHeight = 4;

void require(bool law, const char* text) {
    if (law) return;
    std::fprintf(stderr, "broken: %s\n", text);
    std::abort();
}

std::optional<Step> stepOf(std::string_view text) {
    try {
        return parseStep(text);
    } catch (const UsageError& error) {
        const std::string_view reason = error.what();
        require(!reason.empty() && reason.find('\n') == std::string_view::npos, "a reason is one line");
        return std::nullopt;
    }
}

bool isWhole(double number) {
    return number == std::floor(number);
}

void checkValues(const Step& step) {
    const std::vector<Argument>& arguments = step.kind->arguments;
    require(step.values.numbers.size() == arguments.size(), "every argument has a value");
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        require(step.values.numbers[i] || arguments[i].isOptional, "what is not optional has a value");
        const double value = step.values.numbers[i].value_or(arguments[i].least);
        require(value >= arguments[i].least && value <= arguments[i].greatest, "values are in range");
        require(value != arguments[i].except, "the excepted value is refused");
        require(arguments[i].kind == ArgumentKind::Float || isWhole(value), "integers have no fraction");
    }
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return upper;
}

// The same few colours in every run, with black, white and greys among them.
void fill(cDIB& surface) {
    require(surface.Create(kWidth, kHeight, 0), "a small surface can be made");
    for (int i = 0; i < kWidth * kHeight * 4; ++i) {
        if (i % 4 != 3) surface.DIBitsPtr()[i] = static_cast<std::uint8_t>(i / 4 * (i % 4 + 1) * 37);
    }
    std::fill_n(surface.DIBitsPtr(), 3, std::uint8_t{255});
}

// A picture of more than a few thousand pixels takes too long here.
bool isLarge(const Step& step) {
    constexpr double kMostSide = 100;
    return step.kind->name == "Resize" &&
           std::any_of(step.values.numbers.begin(), step.values.numbers.end(),
                       [](std::optional<double> number) { return number.value_or(0) > kMostSide; });
}

void checkRun(const Step& step) {
    Document document;
    fill(document.surface);
    RandomSource random;
    cDIBFilter filter(random);
    try {
        step.kind->prepare(step.values, {})(document, filter);
    } catch (const RuntimeError& error) {
        require(false, error.what());
    } catch (const UsageError&) {
        return;  // values that do not go together
    } catch (const Failure&) {
        return;  // sizes that this picture does not bear
    }
    require(document.surface.hDIB() != nullptr, "there is a picture");
    const bool setsDepth = step.kind->name == "Depth";
    require(setsDepth || document.depth == 24, "the result is in true colour");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::optional<Step> step = stepOf(text);
    if (!step) return 0;
    checkValues(*step);
    // A file's name is not the same in upper case, and files are not opened here.
    if (!step->values.file.empty() || isLarge(*step)) return 0;
    const std::optional<Step> upper = stepOf(upperCase(text));
    require(upper && upper->kind == step->kind && upper->values == step->values, "letter case is nothing");
    checkRun(*step);
    return 0;
}
