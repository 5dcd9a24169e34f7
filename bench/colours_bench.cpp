// SPDX-License-Identifier: MIT
#include "colours_bench.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "imaging/ColourDepth.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/cDIBPal.hpp"
#include "support/DitherRecipes.hpp"
#include "support/EventLog.hpp"
#include "support/PaletteRecipes.hpp"
#include "support/PictureBench.hpp"
#include "support/TestPictures.hpp"

namespace mobrel::bench {
namespace {

using test::EventLog;
using test::Picture;

template <typename Value>
void keep(cDIB& picture, std::span<const Value> values) {
    const auto room = static_cast<std::size_t>(picture.Size());
    std::memcpy(picture.DIBitsPtr(), values.data(), std::min(room, values.size_bytes()));
}

PictureOperation builder(std::string name, const std::function<void(cDIBPal&, const cDIB&)>& build,
                         const std::function<recipes::Palette(const Picture&)>& buildPlainly) {
    return {"palettes", std::move(name),
            [build](cDIB& picture) {
                cDIBPal palette;
                build(palette, picture);
                const auto count = static_cast<std::size_t>(palette.Count());
                keep(picture, std::span<const RgbQuad>(palette.PalettePtr(), count));
            },
            [buildPlainly](cDIB& picture) {
                const recipes::Palette palette = buildPlainly(test::fromSurface(picture));
                keep(picture, std::span<const recipes::Entry>(palette.entries));
            }};
}

/// The 4,096 nearest colours that a reduction to 256 colours asks for.
PictureOperation closestColors() {
    return {"palettes", "ClosestColors_4096",
            [](cDIB& picture) {
                cDIBPal palette;
                palette.CreateWebsafe();
                keep(picture, std::span<const std::uint8_t>(palette.hPal()->cube()));
            },
            [](cDIB& picture) {
                const recipes::Palette palette = recipes::createWebsafe();
                std::vector<std::uint8_t> nearest;
                for (int colour = 0; colour < 4096; ++colour) {
                    const auto level = [&](int shift) { return (colour >> shift & 15) * 17; };
                    nearest.push_back(recipes::closestColor(palette, level(0), level(4), level(8)));
                }
                keep(picture, std::span<const std::uint8_t>(nearest));
            }};
}

std::vector<PictureOperation> builders() {
    const auto fixed = [](std::string name, void (cDIBPal::*build)(), recipes::Palette (*plain)()) {
        return builder(
            std::move(name), [build](cDIBPal& palette, const cDIB&) { (palette.*build)(); },
            [plain](const Picture&) { return plain(); });
    };
    const auto optimal = [](std::string name, int size, float r, float g, float b) {
        return builder(
            std::move(name),
            [=](cDIBPal& palette, const cDIB& DIB) { palette.CreateOptimal(DIB, size, 8, r, g, b); },
            [=](const Picture& D) { return recipes::createOptimal(D, size, 8, r, g, b); });
    };
    return {fixed("CreateBlackAndWhite", &cDIBPal::CreateBlackAndWhite, recipes::createBlackAndWhite),
            fixed("CreateEGA", &cDIBPal::CreateEGA, recipes::createEGA),
            fixed("CreateHalftone", &cDIBPal::CreateHalftone, recipes::createHalftone),
            fixed("CreateWebsafe", &cDIBPal::CreateWebsafe, recipes::createWebsafe),
            fixed("CreateGreys_016", &cDIBPal::CreateGreys_016, recipes::createGreys016),
            fixed("CreateGreys_256", &cDIBPal::CreateGreys_256, recipes::createGreys256),
            closestColors(),
            builder("CreateFastOptimal_016", &cDIBPal::CreateFastOptimal_016, recipes::createFastOptimal016),
            builder("CreateFastOptimal_256", &cDIBPal::CreateFastOptimal_256, recipes::createFastOptimal256),
            optimal("CreateOptimal_16", 16, 0.36F, 0.436F, 0.341F),
            optimal("CreateOptimal_256", 256, 1, 1, 1)};
}

void listen(cDIBDither& dither) {
    dither.Progress.connect([](std::int32_t) {});
    dither.ProgressEnd.connect([] {});
}

PictureOperation reducer(std::string name, const std::function<void(cDIBDither&, cDIB&)>& reduce,
                         const std::function<void(Picture&)>& reducePlainly) {
    return {"reducers", std::move(name),
            [reduce](cDIB& picture) {
                cDIBDither dither;
                listen(dither);
                reduce(dither, picture);
            },
            [reducePlainly](cDIB& picture) {
                Picture plain = test::fromSurface(picture);
                reducePlainly(plain);
                test::toSurface(plain, picture);
            }};
}

PictureOperation blackAndWhite() {
    return reducer(
        "DitherToBlackAndWhite", [](cDIBDither& dither, cDIB& DIB) { dither.DitherToBlackAndWhite(DIB, 15); },
        [](Picture& D) {
            recipes::IndexMap map;
            EventLog log;
            recipes::ditherToBlackAndWhite(D, map, 15, log);
        });
}

PictureOperation greys(std::string name, void (cDIBPal::*build)(), recipes::Palette (*plain)(),
                       bool diffuse) {
    return reducer(
        std::move(name),
        [=](cDIBDither& dither, cDIB& DIB) {
            cDIBPal palette;
            (palette.*build)();
            dither.DitherToGreyPalette(DIB, palette, diffuse);
        },
        [=](Picture& D) {
            recipes::IndexMap map;
            EventLog log;
            recipes::ditherToGreyPalette(D, map, plain(), diffuse, log);
        });
}

PictureOperation colors(std::string name, void (cDIBPal::*build)(), recipes::Palette (*plain)()) {
    return reducer(
        std::move(name),
        [=](cDIBDither& dither, cDIB& DIB) {
            cDIBPal palette;
            (palette.*build)();
            dither.DitherToColorPalette(DIB, palette, true);
        },
        [=](Picture& D) {
            recipes::IndexMap map;
            EventLog log;
            recipes::ditherToColorPalette(D, map, plain(), true, log);
        });
}

PictureOperation trueColor() {
    return reducer(
        "DitherToTrueColor", [](cDIBDither& dither, cDIB& DIB) { dither.DitherToTrueColor(DIB); },
        [](Picture&) {});
}

PictureOperation countColors() {
    const auto keepCount = [](cDIB& picture, std::int32_t count) {
        keep(picture, std::span<const std::int32_t>(&count, 1));
    };
    return {
        "reducers", "CountColors",
        [keepCount](cDIB& picture) { keepCount(picture, cDIBDither().CountColors(picture)); },
        [keepCount](cDIB& picture) { keepCount(picture, recipes::countColors(test::fromSurface(picture))); }};
}

PictureOperation depthCommand(std::string name, DepthCommand command) {
    return {"depth", std::move(name),
            [command](cDIB& picture) {
                cDIBPal palette;
                cDIBDither dither;
                std::uint8_t bpp = 24;
                listen(dither);
                changeDepth(command, {picture, palette, dither, bpp}, [](bool) {});
            },
            [command](cDIB& picture) {
                recipes::Document document{test::fromSurface(picture), {}, {}, 24};
                EventLog log;
                recipes::depthCommand(document, static_cast<int>(command), log);
                test::toSurface(document.picture, picture);
            }};
}

}  // namespace

std::vector<PictureOperation> colourOperations() {
    std::vector<PictureOperation> operations = builders();
    for (auto& operation :
         {blackAndWhite(),
          greys("DitherToGreyPalette_16", &cDIBPal::CreateGreys_016, recipes::createGreys016, true),
          greys("DitherToGreyPalette_256", &cDIBPal::CreateGreys_256, recipes::createGreys256, false),
          colors("DitherToColorPalette_16", &cDIBPal::CreateEGA, recipes::createEGA),
          colors("DitherToColorPalette_256", &cDIBPal::CreateWebsafe, recipes::createWebsafe), trueColor(),
          countColors(), depthCommand("BlackAndWhite", DepthCommand::BlackAndWhite),
          depthCommand("Greys16", DepthCommand::Greys16), depthCommand("Greys256", DepthCommand::Greys256),
          depthCommand("Colors16", DepthCommand::Colors16),
          depthCommand("Colors256", DepthCommand::Colors256)}) {
        operations.push_back(operation);
    }
    return operations;
}

}  // namespace mobrel::bench
