// SPDX-License-Identifier: MIT
#include "filters/FilterCatalogue.hpp"

#include <algorithm>
#include <limits>

namespace mobrel {

namespace {

constexpr double kLeastInt = std::numeric_limits<std::int32_t>::min();
constexpr double kGreatestInt = std::numeric_limits<std::int32_t>::max();

constexpr FilterArgument integer(std::string_view name, double least, double greatest,
                                 std::optional<double> preset = {}, std::optional<double> except = {}) {
    return {name, ArgumentKind::Integer, least, greatest, preset, except};
}
constexpr FilterArgument anyInteger(std::string_view name, std::optional<double> preset = {}) {
    return integer(name, kLeastInt, kGreatestInt, preset);
}
constexpr FilterArgument real(std::string_view name, double least, double greatest, double preset) {
    return {name, ArgumentKind::Float, least, greatest, preset, {}};
}
constexpr FilterArgument boolean(std::string_view name, bool preset) {
    return {name, ArgumentKind::Boolean, 0, 1, preset ? 1.0 : 0.0, {}};
}
constexpr FilterArgument color(std::string_view name) {
    return {name, ArgumentKind::Rgb, 0, 0xFFFFFF, {}, {}};
}
constexpr FilterArgument texture(std::string_view name) {
    return {name, ArgumentKind::Texture, 0, 0, {}, {}};
}

template <typename... Arguments>
constexpr FilterEntry entry(int slot, std::string_view name, std::string_view meaning, Border border,
                            Cadence cadence, Arguments... arguments) {
    return {slot, name, meaning, border, cadence, {arguments...}, sizeof...(arguments)};
}

using enum Border;
using enum Cadence;

}  // namespace

// A range ends before a result leaves its 32 bits or its byte, a divisor becomes 0 or a loop does not end.
// Where that is far away it ends at a round number; where values further out would work again, as they do
// for Blur from 2150, it stays closed: nobody wants them.
constexpr std::array<FilterEntry, kFilterCount> kFilterCatalogue = {{
    entry(1, "Blur", "mean of the 3 x 3 pixels around", Spared, EachRow,
          integer("Level", -8421395, 101, 100)),
    entry(2, "Contour", "dark lines along edges, on white", Spared, EachRow),
    entry(3, "Contrast", "contrast about the picture's own mean brightness, in percent", Changed, HalfRows,
          integer("Level", -421075000, 421075000)),
    entry(4, "Colorize", "repaints in one hue and keeps the brightness; sepia unless told otherwise", Changed,
          EachRow, real("Hue", -1, 5, 0.5), real("Saturation", -1, 1, 0.25), real("Luminosity", 0, 1, 1)),
    entry(5, "Despeckle", "softens specks", Spared, QuarterRows),
    entry(6, "DespeckleMore", "softens specks more", Spared, QuarterRows),
    entry(7, "Diffuse", "swaps pixels for random ones nearby", Changed, EachStep,
          integer("xRange", -1073741824, 1073741823, 1), integer("yRange", -1073741824, 1073741823, 1),
          anyInteger("DiffuseStep", 1)),
    entry(8, "Emboss", "a grey relief", Changed, HalfRows, integer("Level", -842150000, 842150000, 100),
          boolean("ConnectMargins", true)),
    entry(9, "Engrave", "a grey relief lit from the other side", Changed, HalfRows,
          integer("Level", -842150000, 842150000, 100), boolean("ConnectMargins", true)),
    entry(10, "Greys", "weighted grey", Changed, EachRow),
    entry(11, "Negative", "the complement of every channel", Changed, EachRow),
    entry(12, "Noise", "adds grey noise", Changed, EachStep, integer("Level", -1073741824, 1073741823, 5),
          integer("xyStep", 1, kGreatestInt, 1)),
    entry(13, "Outline", "smooths and draws edges, dark for a negative level", Spared, HalfRows,
          integer("Level", -210000000, 210000000, -50), integer("Shift", -1073000000, 1073000000, 5)),
    entry(14, "Pixelize", "mosaic of block means", Changed, EachRow, integer("PixelSize", 1, 2901, 2)),
    entry(15, "RankFilterMaximum", "dilates: the largest of five pixels", Spared, EachRow),
    entry(16, "RankFilterMinimum", "erodes: the smallest of five pixels", Spared, EachRow),
    entry(17, "Relieve", "a coloured relief", Spared, EachRow,
          integer("Level", -84214000, 84214000, 75, 101)),
    entry(18, "ReplaceHS", "moves colours near one in hue and saturation towards another", Changed, EachRow,
          color("ColorFrom"), color("ColorTo"), integer("Tolerance", -36345, 36345), anyInteger("HTolerance"),
          anyInteger("STolerance")),
    entry(19, "ReplaceL", "moves colours near one in luminosity towards another", Changed, EachRow,
          color("ColorFrom"), color("ColorTo"), integer("Tolerance", -36345, 36345),
          anyInteger("LTolerance")),
    entry(20, "SaltAndPepperRemoval", "replaces pixels that differ from the ring around them", Spared,
          EachRow, anyInteger("Threshold")),
    entry(21, "Saturation", "more or less colour, in percent", Changed, EachRow,
          integer("Level", -1263225000, 1263225000)),
    entry(22, "ScanLines", "brightens and darkens rows in turn, in percent", Changed, EachStep,
          integer("BlackLevel", 0, kGreatestInt, 20), integer("WhiteLevel", -100, kGreatestInt, 20)),
    entry(23, "Sharpen", "strengthens details", Spared, EachRow,
          FilterArgument{"Level", ArgumentKind::Integer, kLeastInt, kGreatestInt, 85, 101}),
    entry(24, "Shift", "adds to the channels of colours near one", Changed, EachRow, color("ColorFrom"),
          anyInteger("Inc"), integer("Tolerance", -36345, 36345)),
    entry(25, "ShiftRGB", "adds to each channel", Changed, EachRow, anyInteger("RInc"), anyInteger("GInc"),
          anyInteger("BInc")),
    entry(26, "Soften", "mean of the pixel and its four neighbours", Spared, EachRow,
          integer("Level", -8421399, 101, 95)),
    entry(27, "Texturize", "lays a grey texture over the picture", Changed, EachStep, texture("File")),
}};

static_assert(std::ranges::all_of(kFilterCatalogue, [](const FilterEntry& entry) {
    return entry.slot == &entry - kFilterCatalogue.data() + 1;
}));

}  // namespace mobrel
