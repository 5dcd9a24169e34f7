// SPDX-License-Identifier: MIT
// Paints a sample picture: a lake at dusk. The same bytes on every run and every machine.
//
//     mobrel-sample FILE [WIDTH HEIGHT]
#include <charconv>
#include <cstdio>
#include <optional>
#include <string_view>
#include <system_error>

#include "Lake.hpp"
#include "imaging/cDIB.hpp"
#include "imaging/cDIBPal.hpp"
#include "imaging/cDIBSave.hpp"
#include "platform/base/RuntimeError.hpp"

namespace {

constexpr int kMaximumSide = 16384;

std::optional<int> sideOf(std::string_view text) {
    int value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
    if (value < 1 || value > kMaximumSide) return std::nullopt;
    return value;
}

}  // namespace

int main(int argc, char** argv) {
    std::optional<int> width = 640;
    std::optional<int> height = 480;
    if (argc == 4) {
        width = sideOf(argv[2]);
        height = sideOf(argv[3]);
    }
    if ((argc != 2 && argc != 4) || !width || !height) {
        std::fputs(
            "usage: mobrel-sample FILE [WIDTH HEIGHT]\nsides from 1 to 16384 pixels, 640 x 480 when not "
            "given\n",
            stderr);
        return 2;
    }

    const auto error = mobrel::fatalErrorOf([&] {
        mobrel::cDIB picture;
        if (!picture.Create(*width, *height, 0)) throw mobrel::RuntimeError(mobrel::ErrorNumber::OutOfMemory);
        sample::paintLake(picture);
        mobrel::cDIBSave().Save_BMP(argv[1], picture, mobrel::cDIBPal(), nullptr, 24);
    });
    if (error) {
        std::fprintf(stderr, "mobrel-sample: %s: %s\n", argv[1], error->c_str());
        return 1;
    }
    return 0;
}
