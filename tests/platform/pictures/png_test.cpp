// SPDX-License-Identifier: MIT
// PNG files: every kind of pixel, interlaced or not, transparency, broken files.
#include <zlib.h>

#include "platform/pictures/codecs/PngReader.hpp"
#include "platform/pictures/codecs/PngWriter.hpp"
#include "support/MemoryLimit.hpp"
#include "support/PictureFiles.hpp"

namespace mobrel::test {
namespace {

void append(Bytes& to, const Bytes& more) {
    to.insert(to.end(), more.begin(), more.end());
}

void appendNumber(Bytes& to, std::uint64_t number) {
    for (const int shift : {24, 16, 8, 0}) to.push_back(static_cast<std::uint8_t>(number >> shift));
}

struct PngFile {
    std::uint32_t width = 1;
    std::uint32_t height = 1;
    std::uint8_t bits = 8;
    std::uint8_t type = 0;
    std::uint8_t interlace = 0;
    Bytes palette{};
    Bytes transparency{};
    /// Each line behind a byte 0, its filter.
    Bytes lines{};

    Bytes bytes() const {
        Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
        Bytes header;
        appendNumber(header, width);
        appendNumber(header, height);
        append(header, {bits, type, 0, 0, interlace});
        appendChunk(file, "IHDR", header);
        if (!palette.empty()) appendChunk(file, "PLTE", palette);
        if (!transparency.empty()) appendChunk(file, "tRNS", transparency);
        uLongf size = compressBound(lines.size());
        Bytes stream(size);
        compress(stream.data(), &size, lines.data(), lines.size());
        stream.resize(size);
        appendChunk(file, "IDAT", stream);
        appendChunk(file, "IEND", {});
        return file;
    }

 private:
    static void appendChunk(Bytes& file, const std::string& name, const Bytes& content) {
        Bytes chunk(name.begin(), name.end());
        append(chunk, content);
        appendNumber(file, content.size());
        append(file, chunk);
        appendNumber(file, crc32(0, chunk.data(), static_cast<uInt>(chunk.size())));
    }
};

constexpr ReadOptions kOverBlue{.background = 0xFF0000};

TEST(PngReader, ReadsEveryKindOfPixel) {
    const Bytes palette{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    struct Case {
        PngFile file;
        Colors colors;
        bool hadTransparency = false;
    };
    const std::vector<Case> cases{
        {{3, 1, 1, 0, 0, {}, {}, {0, 0xA0}}, {0xFFFFFF, 0, 0xFFFFFF}},
        {{4, 1, 2, 0, 0, {}, {}, {0, 0x1B}}, {0, 0x555555, 0xAAAAAA, 0xFFFFFF}},
        {{2, 1, 4, 0, 0, {}, {}, {0, 0x1E}}, {0x111111, 0xEEEEEE}},
        {{1, 2, 8, 0, 0, {}, {}, {0, 9, 0, 200}}, {0x090909, 0xC8C8C8}},
        {{3, 1, 16, 0, 0, {}, {}, {0, 0, 0x80, 0, 0x81, 0xFF, 0x7E}}, {0, 0x010101, 0xFEFEFE}},
        {{2, 1, 8, 2, 0, {}, {}, {0, 1, 2, 3, 4, 5, 6}}, {0x010203, 0x040506}},
        {{1, 1, 16, 2, 0, {}, {}, {0, 0, 0xFF, 2, 2, 0x80, 0x00}}, {0x010280}},
        {{3, 1, 1, 3, 0, palette, {}, {0, 0x40}}, {0x010203, 0x040506, 0x010203}},
        {{4, 1, 2, 3, 0, palette, {}, {0, 0x1B}}, {0x010203, 0x040506, 0x070809, 0x0A0B0C}},
        {{2, 1, 4, 3, 0, palette, {}, {0, 0x23}}, {0x070809, 0x0A0B0C}},
        {{2, 1, 8, 3, 0, palette, {}, {0, 3, 1}}, {0x0A0B0C, 0x040506}},
        {{2, 1, 8, 4, 0, {}, {}, {0, 200, 255, 200, 100}}, {0xC8C8C8, 0x4E4EE9}, true},
        {{1, 1, 16, 4, 0, {}, {}, {0, 0xFF, 0xFF, 0, 0}}, {0x0000FF}, true},
        {{2, 1, 8, 6, 0, {}, {}, {0, 10, 20, 30, 255, 10, 20, 30, 1}}, {0x0A141E, 0x0000FE}, true},
        {{1, 1, 16, 6, 0, {}, {}, {0, 255, 255, 0, 0, 0, 0, 0x80, 0x80}}, {0x80007F}, true},
        {{4, 1, 2, 0, 0, {}, {0, 2}, {0, 0x1B}}, {0, 0x555555, 0x0000FF, 0xFFFFFF}, true},
        {{2, 1, 16, 0, 0, {}, {0x12, 0x34}, {0, 0x12, 0x34, 0x12, 0x35}}, {0x0000FF, 0x121212}, true},
        {{2, 1, 8, 2, 0, {}, {0, 4, 0, 5, 0, 6}, {0, 1, 2, 3, 4, 5, 6}}, {0x010203, 0x0000FF}, true},
        {{3, 1, 4, 3, 0, palette, {255, 0}, {0, 0x01, 0x20}}, {0x010203, 0x0000FF, 0x070809}, true},
        {{2, 1, 4, 3, 0, palette, {255, 0}, {0, 0x02}}, {0x010203, 0x070809}},
        // Interlaced: the first pixel, the second, then the second line.
        {{2, 2, 8, 0, 1, {}, {}, {0, 1, 0, 2, 0, 3, 4}}, {0x010101, 0x020202, 0x030303, 0x040404}},
        {{2, 2, 8, 4, 1, {}, {}, {0, 1, 255, 0, 2, 0, 0, 3, 0, 4, 255}},
         {0x010101, 255, 255, 0x040404},
         true},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const Outcome outcome = readBytes(readPng, cases[i].file.bytes(), kOverBlue);
        ASSERT_EQ(outcome.failure, "");
        EXPECT_EQ(outcome.picture.bitsPixel, 24);
        EXPECT_EQ(outcome.colors(), cases[i].colors);
        EXPECT_EQ(outcome.picture.hadTransparency, cases[i].hadTransparency);
    }
}

TEST(PngReader, RefusesEveryCutFile) {
    expectNoPartIsRead(readPng, PngFile{2, 2, 8, 0, 0, {}, {}, {0, 1, 2, 0, 3, 4}}.bytes());
    expectNoPartIsRead(readPng, PngFile{1, 1, 8, 3, 0, {1, 2, 3}, {7}, {0, 0}}.bytes());
    expectNoPartIsRead(readPng, PngFile{2, 2, 8, 0, 1, {}, {}, {0, 1, 0, 2, 0, 3, 4}}.bytes());
}

TEST(PngReader, TellsWhatIsWrong) {
    const Bytes whole = PngFile{2, 2, 8, 0, 0, {}, {}, {0, 1, 2, 0, 3, 4}}.bytes();
    Bytes damaged = whole;
    damaged[29] ^= 1;
    const std::vector<std::pair<Bytes, std::string>> cases{
        {Bytes(whole.begin() + 1, whole.end()), "not a PNG file"},
        {damaged, "the file is damaged in its headers (IHDR: CRC error)"},
        {PngFile{.width = 0}.bytes(), "the file is damaged in its headers (Invalid IHDR data)"},
        {PngFile{1 << 15, 1 << 14}.bytes(), "32768 x 16384 pixels are more than a picture can have"},
        {Bytes(whole.begin(), whole.end() - 20), "the file ends in line 1 of 2"},
        {PngFile{.height = 3, .lines = {0, 1, 0, 2}}.bytes(),
         "the file is damaged in line 3 of 3 (Not enough image data)"},
    };
    for (const auto& [bytes, reason] : cases) EXPECT_EQ(readBytes(readPng, bytes).failure, reason);
    EXPECT_EQ(readBytes(readPng, whole, {.maxPixels = 3}).failure, "2 x 2 pixels are more than 3");
}

TEST(PngReader, TakesNoMemoryForAFalseClaim) {
    // Of the first, 256 MiB of pixels that nobody touches; of the second, a line that libpng would clear.
    const Bytes tall = PngFile{.width = 8192, .height = 8192, .lines = Bytes(8193)}.bytes();
    const Bytes wide = PngFile{.width = 1 << 26, .bits = 16, .type = 6, .lines = Bytes(9)}.bytes();
    const MemoryLimit limit((256 + 32) * kMiB);
    ASSERT_TRUE(limit.isSet());
    EXPECT_EQ(readFrom(readPng, PipeSource(tall)).failure,
              "the file is damaged in line 2 of 8192 (Not enough image data)");
    EXPECT_EQ(readFrom(readPng, PipeSource(wide)).failure, "27 bytes cannot fill a line of 67108864 pixels");
}

TEST(PngWriter, LosesNothing) {
    Bytes pixels(37 * 21 * 4);
    for (std::size_t i = 0; i < pixels.size(); ++i) pixels[i] = static_cast<std::uint8_t>(i * i >> 3);
    const std::ptrdiff_t stride = 37 * 4;
    const std::vector<PictureView> views{{pixels.data(), stride, 37, 21},
                                         {pixels.data() + 20 * stride, -stride, 37, 21},
                                         {pixels.data() + 8, stride, 1, 5}};
    for (const PictureView& view : views) {
        const Outcome outcome = readBytes(readPng, bytesOf([&](FileWriter& file) { writePng(file, view); }));
        Colors colors;
        for (int i = 0; i < view.width * view.height; ++i) {
            const std::uint8_t* p = view.line(i / view.width) + i % view.width * 4;
            colors.push_back(static_cast<std::uint32_t>(p[0] | p[1] << 8 | p[2] << 16));
        }
        EXPECT_EQ(outcome.colors(), colors);
        EXPECT_EQ(outcome.picture.pixels.width(), view.width);
    }
}

}  // namespace
}  // namespace mobrel::test
