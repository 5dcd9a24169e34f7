// SPDX-License-Identifier: MIT
// The bitmap reader: every kind of file, broken files, and files that lie about their size.
#include "platform/pictures/BmpReader.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "platform/pictures/PictureReader.hpp"
#include "support/BmpBuilder.hpp"
#include "support/MemoryLimit.hpp"
#include "support/PictureFiles.hpp"

namespace mobrel::test {
namespace {

Outcome readFrom(ByteSource&& source) {
    return test::readFrom(readBmp, std::move(source));
}

// Pixels in memory order as numbers, 0xRRGGBB; byte 3 would show above them.
Colors pixelsOf(const StdPicture& picture) {
    Colors pixels;
    for (int i = 0; i < picture.pixels.width() * picture.pixels.height(); ++i) {
        const std::uint8_t* p = picture.pixels.bits() + i * 4;
        pixels.push_back(static_cast<std::uint32_t>(p[0] | p[1] << 8 | p[2] << 16) |
                         static_cast<std::uint32_t>(p[3]) << 24);
    }
    return pixels;
}

// Reads the file from memory. Read from a pipe, it must fare the same.
Outcome readBytes(const Bytes& bytes) {
    Outcome outcome = readFrom(MemorySource(bytes));
    const Outcome piped = readFrom(PipeSource(bytes));
    EXPECT_EQ(piped.failure.empty(), outcome.failure.empty()) << piped.failure << outcome.failure;
    EXPECT_EQ(pixelsOf(piped.picture), pixelsOf(outcome.picture));
    EXPECT_EQ(piped.picture.indices, outcome.picture.indices);
    EXPECT_EQ(piped.picture.colorTable, outcome.picture.colorTable);
    EXPECT_EQ(outcome.failure.empty() ? flawOf(outcome.picture) : "", "");
    return outcome;
}

constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kGreen = 0x00FF00;
constexpr std::uint32_t kBlue = 0x0000FF;
constexpr std::uint32_t kGray = 0x123456;

// The same 3 x 2 pixels in every depth. Unused bits and padding hold rubbish.
struct DepthCase {
    std::uint16_t bits;
    Colors colors;
    Bytes rows;
    Colors pixels;
    Bytes indices;
};
const std::vector<DepthCase> kDepths{
    {1,
     {kGray, kRed},
     {0b010'11111, 9, 9, 9, 0b101'11111, 9, 9, 9},
     {kGray, kRed, kGray, kRed, kGray, kRed},
     {0b010'00000, 0, 0, 0, 0b101'00000, 0, 0, 0}},
    {4,
     {kGray, kRed, kGreen, kBlue},
     {0x01, 0x2F, 9, 9, 0x32, 0x1F, 9, 9},
     {kGray, kRed, kGreen, kBlue, kGreen, kRed},
     {0x01, 0x20, 0, 0, 0x32, 0x10, 0, 0}},
    {8,
     {kGray, kRed, kGreen, kBlue},
     {0, 1, 2, 9, 3, 2, 255, 9},
     {kGray, kRed, kGreen, kBlue, kGreen, 0},
     {0, 1, 2, 0, 3, 2, 255, 0}},
    {16,
     {},
     {0x00, 0x7C, 0xE0, 0x03, 0x1F, 0x00, 9, 9, 0x00, 0x80, 0x21, 0x04, 0xFF, 0x7F, 9, 9},
     {kRed, kGreen, kBlue, 0, 0x080808, 0xFFFFFF},
     {}},
    {24,
     {},
     {0, 0, 255, 0, 255, 0, 255, 0, 0, 9, 9, 9, 0x56, 0x34, 0x12, 1, 2, 3, 4, 5, 6, 9, 9, 9},
     {kRed, kGreen, kBlue, kGray, 0x030201, 0x060504},
     {}},
    {32,
     {},
     {0, 0, 255, 9, 0, 255, 0, 9, 255, 0, 0, 9, 0x56, 0x34, 0x12, 255, 1, 2, 3, 9, 4, 5, 6, 9},
     {kRed, kGreen, kBlue, kGray, 0x030201, 0x060504},
     {}},
};

TEST(BmpReader, ReadsEveryHeaderWithEveryDepth) {
    for (const std::uint32_t headerSize : {12U, 40U, 52U, 56U, 108U, 124U}) {
        for (const DepthCase& depth : kDepths) {
            SCOPED_TRACE(std::to_string(headerSize) + " bytes, " + std::to_string(depth.bits) + " bits");
            BmpFile file{.headerSize = headerSize,
                         .width = 3,
                         .height = 2,
                         .bits = depth.bits,
                         .colors = depth.colors,
                         .rows = depth.rows};
            file.colorsUsed = static_cast<std::uint32_t>(depth.colors.size());
            const Outcome outcome = readBytes(file.bytes());
            ASSERT_EQ(outcome.failure, "");
            EXPECT_EQ(outcome.picture.bitsPixel, depth.bits);
            EXPECT_EQ(outcome.picture.pixels.width(), 3);
            EXPECT_EQ(pixelsOf(outcome.picture), depth.pixels);
            EXPECT_EQ(outcome.picture.indices, depth.indices);
        }
    }
}

TEST(BmpReader, TurnsTopDownRowsRound) {
    for (const DepthCase& depth : kDepths) {
        SCOPED_TRACE(depth.bits);
        BmpFile file{
            .width = 3, .height = -2, .bits = depth.bits, .colors = depth.colors, .rows = depth.rows};
        file.colorsUsed = static_cast<std::uint32_t>(depth.colors.size());
        const Outcome outcome = readBytes(file.bytes());
        Colors turned(depth.pixels.begin() + 3, depth.pixels.end());
        turned.insert(turned.end(), depth.pixels.begin(), depth.pixels.begin() + 3);
        EXPECT_EQ(pixelsOf(outcome.picture), turned);
    }
}

TEST(BmpReader, WidensMaskedChannels) {
    struct Case {
        std::uint16_t bits;
        std::vector<std::uint32_t> masks;
        Bytes pixels;  // two of them
        Colors expected;
    };
    const std::vector<Case> cases{
        {16, {0xF800, 0x07E0, 0x001F}, {0x41, 0x08, 0xE0, 0xFF}, {0x080808, 0xFFFF00}},
        {16, {0x000F, 0x00F0, 0x0F00}, {0x21, 0xF3, 0xF0, 0x0F}, {0x112233, 0x00FFFF}},
        {16, {0x8000, 0x6000, 0x1C00}, {0x00, 0xA4, 0x00, 0x48}, {0xFF5524, 0x00AA49}},  // 1, 2, 3 bits
        {16, {0xFFC0, 0x003E, 0x0001}, {0x80, 0xFF, 0x41, 0x80}, {0xFF0000, 0x8000FF}},  // 10, 5, 1 bits
        {16, {0xFE00, 0x01F8, 0}, {0x08, 0x02, 0xFF, 0xFF}, {0x020400, 0xFFFF00}},       // 7, 6, 0 bits
        {32, {0xFF, 0xFF00, 0xFF0000}, {1, 2, 3, 4, 5, 6, 7, 8}, {0x010203, 0x050607}},
        {32, {0xFF0000, 0xFF00, 0xFF}, {1, 2, 3, 4, 5, 6, 7, 8}, {0x030201, 0x070605}},
        {32, {0x3FF00000, 0xFFC00, 0x3FF}, {0xFF, 0xFD, 0x5F, 0x80, 4, 0, 0, 0x3F}, {0x01FF7F, 0xFC0001}},
        {32, {0xFFFFFFFF, 0, 0}, {0, 0, 0, 0x7F, 1, 0, 0, 0xFF}, {0x7F0000, 0xFF0000}},
    };
    for (const std::uint32_t headerSize : {40U, 52U, 56U, 108U, 124U}) {
        for (const std::uint32_t compression : {3U, 6U}) {
            for (std::size_t i = 0; i < cases.size(); ++i) {
                SCOPED_TRACE(testing::Message()
                             << headerSize << " bytes, compression " << compression << ", case " << i);
                BmpFile file{.headerSize = headerSize,
                             .width = 2,
                             .bits = cases[i].bits,
                             .compression = compression,
                             .masks = cases[i].masks,
                             .rows = cases[i].pixels};
                // The mask of alpha counts for nothing, even where it is nonsense.
                if (compression == 6 && headerSize != 52) file.masks.push_back(0xA5A5A5A5);
                if (i % 2 == 1) file.pixelOffset = 0;  // unset: the pixels follow the masks
                const Outcome outcome = readBytes(file.bytes());
                EXPECT_EQ(outcome.failure, "");
                EXPECT_EQ(pixelsOf(outcome.picture), cases[i].expected);
            }
        }
    }
}

TEST(BmpReader, FindsPixelsByTheirOffset) {
    // 2 x 1 pixels of 4 bits, indices 1 and 2. With 16 entries the pixels stand at 118.
    const Bytes row{0x12, 0, 0, 0};
    const Colors colors{kGray, kRed, kGreen, kBlue};
    const Colors full{kGray, kRed, kGreen, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    Colors excess = full;
    excess.insert(excess.end(), 4, kBlue);
    Bytes behindGap(40, 0xEE);
    for (const std::uint8_t byte : row) behindGap.push_back(byte);
    const BmpFile file{.width = 2, .bits = 4, .rows = row};
    auto with = [&file](std::uint32_t used, Colors table, std::optional<std::uint32_t> offset, Bytes rows) {
        BmpFile changed = file;
        changed.colorsUsed = used;
        changed.colors = std::move(table);
        changed.pixelOffset = offset;
        changed.rows = std::move(rows);
        return changed.bytes();
    };
    const std::vector<std::pair<Bytes, Colors>> cases{
        {with(0, full, 118, row), {kRed, kGreen}},
        {with(0, full, 0, row), {kRed, kGreen}},    // unset
        {with(0, full, 53, row), {kRed, kGreen}},   // within the header
        {with(4, colors, 7, row), {kRed, kGreen}},  // unset, short table
        {with(4, colors, 70 + 40, behindGap), {kRed, kGreen}},
        {with(0, {kGray, kRed}, 62, row), {kRed, 0}},          // room for 2 entries of 16
        {with(0, {kGray, kRed, 0}, 65, row), {kGray, kGray}},  // the row starts a byte early
        {with(0, {}, 54, row), {0, 0}},                        // for none
        {with(2, {kGray, kRed}, 62, row), {kRed, 0}},
        {with(20, excess, 118 + 16, row), {kRed, kGreen}},  // more entries than there can be
        {with(0xFFFFFFFF, full, 0, row), {kRed, kGreen}},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const Outcome outcome = readBytes(cases[i].first);
        EXPECT_EQ(outcome.failure, "");
        EXPECT_EQ(pixelsOf(outcome.picture), cases[i].second);
    }
}

// An RLE file with colours of its own for every index.
BmpFile rleFile(std::uint16_t bits, int width, int height, Bytes codes) {
    BmpFile file{.width = width, .height = height, .bits = bits, .compression = bits == 8 ? 1U : 2U};
    for (std::uint32_t i = 0; i < 1U << bits; ++i) file.colors.push_back(0x102030 + i);
    file.rows = std::move(codes);
    return file;
}

Bytes repeated(std::size_t count, std::uint8_t value, Bytes more = {}) {
    more.insert(more.begin(), count, value);
    return more;
}

TEST(BmpReader, FollowsRunLengthCodes) {
    struct Case {
        std::uint16_t bits;
        int width;
        int height;
        Bytes codes;
        Bytes indices;
    };
    const std::vector<Case> cases{
        {8, 4, 2, {4, 7, 0, 0, 3, 8, 1, 9, 0, 0, 0, 1}, {7, 7, 7, 7, 8, 8, 8, 9}},
        {8, 4, 2, {0, 3, 1, 2, 3, 0xEE, 1, 4, 0, 0, 0, 4, 5, 6, 7, 8, 0, 1}, {1, 2, 3, 4, 5, 6, 7, 8}},
        {8, 3, 3, {1, 5, 0, 0, 0, 0, 3, 6, 0, 1}, {5, 0, 0, 0, 0, 0, 0, 0, 6, 6, 6, 0}},  // rows ended early
        {8, 4, 2, {2, 5, 0, 1, 4, 9}, {5, 5, 0, 0, 0, 0, 0, 0}},                          // the bitmap, too
        {8, 2, 2, {0, 1}, {0, 0, 0, 0, 0, 0, 0, 0}},
        {8, 4, 3, {1, 5, 0, 2, 1, 2, 2, 6, 0, 1}, {5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 6, 6}},
        {8, 4, 2, {0, 2, 4, 1, 0, 2, 0, 0, 0, 0, 0, 1}, {0, 0, 0, 0, 0, 0, 0, 0}},  // a delta to a row's end
        {8, 255, 1, {255, 3, 0, 1}, repeated(255, 3, {0})},
        {8, 255, 1,
         [] {
             Bytes codes{0, 255};
             codes.insert(codes.end(), 255, 4);
             codes.insert(codes.end(), {0, 0, 1});
             return codes;
         }(),
         repeated(255, 4, {0})},
        {8, 2, 2, {2, 7, 0, 0, 2, 8}, {7, 7, 0, 0, 8, 8, 0, 0}},  // no end of bitmap
        {8, 2, 2, {2, 7, 0, 0, 1, 8, 0, 0}, {7, 7, 0, 0, 8, 0, 0, 0}},
        {8, 3, 1, {0, 3, 1, 2, 3}, {1, 2, 3, 0}},  // no padding at the very end
        {4, 5, 2, {5, 0x12, 0, 0, 1, 0x30, 4, 0x45, 0, 1}, {0x12, 0x12, 0x10, 0, 0x34, 0x54, 0x50, 0}},
        {4, 5, 1, {0, 3, 0x12, 0x3E, 2, 0x45, 0, 1}, {0x12, 0x34, 0x50, 0}},
        {4, 6, 1, {1, 0xF0, 0, 5, 0x12, 0x34, 0x5E, 0xEE, 0, 1}, {0xF1, 0x23, 0x45, 0}},
        {4, 3, 2, {0, 2, 1, 1, 2, 0xAB, 0, 1}, {0, 0, 0, 0, 0x0A, 0xB0, 0, 0}},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const Case& c = cases[i];
        const Outcome outcome = readBytes(rleFile(c.bits, c.width, c.height, c.codes).bytes());
        EXPECT_EQ(outcome.failure, "");
        EXPECT_EQ(outcome.picture.indices, c.indices);
    }
}

TEST(BmpReader, RefusesRunLengthCodesThatLeaveThePicture) {
    const std::string pastRow1 = "the run-length codes leave row 1 of 2";
    const std::string pastEnd = "the run-length codes go on behind the last row";
    const std::string badDelta = "a delta code leaves the picture";
    const std::vector<std::pair<Bytes, std::string>> cases{
        {{5, 1, 0, 1}, pastRow1},
        {{3, 1, 2, 1, 0, 1}, pastRow1},
        {{0, 5, 1, 2, 3, 4, 5, 0, 0, 1}, pastRow1},
        {{0, 2, 5, 0, 0, 1}, badDelta},
        {{0, 2, 0, 2, 0, 1}, badDelta},
        {{3, 1, 0, 2, 2, 1, 0, 1}, badDelta},
        {{0, 0, 0, 0, 1, 1, 0, 1}, pastEnd},
        {{0, 0, 0, 0, 0, 0, 0, 1}, pastEnd},
        {{0, 0, 0, 0, 0, 2, 0, 0, 0, 1}, pastEnd},
        {{4, 7, 0, 0, 3, 8}, "the file ends in row 2 of 2"},
        {{4, 7}, "the file ends in row 1 of 2"},
        {{4, 7, 0, 0, 0}, "the file ends in row 2 of 2"},
        {{4, 7, 0, 0, 0, 4, 1, 2, 3}, "the file ends in row 2 of 2"},
        {{4, 7, 0, 2, 0}, "the file ends in row 1 of 2"},
    };
    for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{4}}) {
        for (std::size_t i = 0; i < cases.size(); ++i) {
            if (bits == 4 && cases[i].first.size() == 9) continue;  // 4 literals of 4 bits are whole there
            SCOPED_TRACE(testing::Message() << bits << " bits, case " << i);
            EXPECT_EQ(readBytes(rleFile(bits, 4, 2, cases[i].first).bytes()).failure, cases[i].second);
        }
    }
}

TEST(BmpReader, ReadsRowsLongerThanItsBuffers) {
    // Three rows of a size that no buffer divides, each byte told by its place.
    for (const std::uint16_t bits :
         {std::uint16_t{1}, std::uint16_t{4}, std::uint16_t{8}, std::uint16_t{24}}) {
        SCOPED_TRACE(bits);
        const int width = 70001;
        const auto stride = static_cast<std::size_t>(packedStride(width, bits));
        BmpFile file{.width = width, .height = 3, .bits = bits};
        for (std::uint32_t i = 0; bits < 9 && i < 1U << bits; ++i) file.colors.push_back(i * 0x010101);
        for (std::size_t i = 0; i < stride * 3; ++i) file.rows.push_back(static_cast<std::uint8_t>(i % 251));
        const Outcome outcome = readBytes(file.bytes());
        ASSERT_EQ(outcome.failure, "");
        int wrong = 0;
        for (int i = 0; i < width * 3; ++i) {
            const std::size_t bit = static_cast<std::size_t>(i % width) * bits;
            const std::size_t byte = static_cast<std::size_t>(i / width) * stride + bit / 8;
            for (std::size_t c = 0; c < 3; ++c) {
                const unsigned index = file.rows[byte] >> ((32 - bits - bit % 8) % 8) & ((1U << bits) - 1);
                const unsigned value = bits == 24 ? file.rows[byte + c] : index;
                if (outcome.picture.pixels.bits()[static_cast<std::size_t>(i) * 4 + c] != value) ++wrong;
            }
        }
        EXPECT_EQ(wrong, 0);
    }
}

TEST(BmpReader, ReadsMoreRunLengthCodesThanItsBufferHolds) {
    const int width = 65600;
    Bytes codes;
    for (int x = 0; x < width; ++x) codes.insert(codes.end(), {1, static_cast<std::uint8_t>(x % 251)});
    codes.insert(codes.end(), {0, 1});
    const Outcome outcome = readBytes(rleFile(8, width, 1, codes).bytes());
    ASSERT_EQ(outcome.failure, "");
    for (const int x : {0, 64996, 64997, 65599}) {
        EXPECT_EQ(indexAt(outcome.picture, x, 0), static_cast<unsigned>(x % 251));
    }
}

TEST(BmpReader, RefusesWhatItCannotRead) {
    const Bytes pixel{1, 2, 3, 0};
    const std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    const std::vector<std::pair<BmpFile, std::string>> cases{
        {{.headerSize = 0}, "a header of 0 bytes is not supported"},
        {{.headerSize = 64}, "a header of 64 bytes is not supported"},
        {{.headerSize = 65576}, "a header of 65576 bytes is not supported"},
        {{.planes = 0}, "0 colour planes are not supported"},
        {{.bits = 0}, "a depth of 0 bits is not supported"},
        {{.bits = 2}, "a depth of 2 bits is not supported"},
        {{.bits = 64}, "a depth of 64 bits is not supported"},
        {{.bits = 0, .compression = 5}, "compression 5 is not supported"},
        {{.bits = 24, .compression = 4}, "compression 4 is not supported"},
        {{.bits = 4, .compression = 1}, "compression 1 does not go with 4 bits"},
        {{.bits = 8, .compression = 2}, "compression 2 does not go with 8 bits"},
        {{.bits = 24, .compression = 3, .masks = {1, 2, 4}}, "compression 3 does not go with 24 bits"},
        {{.width = 0}, "a width of 0 is not possible"},
        {{.width = -1}, "a width of -1 is not possible"},
        {{.headerSize = 12, .width = 0}, "a width of 0 is not possible"},
        {{.height = 0}, "a height of 0 is not possible"},
        {{.height = lowest}, "1 x 2147483648 pixels are more than a picture can have"},
        {{.width = 0x7FFFFFFF, .height = 0x7FFFFFFF},
         "2147483647 x 2147483647 pixels are more than a picture can have"},
        {{.width = 0x8000, .height = 0x4000}, "32768 x 16384 pixels are more than a picture can have"},
        {{.height = -1, .bits = 8, .compression = 1}, "run-length codes cannot start with the top row"},
        {{.bits = 32, .compression = 3, .masks = {0xFF0000, 0xF0F0, 0xF}}, "a colour mask has gaps"},
        {{.bits = 32, .compression = 3, .masks = {0xFF0000, 0xFF00, 0x1FF}}, "the colour masks overlap"},
        {{.bits = 16, .compression = 6, .masks = {0xF, 0xF, 0xF0, 0}}, "the colour masks overlap"},
        {{.bits = 16, .compression = 3, .masks = {0xF, 0xF0, 0xE}}, "the colour masks overlap"},
        {{.bits = 16, .compression = 3, .masks = {0x18000, 0, 0}}, "a colour mask is wider than a pixel"},
        {{.pixelOffset = 1000}, "the file ends before its pixels"},
        {{.bits = 8, .colors = {1, 2}, .pixelOffset = 0}, "the file ends in its colour table"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        BmpFile file = cases[i].first;
        file.rows = pixel;
        EXPECT_EQ(readBytes(file.bytes()).failure, cases[i].second);
    }
    EXPECT_EQ(readBytes({}).failure, "not a BMP file");
    Bytes other = BmpFile{.rows = pixel}.bytes();
    other[1] = 'N';
    EXPECT_EQ(readBytes(other).failure, "not a BMP file");
}

TEST(BmpReader, RefusesEveryCutFile) {
    struct Case {
        BmpFile file;
        std::size_t spare;  // bytes at the end that may be missing
    };
    const std::vector<std::uint32_t> masks{0xF800, 0x07E0, 0x001F};
    const std::vector<Case> cases{
        {{.headerSize = 12, .height = 2, .rows = Bytes(8)}, 1},
        {{.width = 3, .height = 2, .bits = 4, .colors = Colors(16), .rows = Bytes(8)}, 2},
        {{.width = 9, .height = -2, .bits = 1, .colors = Colors(2), .rows = Bytes(8)}, 2},
        {{.width = 3, .height = 2, .bits = 16, .compression = 3, .masks = masks, .rows = Bytes(16)}, 2},
        {{.headerSize = 124, .height = 2, .bits = 32, .rows = Bytes(8)}, 0},
        {rleFile(8, 2, 2, {2, 5, 0, 0, 2, 6, 0, 0, 0, 1}), 4},
        {rleFile(4, 9, 2, {9, 0x12, 0, 0, 0, 9, 1, 2, 3, 4, 5, 0, 0, 0, 0, 1}), 5},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const Bytes whole = cases[i].file.bytes();
        for (std::size_t length = 0; length <= whole.size(); ++length) {
            SCOPED_TRACE(testing::Message() << "case " << i << ", " << length << " of " << whole.size());
            const auto end = whole.begin() + static_cast<std::ptrdiff_t>(length);
            const bool isRead = readBytes(Bytes(whole.begin(), end)).failure.empty();
            EXPECT_EQ(isRead, length + cases[i].spare >= whole.size());
        }
    }
}

TEST(PictureReader, TakesOfAnotherStreamNoMoreThanItsHead) {
    const std::vector<std::uint8_t> other(100, 'x');
    MemorySource source(other);
    BufferedSource buffered(source);
    EXPECT_THROW(readPicture(buffered, {}), PictureError);
    EXPECT_EQ(source.remaining(), 92U);
}

TEST(BmpReader, NamesTheRowInWhichTheFileEnds) {
    const BmpFile file{.width = 2, .height = 480, .rows = Bytes(16 * 8 + 5)};
    const Bytes bytes = file.bytes();
    EXPECT_EQ(readFrom(MemorySource(bytes)).failure, "the file ends in row 17 of 480");
    EXPECT_EQ(readFrom(PipeSource(bytes)).failure, "the file ends in row 17 of 480");
}

TEST(BmpReader, TakesNoMemoryForAFalseClaim) {
    const std::vector<std::pair<BmpFile, std::string>> cases{
        {{.width = 20000, .height = 20000, .rows = Bytes(6)}, "the file ends in row 1 of 20000"},
        {{.width = 1, .height = 400000000, .rows = Bytes(6)}, "the file ends in row 2 of 400000000"},
        {{.width = 20000, .height = -20000, .bits = 1, .rows = Bytes(12)}, "the file ends in row 1 of 20000"},
        {rleFile(8, 20000, 20000, {1, 1, 0, 2, 255, 255, 0, 1}),
         "8 bytes of run-length codes cannot fill 20000 x 20000 pixels"},
        {rleFile(4, 4, 1 << 26, {1, 1, 0, 2, 255, 255, 0, 1}),
         "8 bytes of run-length codes cannot fill 4 x 67108864 pixels"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const Bytes bytes = cases[i].first.bytes();
        const MemoryLimit limit(32 * kMiB);
        ASSERT_TRUE(limit.isSet());
        EXPECT_EQ(readFrom(MemorySource(bytes)).failure, cases[i].second);
    }
}

TEST(BmpReader, TakesNoIndexMapForAFalseClaimFromAPipe) {
    // The pixels are 256 MiB of zero pages that nobody touches; a whole map would be 64 MiB more.
    const std::vector<std::pair<BmpFile, std::string>> cases{
        {{.width = 8192, .height = 8192, .bits = 8, .colors = Colors(256), .rows = Bytes(8192)},
         "the file ends in row 2 of 8192"},
        {rleFile(8, 8192, 8192, {1, 1, 0, 2, 255, 255, 1, 1, 0, 1}),
         "10 bytes of run-length codes cannot fill 8192 x 8192 pixels"},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const Bytes bytes = cases[i].first.bytes();
        const MemoryLimit limit((256 + 32) * kMiB);
        ASSERT_TRUE(limit.isSet());
        EXPECT_EQ(readFrom(PipeSource(bytes)).failure, cases[i].second);
    }
}

TEST(BmpReader, AcceptsTheFewestCodesThatCanReachTheLastPixel) {
    // Two deltas lead 510 columns and rows on, to the last pixel of 511 x 511.
    const Bytes codes{0, 2, 255, 255, 0, 2, 255, 255, 1, 7};
    const Outcome outcome = readBytes(rleFile(8, 511, 511, codes).bytes());
    ASSERT_EQ(outcome.failure, "");
    EXPECT_EQ(indexAt(outcome.picture, 510, 510), 7U);
}

}  // namespace
}  // namespace mobrel::test
