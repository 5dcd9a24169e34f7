// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <iterator>
#include <numeric>

#include "imaging/cDIBSave.hpp"
#include "platform/base/RuntimeError.hpp"
#include "support/TemporaryFolder.hpp"

namespace mobrel {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

std::uint32_t word(const Bytes& file, std::size_t at) {
    return static_cast<std::uint32_t>(file.at(at) | file.at(at + 1) << 8 | file.at(at + 2) << 16) |
           static_cast<std::uint32_t>(file.at(at + 3)) << 24;
}

/// Runs the statement while no file may grow beyond the limit, as on a full disk.
template <typename Statement>
auto withFileSizeLimit(rlim_t bytes, Statement statement) {
    rlimit earlier{};
    getrlimit(RLIMIT_FSIZE, &earlier);
    const auto earlierHandler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limited{bytes, earlier.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limited);
    const auto result = statement();
    setrlimit(RLIMIT_FSIZE, &earlier);
    std::signal(SIGXFSZ, earlierHandler);
    return result;
}

class SaveBmp : public testing::Test {
 protected:
    Bytes save(std::uint8_t bpp) {
        cDIBSave().Save_BMP(file, dib, palette, &dither, bpp);
        return contentsOf(file);
    }

    test::TemporaryFolder folder;
    std::string file = folder.path() + "/out.bmp";
    cDIB dib;
    cDIBPal palette;
    cDIBDither dither;
};

TEST_F(SaveBmp, TrueColourFileToTheByte) {
    ASSERT_TRUE(dib.Create(3, 2, 0));
    for (int i = 0; i < 24; ++i) dib.DIBitsPtr()[i] = static_cast<std::uint8_t>(i + 1);  // byte 3 included
    const Bytes expected = {
        'B', 'M', 64, 0,  0,  0,  0,  0,  0,  0, 54, 0, 0, 0,          // size without these 14 bytes
        40,  0,   0,  0,  3,  0,  0,  0,  2,  0, 0,  0, 1, 0,  24, 0,  //
        0,   0,   0,  0,  0,  0,  0,  0,  0,  0, 0,  0, 0, 0,  0,  0, 0, 0,
        0,   0,   0,  0,  0,  0,  1,  2,  3,  5, 6,  7, 9, 10, 11, 0, 0, 0,  // memory row 0, padded
        13,  14,  15, 17, 18, 19, 21, 22, 23, 0, 0,  0,
    };
    EXPECT_EQ(save(24), expected);
}

TEST_F(SaveBmp, StridesAndOffsetsOfEachDepth) {
    struct Case {
        int width, height;
        std::uint8_t bpp;
        std::uint32_t stride, offset;
    };
    const Case cases[] = {
        {1, 2, 1, 4, 62},  {33, 2, 1, 8, 62},  {5, 3, 4, 4, 118}, {9, 1, 4, 8, 118}, {5, 3, 8, 8, 1078},
        {2, 2, 24, 8, 54}, {4, 1, 24, 12, 54}, {3, 2, 16, 8, 54},  // no such document: a file of zero rows
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(dib.Create(c.width, c.height, 0x00FFFFFF));
        palette.InitializePalette(c.bpp < 9 ? 1 << c.bpp : 0);
        std::uint8_t* map = c.bpp < 9 ? dither.InitializePalID(c.width, c.height, c.bpp) : nullptr;
        const std::size_t rowBytes = std::size_t{c.stride} * static_cast<std::size_t>(c.height);
        if (map != nullptr) std::iota(map, map + rowBytes, std::uint8_t{1});
        const Bytes written = save(c.bpp);
        ASSERT_EQ(written.size(), c.offset + rowBytes);
        EXPECT_EQ(word(written, 10), c.offset);
        EXPECT_EQ(word(written, 2), written.size() - 14);
        EXPECT_EQ(word(written, 28), c.bpp);
        const Bytes rows(written.begin() + c.offset, written.end());
        if (map != nullptr) {
            EXPECT_EQ(rows, Bytes(map, map + rowBytes));
        } else if (c.bpp == 16) {
            EXPECT_EQ(rows, Bytes(rowBytes));
        }
    }
}

TEST_F(SaveBmp, ColourTableIsBlueGreenRedZero) {
    ASSERT_TRUE(dib.Create(1, 1, 0));
    RgbQuad* entries = palette.InitializePalette(2);
    entries[1] = {1, 2, 3, 99};
    dither.InitializePalID(1, 1, 1);
    const Bytes written = save(1);
    EXPECT_EQ(Bytes(written.begin() + 54, written.begin() + 62), (Bytes{0, 0, 0, 0, 1, 2, 3, 0}));
}

// Rows are written in pieces; the pieces' seams must not show.
TEST_F(SaveBmp, LargePicturesAreWrittenWhole) {
    for (const int width : {1, 2, 3, 4, 5, 1021, 60000}) {
        const int height = 300'000 / width + 2;
        ASSERT_TRUE(dib.Create(width, height, 0));
        const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        for (std::size_t i = 0; i < pixels * 4; ++i)
            dib.DIBitsPtr()[i] = static_cast<std::uint8_t>(i * 2654435761U >> 13);
        const Bytes written = save(24);
        const auto stride = static_cast<std::size_t>(packedStride(width, 24));
        ASSERT_EQ(written.size(), 54 + stride * static_cast<std::size_t>(height));
        std::size_t wrong = 0;
        for (int y = 0; y < height; ++y) {
            for (std::size_t at = 0; at < stride; ++at) {
                const std::size_t x = at / 3;
                const std::uint8_t expected =
                    x < static_cast<std::size_t>(width) ? dib.hDIB()->row(y)[x * 4 + at % 3] : 0;
                wrong += written[54 + static_cast<std::size_t>(y) * stride + at] != expected;
            }
        }
        EXPECT_EQ(wrong, 0U) << width;
    }
}

TEST_F(SaveBmp, ReplacesALongerFileWhole) {
    writeText(file, std::string(5000, 'x'));
    ASSERT_TRUE(dib.Create(2, 2, 0));
    EXPECT_EQ(save(24).size(), 70U);
}

TEST_F(SaveBmp, AnEmptySurfaceTouchesNoFile) {
    writeText(file, "kept");
    EXPECT_EQ(save(24).size(), 4U);
}

TEST_F(SaveBmp, TellsErrorsWithTheirNumbers) {
    const auto errorOf = [&](const std::string& path, std::uint8_t bpp, const cDIBDither* map) {
        try {
            cDIBSave().Save_BMP(path, dib, palette, map, bpp);
        } catch (const RuntimeError& error) {
            return static_cast<int>(error.number());
        }
        return 0;
    };
    ASSERT_TRUE(dib.Create(2, 2, 0));
    EXPECT_EQ(errorOf(folder.path() + "/none/out.bmp", 24, nullptr), 76);
    EXPECT_EQ(errorOf(folder.path(), 24, nullptr), 75);
    EXPECT_EQ(withFileSizeLimit(60, [&] { return errorOf(file, 24, nullptr); }), 61);

    writeText(file, "kept");
    EXPECT_EQ(errorOf(file, 8, &dither), 9);  // a palette too short
    palette.InitializePalette(256);
    EXPECT_EQ(errorOf(file, 8, nullptr), 91);
    EXPECT_EQ(contentsOf(file).size(), 4U);
}

TEST_F(SaveBmp, PrivateFilesFollowNoLinkAndShowNobody) {
    const std::string target = folder.path() + "/target";
    writeText(target, "kept");
    ASSERT_EQ(symlink(target.c_str(), file.c_str()), 0);
    ASSERT_TRUE(dib.Create(2, 2, 0));
    cDIBSave().Save_Private_BMP(file, dib, palette, nullptr, 24);
    struct stat status {};
    ASSERT_EQ(lstat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, static_cast<mode_t>(S_IFREG | 0600));
    EXPECT_EQ(contentsOf(target).size(), 4U);
    EXPECT_EQ(contentsOf(file).size(), 70U);
}

}  // namespace
}  // namespace mobrel
