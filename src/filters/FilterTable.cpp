// SPDX-License-Identifier: MIT
#include "filters/FilterTable.hpp"

#include "platform/base/Numbers.hpp"

namespace mobrel {

namespace {

using Filter = cDIBFilter;
using Values = FilterValues;

/// The slider's hundred steps go once around the circle of hues, -1 to 5, and begin at 0.
float hueOf(std::int32_t slider) {
    const std::int32_t step = roundInt(slider * 2.4);
    return static_cast<float>((step > 200 ? step - 240 : step) / 40.0);
}

float hundredth(std::int32_t slider) {
    return static_cast<float>(slider / 100.0);
}

/// Calls the operation with the values of those sliders.
template <auto kOperation, std::size_t... kSliders>
void bySliders(Filter& filter, cDIB& DIB, [[maybe_unused]] const Values& values) {
    (filter.*kOperation)(DIB, values.sliders[kSliders]...);
}

constexpr FilterSlider kStrength = {"Level", 1, 25, 1};
/// What the sliders of strength are added to.
constexpr std::int32_t kWeakest = 75;

}  // namespace

const std::array<FilterTableEntry, 28> kFilterTable = {{
    {"<None>", [](Filter&, cDIB&, const Values&) {}},
    {"Blur", [](Filter& f, cDIB& d, const Values& v) { f.Blur(d, v.sliders[0] + kWeakest); }, {kStrength}},
    {"Brightness", bySliders<&Filter::ShiftRGB, 0, 0, 0>, {{{"Level", -255, 255, 0}}}},
    {"Colorize",
     [](Filter& f, cDIB& d, const Values& v) {
         f.Colorize(d, hueOf(v.sliders[0]), hundredth(v.sliders[1]), hundredth(v.sliders[2]));
     },
     {{{"Hue", 0, 100, 0}, {"Saturation", 0, 100, 50}, {"Luminosity", 0, 100, 100}}}},
    {"Contour", bySliders<&Filter::Contour>},
    {"Contrast", bySliders<&Filter::Contrast, 0>, {{{"Level", -100, 250, 0}}}},
    {"Despeckle", bySliders<&Filter::Despeckle>},
    {"Despeckle more", bySliders<&Filter::DespeckleMore>},
    {"Diffuse",
     bySliders<&Filter::Diffuse, 0, 1, 2>,
     {{{"Horizontal factor", 0, 100, 0}, {"Vertical factor", 0, 100, 0}, {"Step", 1, 10, 1}}}},
    {"Dilate", bySliders<&Filter::RankFilterMaximum>},
    {"Emboss",
     [](Filter& f, cDIB& d, const Values& v) { f.Emboss(d, v.sliders[0], true); },
     {{{"Level", 0, 200, 0}}}},
    {"Erode", bySliders<&Filter::RankFilterMinimum>},
    {"Greys", bySliders<&Filter::Greys>},
    {"Negative", bySliders<&Filter::Negative>},
    {"Noise", bySliders<&Filter::Noise, 0, 1>, {{{"Amount", 0, 200, 0}, {"Step", 1, 10, 1}}}},
    {"Outline", bySliders<&Filter::Outline, 0, 1>, {{{"Level", -100, 100, 0}, {"Shift", -50, 50, 0}}}},
    // kept: users know the list's spelling
    {"Pixelaze", bySliders<&Filter::Pixelize, 0>, {{{"Pixel size", 1, 25, 1}}}},
    {"Relieve", bySliders<&Filter::Relieve, 0>, {{{"Level", 1, 100, 1}}}},
    {"Replace HS",
     [](Filter& f, cDIB& d, const Values& v) {
         f.ReplaceHS(d, v.from, v.to, v.sliders[0], v.sliders[1], v.sliders[2]);
     },
     {{{"Extent", 0, 255, 0}, {"H Tolerance", 0, 100, 0}, {"S Tolerance", 0, 100, 0}}},
     FilterColors::FromAndTo},
    {"Replace L",
     [](Filter& f, cDIB& d, const Values& v) { f.ReplaceL(d, v.from, v.to, v.sliders[0], v.sliders[1]); },
     {{{"Extent", 0, 255, 0}, {"L Tolerance", 0, 100, 0}}},
     FilterColors::FromAndTo},
    {"RGB levels",
     bySliders<&Filter::ShiftRGB, 0, 1, 2>,
     {{{"Red", -255, 255, 0}, {"Green", -255, 255, 0}, {"Blue", -255, 255, 0}}}},
    {"Salt'n pepper removal",
     [](Filter& f, cDIB& d, const Values& v) { f.SaltAndPepperRemoval(d, 255 - v.sliders[0]); },
     {{{"Threshold", 0, 255, 0}}}},
    {"Saturation", bySliders<&Filter::Saturation, 0>, {{{"Level", -100, 250, 0}}}},
    {"Scanlines",
     bySliders<&Filter::ScanLines, 0, 1>,
     {{{"Black point", 0, 100, 0}, {"White point", 0, 100, 0}}}},
    {"Sepia", [](Filter& f, cDIB& d, const Values&) { f.Colorize(d, 0.5F, 0.25F, 1.0F); }},
    {"Sharpen",
     [](Filter& f, cDIB& d, const Values& v) { f.Sharpen(d, v.sliders[0] + kWeakest); },
     {kStrength}},
    {"Shift",
     [](Filter& f, cDIB& d, const Values& v) { f.Shift(d, v.from, v.sliders[0], v.sliders[1]); },
     {{{"Amount", -255, 255, 0}, {"Extent", 0, 255, 0}}},
     FilterColors::From},
    {"Soften",
     [](Filter& f, cDIB& d, const Values& v) { f.Soften(d, v.sliders[0] + kWeakest); },
     {kStrength}},
}};

}  // namespace mobrel
