// SPDX-License-Identifier: MIT
// Steps as they are written on the command line.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/base/NumberText.hpp"
#include "programs/batch/steps/Failure.hpp"
#include "programs/batch/steps/StepText.hpp"

namespace mobrel::batch {
namespace {

// What is thrown for a text; empty when it is taken.
std::string refusalOf(const std::string& text) {
    try {
        parseStep(text);
        return {};
    } catch (const UsageError& error) {
        return error.what();
    }
}

struct AcceptedCase {
    std::string_view text;
    std::string_view name;
    std::vector<std::optional<double>> numbers;
    std::string file = {};
};

TEST(StepText, isTakenInAnyOrderAndLetterCase) {
    const std::vector<AcceptedCase> cases = {
        {"Greys", "Greys", {}},
        {"gREYS", "Greys", {}},
        {"Blur", "Blur", {100}},
        {"blur:LEVEL=-8421395", "Blur", {-8421395}},
        {"Blur:Level=+7", "Blur", {7}},
        {"Blur:Level= 7 ", "Blur", {7}},
        {"Blur:Level=07", "Blur", {7}},
        {"Blur:Level=1e1", "Blur", {10}},
        {"Blur:Level=7.0", "Blur", {7}},
        {"Colorize", "Colorize", {0.5, 0.25, 1}},
        {"Colorize:Luminosity=.75,Hue=-1", "Colorize", {-1, 0.25, 0.75}},
        {"Emboss:ConnectMargins=No,Level=-3", "Emboss", {-3, 0}},
        {"Emboss:ConnectMargins=YES", "Emboss", {100, 1}},
        {"Emboss:ConnectMargins=false", "Emboss", {100, 0}},
        {"Emboss:ConnectMargins=True", "Emboss", {100, 1}},
        {"Emboss:ConnectMargins=0", "Emboss", {100, 0}},
        {"Emboss:ConnectMargins=1", "Emboss", {100, 1}},
        {"ShiftRGB:BInc=-20,RInc=20,GInc=0", "ShiftRGB", {20, 0, -20}},
        {"Shift:ColorFrom=#12aBfF,Inc=1,Tolerance=2", "Shift", {0xFFAB12, 1, 2}},
        {"ReplaceL:ColorFrom=#000001,ColorTo=#010000,Tolerance=0,LTolerance=0",
         "ReplaceL",
         {0x010000, 0x000001, 0, 0}},
        {"Resize:Height=3,Resample=no", "Resize", {std::nullopt, 3, std::nullopt, 0}},
        {"resize:percent=12.5", "Resize", {std::nullopt, std::nullopt, 12.5, 1}},
        {"Orientation:FlipV=true", "Orientation", {0, 0, 1}},
        {"Crop:Top=1,Left=2,Bottom=3,Right=4", "Crop", {2, 1, 4, 3}},
        {"depth:mode=COLORS16", "Depth", {3}},
        {"Relieve:Level=100", "Relieve", {100}},
        {"Relieve:Level=102", "Relieve", {102}},
        {"Texturize:file=a, b=c:d.bmp", "Texturize", {0}, "a, b=c:d.bmp"},
        {"Texturize:File=,", "Texturize", {0}, ","},
        {"Texturize:File= A,File=b", "Texturize", {0}, " A,File=b"},
    };
    for (const auto& [text, name, numbers, file] : cases) {
        const Step step = parseStep(text);
        EXPECT_EQ(step.kind->name, name) << text;
        EXPECT_EQ(step.values, (StepValues{numbers, file})) << text;
    }
}

TEST(StepText, isRefusedWithAReason) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        // unknown names, and the nearest known one
        {"", "there is no step  (--list shows all)"},
        {"Blurr", "there is no step Blurr, did you mean Blur?"},
        {"rankfiltermaximun", "did you mean RankFilterMaximum?"},
        {"shiftrbg:RInc=1", "did you mean ShiftRGB?"},
        {"gray", "did you mean Greys?"},
        {"Teleport", "there is no step Teleport (--list shows all)"},
        {"Blur Level=3", "there is no step"},
        {"Blur:Levle=3", "Blur has no argument Levle, did you mean Level?"},
        {"Noise:Step=3", "Noise has no argument Step, did you mean xyStep?"},
        {"Greys:Level=3", "Greys takes no arguments"},
        {"Bl\nur\x01", "there is no step Bl\\x0aur\\x01"},
        // what is missing or too much
        {"Contrast", "Level must be given, a whole number from -421075000 to 421075000"},
        {"ShiftRGB:RInc=1,BInc=1", "GInc must be given"},
        {"Texturize", "File must be given"},
        {"Texturize:File=", "File must be the path of a picture file"},
        {"Blur:Level=1,Level=1", "Level is given twice"},
        {"Blur:Level=1,level=1", "Level is given twice"},
        {"Blur:", "an argument is missing"},
        {"Greys:", "an argument is missing"},
        {"Blur:Level=1,", "an argument is missing"},
        {"Blur:,Level=1", "an argument is missing"},
        {"Blur:=1", "an argument is missing"},
        {"Blur:Level", "Level has no value"},
        {"Emboss:Level,ConnectMargins=1", "Level has no value"},
        // values
        {"Blur:Level=", "Level must be a whole number from -8421395 to 101"},
        {"Blur:Level=1=1", "Level must be a whole number"},
        {"Blur:Level=x", "Level must be a whole number"},
        {"Blur:Level=0x10", "Level must be a whole number"},
        {"Blur:Level=1.5", "Level must be a whole number"},
        {"Blur:Level=nan", "Level must be a whole number"},
        {"Blur:Level=1e400", "Level must be a whole number"},
        {"Blur:Level=#000001", "Level must be a whole number"},
        {"Relieve:Level=101", "from -84214000 to 84214000 but not 101"},
        {"Sharpen:Level=1.01e2", "from -2147483648 to 2147483647 but not 101"},
        {"Colorize:Hue=5.001", "Hue must be a number from -1 to 5"},
        {"Colorize:Saturation=-1.001", "Saturation must be a number from -1 to 1"},
        {"Colorize:Hue=0;5", "Hue must be a number"},
        {"Emboss:ConnectMargins=2", "ConnectMargins must be true or false"},
        {"Emboss:ConnectMargins=", "ConnectMargins must be true or false"},
        {"Shift:ColorFrom=000000", "ColorFrom must be a colour as #RRGGBB"},
        {"Shift:ColorFrom=#00000", "ColorFrom must be a colour as #RRGGBB"},
        {"Shift:ColorFrom=#0000000", "ColorFrom must be a colour as #RRGGBB"},
        {"Shift:ColorFrom=#00000g", "ColorFrom must be a colour as #RRGGBB"},
        {"Shift:ColorFrom=#+1+1+1", "ColorFrom must be a colour as #RRGGBB"},
        {"Depth", "Mode must be given, BlackAndWhite, Greys16, Greys256, Colors16, Colors256 or TrueColor"},
        {"Depth:Mode=2", "Mode must be BlackAndWhite, Greys16"},
        {"Shift:ColorFrom=red", "ColorFrom must be a colour as #RRGGBB"},
    };
    for (const auto& [text, words] : cases) {
        const std::string refusal = refusalOf(text);
        EXPECT_NE(refusal.find(words), std::string::npos) << text << " gives: " << refusal;
    }
}

// The text of a step that gives `value` to one argument and least values to the others.
std::string textWith(const StepKind& kind, const Argument& argument, double value) {
    std::string text(kind.name);
    char separator = ':';
    for (const Argument& other : kind.arguments) {
        const double number = &other == &argument ? value : other.least;
        text += separator + std::string(other.name) + "=";
        text += other.kind == ArgumentKind::Rgb ? "#000000" : textOf(number);
        separator = ',';
    }
    return text;
}

TEST(StepText, takesEveryArgumentToItsLimitsAndNotBeyond) {
    int limited = 0;
    for (const StepKind& kind : stepKinds()) {
        for (const Argument& argument : kind.arguments) {
            if (argument.kind >= ArgumentKind::Rgb) continue;  // these are no ranges of numbers
            ++limited;
            for (const double value : {argument.least, argument.greatest}) {
                EXPECT_EQ(refusalOf(textWith(kind, argument, value)), "");
            }
            for (const double value : {argument.least - 1, argument.greatest + 1}) {
                EXPECT_NE(refusalOf(textWith(kind, argument, value)), "") << textWith(kind, argument, value);
            }
        }
    }
    EXPECT_GT(limited, 20);
}

}  // namespace
}  // namespace mobrel::batch
