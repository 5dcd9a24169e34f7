// SPDX-License-Identifier: MIT
// GIF files: tables, the place of the frame, transparency, broken files; and the choice among formats.
#include <gif_lib.h>

#include <memory>
#include <numeric>

#include "platform/pictures/PictureReader.hpp"
#include "platform/pictures/codecs/GifReader.hpp"
#include "platform/pictures/codecs/GifWriter.hpp"
#include "support/MemoryLimit.hpp"
#include "support/PictureFiles.hpp"

namespace mobrel::test {
namespace {

// Entry i of every table here.
std::uint32_t colorOf(std::size_t i) {
    return 0x102030 + static_cast<std::uint32_t>(i) * 0x000101;
}

struct GifFile {
    int screenWidth = 3;
    int screenHeight = 2;
    int left = 0;
    int top = 0;
    int width = 3;
    int height = 2;
    /// In the order of the file.
    Bytes indices{0, 1, 0, 1, 1, 0};
    /// Powers of two; 0 for no table.
    int colors = 2;
    int localColors = 0;
    bool isInterlaced = false;
    int transparent = NO_TRANSPARENT_COLOR;

    Bytes bytes() const {
        Bytes file;
        GifFileType* const gif = EGifOpen(&file, appendBytes, nullptr);
        EGifSetGifVersion(gif, true);
        // Where the frame has a table, the screen's is another.
        const Table screenTable = tableOf(colors, localColors > 0 ? 0xFFFFFF : 0);
        const Table table = tableOf(localColors, 0);
        EGifPutScreenDesc(gif, screenWidth, screenHeight, 8, 0, screenTable.get());
        EGifPutComment(gif, "hi");
        GifByteType control[4];
        const GraphicsControlBlock block{0, false, 0, transparent};
        EGifPutExtension(gif, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(EGifGCBToExtension(&block, control)),
                         control);
        EGifPutImageDesc(gif, left, top, width, height, isInterlaced, table.get());
        Bytes pixels = indices;
        EGifPutLine(gif, pixels.data(), static_cast<int>(pixels.size()));
        EGifCloseFile(gif, nullptr);
        return file;
    }

 private:
    using Table = std::unique_ptr<ColorMapObject, void (*)(ColorMapObject*)>;

    static Table tableOf(int count, std::uint32_t flip) {
        if (count == 0) return {nullptr, GifFreeMapObject};
        Table table(GifMakeMapObject(count, nullptr), GifFreeMapObject);
        for (int i = 0; i < count; ++i) {
            const std::uint32_t color = colorOf(static_cast<std::size_t>(i)) ^ flip;
            table->Colors[i] = {static_cast<GifByteType>(color >> 16), static_cast<GifByteType>(color >> 8),
                                static_cast<GifByteType>(color)};
        }
        return table;
    }
    static int appendBytes(GifFileType* gif, const GifByteType* bytes, int count) {
        auto* file = static_cast<Bytes*>(gif->UserData);
        file->insert(file->end(), bytes, bytes + count);
        return count;
    }
};

Bytes everyIndex(std::size_t count) {
    Bytes indices(count);
    std::iota(indices.begin(), indices.end(), std::uint8_t{0});
    return indices;
}

TEST(GifReader, TakesTheFramesTable) {
    for (const auto& [count, depth] : {std::pair(2, 1), {4, 4}, {16, 4}, {32, 8}, {256, 8}}) {
        for (const bool isLocal : {false, true}) {
            SCOPED_TRACE(count);
            GifFile file{count, 1, 0, 0, count, 1, everyIndex(static_cast<std::size_t>(count)), count};
            if (isLocal) file.localColors = std::exchange(file.colors, 2);
            const Outcome outcome = readBytes(readGif, file.bytes());
            ASSERT_EQ(outcome.failure, "");
            EXPECT_EQ(outcome.picture.bitsPixel, depth);
            EXPECT_FALSE(outcome.picture.hadTransparency);
            for (std::size_t i = 0; i < file.indices.size(); ++i) EXPECT_EQ(outcome.colors()[i], colorOf(i));
        }
    }
}

TEST(GifReader, TurnsInterlacedLinesRound) {
    const GifFile file{1, 11, 0, 0, 1, 11, {0, 8, 4, 2, 6, 10, 1, 3, 5, 7, 9}, 16, 0, true};
    const Colors colors = readBytes(readGif, file.bytes()).colors();
    ASSERT_EQ(colors.size(), 11U);
    for (std::size_t i = 0; i < 11; ++i) EXPECT_EQ(colors[i], colorOf(i));
}

TEST(GifReader, ShowsTheBackgroundWhereTheFrameDoesNot) {
    // A frame of one line at (1, 1), with pixels all around it. The background is 0x0000FF.
    struct Case {
        Bytes indices;
        int colors;
        int transparent;
        int depth;
        unsigned entry;  // of the background
    };
    const std::vector<Case> cases{
        {{0, 1}, 2, -1, 4, 2},  // the table grows
        {{0, 0}, 2, -1, 1, 1},  // the other entry is free
        {{0, 1}, 4, -1, 4, 4},  // room behind the table
        {everyIndex(16), 16, -1, 8, 16},
        {{0, 1}, 16, -1, 4, 15},            // a free entry, from the end
        {{0, 1}, 2, 1, 1, 1},               // the transparent entry
        {{0, 1}, 2, 9, 4, 9},               // one behind the table
        {everyIndex(256), 256, -1, 8, 87},  // none is free: the nearest
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        SCOPED_TRACE(i);
        const Case& c = cases[i];
        const int width = static_cast<int>(c.indices.size());
        const GifFile file{width + 2, 3, 1, 1, width, 1, c.indices, c.colors, 0, false, c.transparent};
        const Outcome outcome = readBytes(readGif, file.bytes(), {.background = 0xFF0000});
        ASSERT_EQ(outcome.failure, "");
        EXPECT_EQ(outcome.picture.bitsPixel, c.depth);
        EXPECT_TRUE(outcome.picture.hadTransparency);
        const std::uint32_t around = width == 256 ? colorOf(87) : 0x0000FF;
        for (int at = 0; at < (width + 2) * 3; ++at) {
            const int x = at % (width + 2);
            const bool isFrame = at / (width + 2) == 1 && x > 0 && x <= width;
            const unsigned index = isFrame ? c.indices[static_cast<std::size_t>(x - 1)] : c.entry;
            EXPECT_EQ(indexAt(outcome.picture, x, 2 - at / (width + 2)), index);
            const std::uint32_t color = index == c.entry ? around : colorOf(index);
            EXPECT_EQ(outcome.colors()[static_cast<std::size_t>(at)], color);
        }
    }
}

TEST(GifReader, MakesRoomForAFrameBeyondTheScreen) {
    EXPECT_EQ(readBytes(readGif, GifFile{0, 9, 2}.bytes()).colors().size(), 5U * 9U);
}

TEST(GifReader, RefusesEveryCutFile) {
    expectNoPartIsRead(readGif, GifFile{.transparent = 1}.bytes());
    expectNoPartIsRead(readGif, GifFile{.localColors = 4, .isInterlaced = true}.bytes());
}

TEST(GifReader, TellsWhatIsWrong) {
    const Bytes whole = GifFile{}.bytes();
    const auto withRecord = [&](std::uint8_t record) {
        Bytes bytes = whole;
        bytes[19] = record;  // in place of the first extension
        return bytes;
    };
    const std::vector<std::pair<Bytes, std::string>> cases{
        {{'G', 'I', 'F', '7', '9', 'a'}, "not a GIF file"},
        {Bytes(whole.begin(), whole.begin() + 15), "the file ends in its headers"},
        {Bytes(whole.begin(), whole.end() - 3), "the file ends in line 1 of 2"},
        {Bytes(whole.begin(), whole.end() - 1), "the file ends behind its first frame"},
        {withRecord(0x3B), "the file has no frame"},
        {withRecord(0x77), "the file is damaged in its headers (Wrong record type detected)"},
        {GifFile{65535, 8193}.bytes(), "65535 x 8193 pixels are more than a picture can have"},
    };
    for (const auto& [bytes, reason] : cases) EXPECT_EQ(readBytes(readGif, bytes).failure, reason);
    EXPECT_EQ(readBytes(readGif, whole, {.maxPixels = 5}).failure, "3 x 2 pixels are more than 5");
}

TEST(GifReader, TakesNoMemoryForAFalseClaim) {
    // 256 MiB of pixels that nobody touches; a map of indices would be 64 MiB more.
    const Bytes bytes = GifFile{8192, 8192, 0, 0, 8192, 8192}.bytes();
    const MemoryLimit limit((256 + 32) * kMiB);
    ASSERT_TRUE(limit.isSet());
    EXPECT_EQ(readFrom(readGif, PipeSource(bytes)).failure, "the file ends in line 1 of 8192");
}

TEST(GifWriter, LosesNothing) {
    for (const std::size_t count : {1U, 2U, 3U, 16U, 17U, 256U}) {
        SCOPED_TRACE(count);
        std::vector<RgbQuad> table;
        Bytes indices(97 * 53);
        for (std::size_t i = 0; i < count; ++i) table.push_back({static_cast<std::uint8_t>(i), 7, 9, 0});
        for (std::size_t i = 0; i < indices.size(); ++i) {
            indices[i] = static_cast<std::uint8_t>((i * i >> 4) % count);
        }
        const Bytes bytes = bytesOf([&](FileWriter& file) { writeGif(file, {97, 53, table, indices}); });
        const Outcome outcome = readBytes(readGif, bytes);
        ASSERT_EQ(outcome.failure, "");
        for (int i = 0; i < 97 * 53; ++i) {
            ASSERT_EQ(indexAt(outcome.picture, i % 97, 52 - i / 97), indices[static_cast<std::size_t>(i)]);
        }
        EXPECT_TRUE(std::equal(table.begin(), table.end(), outcome.picture.colorTable.begin()));
    }
    EXPECT_THROW(bytesOf([](FileWriter& file) { writeGif(file, {65536, 1, {}, {}}); }), RuntimeError);
}

TEST(PictureReader, ChoosesByContent) {
    const TemporaryFolder folder;
    const Bytes gif = GifFile{}.bytes();
    const std::string png = "\x89PNG\r\n\x1A\n";
    EXPECT_EQ(readPictureFile(folder.write("a.bmp", std::string(gif.begin(), gif.end())))->bitsPixel, 1);
    EXPECT_THROW(readPictureFile(folder.write("a.gif", png)), PictureError);
    const auto reader = [](BufferedSource& source, const ReadOptions& options) {
        return readPicture(source, options).picture;
    };
    const std::string inHeaders = "the file ends in its headers";
    for (const std::string& text :
         {std::string("BM"), std::string("GIF89a"), std::string("\xFF\xD8\xFF"), png}) {
        EXPECT_EQ(readBytes(reader, Bytes(text.begin(), text.end())).failure, inHeaders);
    }
    EXPECT_EQ(readBytes(reader, {'B'}).failure, "not a BMP, GIF, JPEG or PNG file");
}

}  // namespace
}  // namespace mobrel::test
