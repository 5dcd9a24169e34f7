// SPDX-License-Identifier: MIT
#include "filters/FilterCatalogue.hpp"

#include <cstdint>
#include <limits>
#include <utility>

#include "platform/base/RuntimeError.hpp"

namespace mobrel {

namespace {

using Filter = cDIBFilter;

constexpr double kLeastInt = std::numeric_limits<std::int32_t>::min();
constexpr double kGreatestInt = std::numeric_limits<std::int32_t>::max();

constexpr Argument integer(std::string_view name, double least, double greatest,
                           std::optional<double> preset = {}, std::optional<double> except = {}) {
    return {name, ArgumentKind::Integer, least, greatest, preset, except};
}
constexpr Argument anyInteger(std::string_view name, std::optional<double> preset = {}) {
    return integer(name, kLeastInt, kGreatestInt, preset);
}
constexpr Argument real(std::string_view name, double least, double greatest, double preset) {
    return {name, ArgumentKind::Float, least, greatest, preset, {}};
}
constexpr Argument boolean(std::string_view name, bool preset) {
    return {name, ArgumentKind::Boolean, 0, 1, preset ? 1.0 : 0.0, {}};
}
constexpr Argument color(std::string_view name) {
    return {name, ArgumentKind::Rgb, 0, 0xFFFFFF, {}, {}};
}
constexpr Argument texture(std::string_view name) {
    return {name, ArgumentKind::Texture, 0, 0, {}, {}};
}

// An argument's value in the type of the operation's parameter.
template <typename Parameter>
Parameter valueFor(const ArgumentValues& values, std::size_t place) {
    return static_cast<Parameter>(values.numbers[place]);
}
template <>
const cDIB& valueFor<const cDIB&>(const ArgumentValues& values, std::size_t) {
    if (values.texture == nullptr) throw RuntimeError(ErrorNumber::InvalidCall);
    return *values.texture;
}

template <typename... Parameters, std::size_t... Places>
void callOn(cDIB& DIB, Filter& filter, void (Filter::*operation)(cDIB&, Parameters...),
            const ArgumentValues& values, std::index_sequence<Places...>) {
    (filter.*operation)(DIB, valueFor<Parameters>(values, Places)...);
}

template <auto kOperation, typename... Arguments>
constexpr FilterEntry entry(std::string_view name, std::string_view meaning, Border border, Cadence cadence,
                            Arguments... arguments) {
    const auto apply = [](Filter& filter, cDIB& DIB, const ArgumentValues& values) {
        callOn(DIB, filter, kOperation, values, std::index_sequence_for<Arguments...>());
    };
    return {name, meaning, border, cadence, apply, {arguments...}, sizeof...(arguments)};
}

using enum Border;
using enum Cadence;

}  // namespace

// A range ends before a result leaves its 32 bits or its byte, a divisor becomes 0 or a loop does not end.
// Where that is far away it ends at a round number; where values further out would work again, as they do
// for Blur from 2150, it stays closed: nobody wants them.
constexpr std::array<FilterEntry, kFilterCount> kFilterCatalogue = {{
    entry<&Filter::Blur>("Blur", "mean of the 3 x 3 pixels around", Spared, EachRow,
                         integer("Level", -8421395, 101, 100)),
    entry<&Filter::Contour>("Contour", "dark lines along edges, on white", Spared, EachRow),
    entry<&Filter::Contrast>("Contrast", "contrast about the picture's own mean brightness, in percent",
                             Changed, HalfRows, integer("Level", -421075000, 421075000)),
    entry<&Filter::Colorize>(
        "Colorize", "repaints in one hue and keeps the brightness; sepia unless told otherwise", Changed,
        EachRow, real("Hue", -1, 5, 0.5), real("Saturation", -1, 1, 0.25), real("Luminosity", 0, 1, 1)),
    entry<&Filter::Despeckle>("Despeckle", "softens specks", Spared, QuarterRows),
    entry<&Filter::DespeckleMore>("DespeckleMore", "softens specks more", Spared, QuarterRows),
    entry<&Filter::Diffuse>("Diffuse", "swaps pixels for random ones nearby", Changed, EachStep,
                            integer("xRange", -1073741824, 1073741823, 1),
                            integer("yRange", -1073741824, 1073741823, 1), anyInteger("DiffuseStep", 1)),
    entry<&Filter::Emboss>("Emboss", "a grey relief", Changed, HalfRows,
                           integer("Level", -842150000, 842150000, 100), boolean("ConnectMargins", true)),
    entry<&Filter::Engrave>("Engrave", "a grey relief lit from the other side", Changed, HalfRows,
                            integer("Level", -842150000, 842150000, 100), boolean("ConnectMargins", true)),
    entry<&Filter::Greys>("Greys", "weighted grey", Changed, EachRow),
    entry<&Filter::Negative>("Negative", "the complement of every channel", Changed, EachRow),
    entry<&Filter::Noise>("Noise", "adds grey noise", Changed, EachStep,
                          integer("Level", -1073741824, 1073741823, 5),
                          integer("xyStep", 1, kGreatestInt, 1)),
    entry<&Filter::Outline>("Outline", "smooths and draws edges, dark for a negative level", Spared, HalfRows,
                            integer("Level", -210000000, 210000000, -50),
                            integer("Shift", -1073000000, 1073000000, 5)),
    entry<&Filter::Pixelize>("Pixelize", "mosaic of block means", Changed, EachRow,
                             integer("PixelSize", 1, 2901, 2)),
    entry<&Filter::RankFilterMaximum>("RankFilterMaximum", "dilates: the largest of five pixels", Spared,
                                      EachRow),
    entry<&Filter::RankFilterMinimum>("RankFilterMinimum", "erodes: the smallest of five pixels", Spared,
                                      EachRow),
    entry<&Filter::Relieve>("Relieve", "a coloured relief", Spared, EachRow,
                            integer("Level", -84214000, 84214000, 75, 101)),
    entry<&Filter::ReplaceHS>("ReplaceHS", "moves colours near one in hue and saturation towards another",
                              Changed, EachRow, color("ColorFrom"), color("ColorTo"),
                              integer("Tolerance", -36345, 36345), anyInteger("HTolerance"),
                              anyInteger("STolerance")),
    entry<&Filter::ReplaceL>("ReplaceL", "moves colours near one in luminosity towards another", Changed,
                             EachRow, color("ColorFrom"), color("ColorTo"),
                             integer("Tolerance", -36345, 36345), anyInteger("LTolerance")),
    entry<&Filter::SaltAndPepperRemoval>("SaltAndPepperRemoval",
                                         "replaces pixels that differ from the ring around them", Spared,
                                         EachRow, anyInteger("Threshold")),
    entry<&Filter::Saturation>("Saturation", "more or less colour, in percent", Changed, EachRow,
                               integer("Level", -1263225000, 1263225000)),
    entry<&Filter::ScanLines>("ScanLines", "brightens and darkens rows in turn, in percent", Changed,
                              EachStep, integer("BlackLevel", 0, kGreatestInt, 20),
                              integer("WhiteLevel", -100, kGreatestInt, 20)),
    entry<&Filter::Sharpen>("Sharpen", "strengthens details", Spared, EachRow,
                            integer("Level", kLeastInt, kGreatestInt, 85, 101)),
    entry<&Filter::Shift>("Shift", "adds to the channels of colours near one", Changed, EachRow,
                          color("ColorFrom"), anyInteger("Inc"), integer("Tolerance", -36345, 36345)),
    entry<&Filter::ShiftRGB>("ShiftRGB", "adds to each channel", Changed, EachRow, anyInteger("RInc"),
                             anyInteger("GInc"), anyInteger("BInc")),
    entry<&Filter::Soften>("Soften", "mean of the pixel and its four neighbours", Spared, EachRow,
                           integer("Level", -8421399, 101, 95)),
    entry<&Filter::Texturize>("Texturize", "lays a grey texture over the picture", Changed, EachStep,
                              texture("File")),
}};

}  // namespace mobrel
