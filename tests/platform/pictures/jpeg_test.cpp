// SPDX-License-Identifier: MIT
// JPEG files: kinds of colours, orientation, broken files.
#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>

#include "platform/pictures/codecs/JpegReader.hpp"
#include "platform/pictures/codecs/JpegWriter.hpp"
#include "support/MemoryLimit.hpp"
#include "support/PictureFiles.hpp"

namespace mobrel::test {
namespace {

// A picture of one colour, given and kept in the same channels.
struct JpegFile {
    unsigned width = 9;
    unsigned height = 17;
    J_COLOR_SPACE space = JCS_GRAYSCALE;
    Bytes color{100};
    bool hasAdobeMarker = false;
    bool isProgressive = false;
    std::vector<Bytes> app1{};

    Bytes bytes() const {
        jpeg_compress_struct info;
        jpeg_error_mgr errors;
        info.err = jpeg_std_error(&errors);
        jpeg_create_compress(&info);
        unsigned char* memory = nullptr;
        unsigned long size = 0;
        jpeg_mem_dest(&info, &memory, &size);
        info.image_width = width;
        info.image_height = height;
        info.input_components = static_cast<int>(color.size());
        info.in_color_space = space;
        jpeg_set_defaults(&info);
        jpeg_set_colorspace(&info, space);
        jpeg_set_quality(&info, 100, TRUE);
        info.write_Adobe_marker = hasAdobeMarker ? TRUE : FALSE;
        // The first coefficient of a block, then the others.
        const jpeg_scan_info scans[]{{info.num_components, {0, 1, 2, 3}, 0, 0, 0, 0}, {1, {0}, 1, 63, 0, 0}};
        if (isProgressive) {
            info.scan_info = scans;
            info.num_scans = 2;
        }
        jpeg_start_compress(&info, TRUE);
        for (const Bytes& content : app1) {
            jpeg_write_marker(&info, 0xE1, content.data(), static_cast<unsigned>(content.size()));
        }
        Bytes line;
        for (unsigned x = 0; x < width; ++x) line.insert(line.end(), color.begin(), color.end());
        for (JSAMPROW row = line.data(); info.next_scanline < height;) jpeg_write_scanlines(&info, &row, 1);
        jpeg_finish_compress(&info);
        jpeg_destroy_compress(&info);
        Bytes file(memory, memory + size);
        std::free(memory);
        return file;
    }
};

TEST(JpegReader, ReadsEveryKindOfColour) {
    struct Case {
        J_COLOR_SPACE space;
        Bytes values;
        bool hasAdobeMarker;
        std::uint32_t color;
    };
    const std::vector<Case> cases{
        {JCS_GRAYSCALE, {100}, false, 0x646464},         {JCS_YCbCr, {100, 128, 228}, false, 0xF01D64},
        {JCS_RGB, {10, 20, 30}, true, 0x0A141E},         {JCS_CMYK, {255, 128, 51, 51}, false, 0x0066A3},
        {JCS_CMYK, {255, 128, 51, 204}, true, 0xCC6629}, {JCS_YCCK, {100, 128, 128, 255}, true, 0x9B9B9B},
    };
    for (const Case& c : cases) {
        for (const bool isProgressive : {false, true}) {
            SCOPED_TRACE(testing::Message() << c.color << isProgressive);
            const JpegFile file{9, 17, c.space, c.values, c.hasAdobeMarker, isProgressive};
            const Outcome outcome = readBytes(readJpeg, file.bytes());
            ASSERT_EQ(outcome.failure, "");
            EXPECT_EQ(outcome.colors(), Colors(9 * 17, c.color));
            EXPECT_EQ(outcome.picture.pixels.width(), 9);
            EXPECT_EQ(outcome.picture.bitsPixel, 24);
        }
    }
}

// EXIF data with one entry; the bytes in the order II.
Bytes exif(std::uint32_t tag, std::uint32_t type, std::uint32_t value, std::uint32_t directory = 8) {
    Bytes segment{'E', 'x', 'i', 'f', 0, 0, 'I', 'I'};
    for (const auto& [number, bytes] :
         {std::pair(42U, 2), {directory, 4}, {1U, 2}, {tag, 2}, {type, 2}, {1U, 4}, {value, 4}}) {
        for (int i = 0; i < bytes; ++i) segment.push_back(static_cast<std::uint8_t>(number >> 8 * i));
    }
    return segment;
}

TEST(JpegReader, ReadsTheOrientation) {
    const Bytes bigEndian{'E', 'x', 'i', 'f', 0, 0, 'M', 'M',  0, 42, 0, 0, 0, 8, 0, 2, 1, 0, 0, 3, 0, 0,
                          0,   1,   0,   9,   0, 0, 1,   0x12, 0, 3,  0, 0, 0, 1, 0, 8, 0, 0, 0, 0, 0, 0};
    const Bytes six = exif(0x0112, 3, 6);
    const Bytes cut(six.begin(), six.end() - 4);
    const std::vector<std::pair<std::vector<Bytes>, int>> cases{
        {{}, 1},
        {{six}, 6},
        {{bigEndian}, 8},
        {{{'h', 't', 't', 'p', 0}, six}, 6},
        {{six, exif(0x0112, 3, 3)}, 6},
        {{exif(0x0112, 3, 0)}, 1},
        {{exif(0x0112, 3, 9)}, 1},
        {{exif(0x0112, 4, 6)}, 1},
        {{exif(0x0112, 3, 6, 0xFFFFFFFF)}, 1},
        {{cut}, 1},
        {{{'E', 'x', 'i', 'f', 0, 0}}, 1},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const Outcome outcome = readBytes(readJpeg, JpegFile{.app1 = cases[i].first}.bytes());
        EXPECT_EQ(outcome.failure, "");
        EXPECT_EQ(outcome.picture.orientation, cases[i].second);
    }
}

TEST(JpegReader, RefusesEveryCutFile) {
    expectNoPartIsRead(readJpeg, JpegFile{.app1 = {exif(0x0112, 3, 6)}}.bytes());
    expectNoPartIsRead(readJpeg, JpegFile{8, 8, JCS_YCbCr, {1, 2, 3}, false, true}.bytes());
}

// Writes the last scan of a file some times more.
Bytes withScans(Bytes bytes, int more) {
    const std::array<std::uint8_t, 2> kTables{0xFF, 0xC4};
    const auto scan = std::find_end(bytes.begin(), bytes.end(), kTables.begin(), kTables.end());
    const Bytes again(scan, bytes.end() - 2);
    while (more-- > 0) bytes.insert(bytes.end() - 2, again.begin(), again.end());
    return bytes;
}

TEST(JpegReader, TellsWhatIsWrong) {
    const Bytes whole = JpegFile{8, 800}.bytes();
    const Bytes halved(whole.begin(), whole.end() - 15);
    Bytes ended = halved;
    ended.insert(ended.end(), {0xFF, 0xD9});
    const Bytes progressive = JpegFile{.isProgressive = true}.bytes();
    const std::vector<std::pair<Bytes, std::string>> cases{
        {{0xFF, 0xD8, 0x00, 0xFF}, "not a JPEG file"},
        {halved, "the file ends in line "},
        {ended, "(Corrupt JPEG data: premature end of data segment)"},
        {withScans(progressive, 498), ""},
        {withScans(progressive, 499), "the file is damaged in its scans (too many scans)"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const std::string failure = readBytes(readJpeg, cases[i].first).failure;
        EXPECT_EQ(failure.empty(), cases[i].second.empty());
        EXPECT_NE(failure.find(cases[i].second), std::string::npos) << failure;
    }
    EXPECT_EQ(readBytes(readJpeg, whole, {.maxPixels = 6399}).failure, "8 x 800 pixels are more than 6399");
}

TEST(JpegReader, TakesNoMemoryForAFalseClaim) {
    for (const bool isProgressive : {false, true}) {
        Bytes bytes = JpegFile{.isProgressive = isProgressive}.bytes();
        const std::array<std::uint8_t, 4> kSides{0, 17, 0, 9};
        const auto sides = std::search(bytes.begin(), bytes.end(), kSides.begin(), kSides.end());
        sides[0] = sides[2] = 0x4E;
        const MemoryLimit limit(32 * kMiB);
        ASSERT_TRUE(limit.isSet());
        const std::string failure = readFrom(readJpeg, PipeSource(bytes)).failure;
        EXPECT_NE(failure.find(" bytes cannot fill 19977 x 19985 pixels"), std::string::npos) << failure;
    }
}

TEST(JpegWriter, StaysNearThePicture) {
    // Soft slopes, which even a low quality keeps.
    Bytes pixels;
    for (int i = 0; i < 61 * 43; ++i) {
        for (const int value : {i % 61 * 4, i / 61 * 5, 2 * (i % 61 + i / 61), 77}) {
            pixels.push_back(static_cast<std::uint8_t>(value));
        }
    }
    const PictureView view{pixels.data(), 61 * 4, 61, 43};
    for (const auto& [quality, tolerance] : {std::pair(50, 30), {89, 12}, {90, 6}, {100, 4}, {1000, 4}}) {
        SCOPED_TRACE(quality);
        const Bytes bytes = bytesOf([&, q = quality](FileWriter& file) { writeJpeg(file, view, q); });
        const Outcome outcome = readBytes(readJpeg, bytes);
        ASSERT_EQ(outcome.picture.pixels.width(), 61);
        ASSERT_EQ(outcome.picture.pixels.height(), 43);
        const Colors colors = outcome.colors();
        int worst = 0;
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const int value = static_cast<int>(colors[i / 4] >> 8 * (i % 4) & 255);
            if (i % 4 < 3) worst = std::max(worst, std::abs(value - pixels[i]));
        }
        EXPECT_LE(worst, tolerance);
    }
    const auto writeLong = [&](FileWriter& file) { writeJpeg(file, {pixels.data(), 0, 65501, 1}, 90); };
    EXPECT_THROW(bytesOf(writeLong), RuntimeError);
}

}  // namespace
}  // namespace mobrel::test
