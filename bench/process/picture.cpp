// SPDX-License-Identifier: MIT
// Writes the benchmarks' picture as a BMP file of 24 bits: mobrel-bench-picture WxH FILE. A program of its
// own, since what the measuring program once held would count as the memory of those it starts.
#include <cstdio>
#include <exception>

#include "imaging/cDIBSave.hpp"
#include "support/Arguments.hpp"
#include "support/PhotoPicture.hpp"

int main(int argc, char** argv) {
    const auto size = argc == 3 ? mobrel::bench::sizeOf(argv[1]) : std::nullopt;
    if (!size) return 2;
    try {
        mobrel::cDIB photo;
        if (!photo.Create(size->width, size->height, 0)) return 1;
        mobrel::bench::paintPhoto(photo);
        mobrel::cDIBSave().Save_BMP(argv[2], photo, {}, nullptr, 24);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "mobrel-bench-picture: %s\n", error.what());
        return 1;
    }
    return 0;
}
