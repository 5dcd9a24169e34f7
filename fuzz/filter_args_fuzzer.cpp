// SPDX-License-Identifier: MIT
// Fuzz target of the filters: any operation with any arguments in range gives the bytes and events of its
// plain recipe, and no error.
//
// An input is the operation's place in the catalogue, width - 1, height - 1, five bytes for each argument
// (how to take it, and a number), the texture's width - 1 and height - 1 where there is one, and then samples
// of blue, green and red, repeated as often as needed.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <span>
#include <string>

#include "filters/FilterCatalogue.hpp"
#include "support/EventLog.hpp"
#include "support/FilterRun.hpp"
#include "support/RecipeCall.hpp"
#include "support/TestPictures.hpp"

namespace {

using namespace mobrel;
using test::Picture;

constexpr int kMostSide = 12;

/// The bytes of an input one after the other; 0 behind the last.
class Input {
 public:
    explicit Input(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

    std::uint8_t byte() {
        if (m_rest.empty()) return 0;
        const std::uint8_t first = m_rest.front();
        m_rest = m_rest.subspan(1);
        return first;
    }
    std::uint32_t word() {
        std::uint32_t value = 0;
        for (int shift = 0; shift < 32; shift += 8) value |= std::uint32_t{byte()} << shift;
        return value;
    }
    int side() { return 1 + byte() % kMostSide; }
    std::span<const std::uint8_t> rest() const { return m_rest; }

 private:
    std::span<const std::uint8_t> m_rest;
};

double integerValue(const Argument& argument, std::uint8_t choice, std::uint32_t word) {
    const double span = argument.greatest - argument.least + 1;
    const double remarkable = argument.except.value_or(argument.preset.value_or(0));
    double value = 0;
    switch (choice % 4) {
        case 0:
            value = argument.least + std::fmod(word, span);
            break;
        case 1:
            value = static_cast<std::int16_t>(word);
            break;
        case 2:
            value = word % 2 == 0 ? argument.least : argument.greatest;
            break;
        default:
            value = remarkable + word % 3 - 1;
    }
    value = std::clamp(value, argument.least, argument.greatest);
    return value == argument.except ? argument.greatest : value;
}

double valueOf(const Argument& argument, Input& input) {
    const std::uint8_t choice = input.byte();
    const std::uint32_t word = input.word();
    if (argument.kind == ArgumentKind::Integer) return integerValue(argument, choice, word);
    if (argument.kind == ArgumentKind::Float) {
        return argument.least + (argument.greatest - argument.least) * (word / 4294967295.0);
    }
    return word % (static_cast<std::uint32_t>(argument.greatest) + 1);
}

/// Takes its samples from the bytes, from the first again behind the last.
Picture pictureOf(int width, int height, std::span<const std::uint8_t> samples) {
    Picture picture(width, height, {0, 0, 0, test::kSentinel});
    if (samples.empty()) return picture;
    std::size_t next = 0;
    for (test::Pixel& pixel : picture.pixels) {
        for (const std::size_t channel : test::kChannels) {
            pixel[channel] = samples[next];
            next = (next + 1) % samples.size();
        }
    }
    return picture;
}

[[noreturn]] void fail(const FilterEntry& entry, const test::Values& values, const std::string& what) {
    std::fprintf(stderr, "filter_args_fuzzer: %s", std::string(entry.name).c_str());
    for (std::size_t i = 0; i < entry.argumentCount; ++i) std::fprintf(stderr, " %.9g", values[i]);
    std::fprintf(stderr, ": %s\n", what.c_str());
    std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input({data, size});
    const FilterEntry& entry = kFilterCatalogue[input.byte() % kFilterCount];
    const int width = input.side(), height = input.side();
    test::Values values{};
    Picture texture(1, 1);
    for (std::size_t i = 0; i < entry.argumentCount; ++i) {
        if (entry.arguments()[i].kind == ArgumentKind::Texture) {
            const int textureWidth = input.side(), textureHeight = input.side();
            texture = pictureOf(textureWidth, textureHeight, input.rest());
        } else {
            values[i] = valueOf(entry.arguments()[i], input);
        }
    }
    const Picture picture = pictureOf(width, height, input.rest());
    Picture expected = picture;
    test::EventLog log;
    try {
        const test::FilterOutcome outcome = outcomeOf(entry, values, texture, picture);
        if (outcome.error) throw RuntimeError(*outcome.error);
        recipes::callRecipe(entry.name, expected, values, texture, log);
        const std::string difference = firstDifference(expected, outcome.picture);
        if (!difference.empty()) fail(entry, values, difference);
        if (outcome.events != log.toString()) {
            fail(entry, values, "events " + outcome.events + ", expected " + log.toString());
        }
    } catch (const std::exception& error) {
        fail(entry, values, error.what());
    }
    return 0;
}
