// SPDX-License-Identifier: MIT
// Every filter gives the bytes and events of its recipe with each set of instructions that this processor
// has, and with none.
#include <gtest/gtest.h>

#include <cstdint>

#include "filters/FilterCatalogue.hpp"
#include "platform/Processor.hpp"
#include "support/FilterRun.hpp"
#include "support/RecipeCall.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::firstDifference;
using test::textOf;

/// Lets the kernels use these instructions only.
class OnlyTarget {
 public:
    explicit OnlyTarget(std::int64_t target) { chosenTargets().Update(target); }
    ~OnlyTarget() { chosenTargets().Update(processorTargets()); }
    OnlyTarget(const OnlyTarget&) = delete;
    OnlyTarget& operator=(const OnlyTarget&) = delete;
};

void expectRecipes(const test::Picture& picture, const test::Picture& texture) {
    for (const FilterEntry& entry : kFilterCatalogue) {
        const test::Values values = test::presetsOf(entry);
        test::Picture expected = picture;
        test::EventLog log;
        recipes::callRecipe(entry.name, expected, values, texture, log);
        const test::Outcome outcome = test::outcomeOf(entry, values, texture, picture);
        ASSERT_EQ(firstDifference(expected, outcome.picture), "") << textOf(entry, values);
        ASSERT_EQ(log.toString(), outcome.events) << textOf(entry, values);
    }
}

TEST(Processors, AllGiveTheSameBytes) {
    const test::Picture texture = test::textureOf(5, 3);
    int targets = 0;
    for (std::int64_t rest = processorTargets(); rest != 0; rest &= rest - 1) {
        const std::int64_t target = rest & -rest;
        SCOPED_TRACE(hwy::TargetName(target));
        const OnlyTarget only(target);
        for (const int width : {1, 2, 3, 5, 6, 9, 10, 17, 18, 19, 33, 34, 35, 50, 67}) {
            for (const auto& [name, picture] : test::sweepPictures({width, 5})) {
                SCOPED_TRACE(name);
                expectRecipes(picture, texture);
            }
        }
        ++targets;
    }
    EXPECT_GT(targets, 1);
}

}  // namespace
}  // namespace mobrel
