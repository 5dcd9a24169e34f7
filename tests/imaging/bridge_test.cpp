// SPDX-License-Identifier: MIT
// Pictures to and from the formats that are no BMP.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "imaging/FittedPalette.hpp"
#include "imaging/GifReduction.hpp"
#include "imaging/NearestByCells.hpp"
#include "imaging/NearestByFullSearch.hpp"
#include "imaging/cDIBDither.hpp"
#include "imaging/mGDIpEx.hpp"
#include "platform/pictures/PictureReader.hpp"
#include "support/TemporaryFolder.hpp"
#include "support/TestPictures.hpp"

namespace mobrel {
namespace {

using test::Picture;

constexpr ImageFormat kFormats[] = {ImageFormat::Gif, ImageFormat::Jpeg, ImageFormat::Png};
constexpr auto kUnknown = static_cast<ImageFormat>(3);

/// A smooth picture of many colours.
Picture sunset(int width, int height) {
    Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto part = [](int i, int of) { return static_cast<std::uint8_t>(i * 255 / of); };
            picture.at(x, y) = {part(y, height), part(x, width), part(width - x + y, width + height), 0};
        }
    }
    return picture;
}

/// So many colours, each on several pixels.
Picture ofColours(int colours) {
    Picture picture(64, 32);
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const auto number = static_cast<int>(i) * 7 % colours;
        picture.pixels[i] = {static_cast<std::uint8_t>(number), static_cast<std::uint8_t>(number >> 8),
                             static_cast<std::uint8_t>(number * 3), 0};
    }
    return picture;
}

Picture pixelsOf(const PixelBuffer& buffer) {
    Picture picture(buffer.width(), buffer.height());
    std::copy_n(buffer.bits(), picture.pixels.size() * 4, picture.pixels.front().data());
    return picture;
}

double squaredDistance(const Picture& a, const Picture& b) {
    double sum = 0;
    for (std::size_t i = 0; i < a.pixels.size(); ++i) {
        for (const std::size_t channel : test::kChannels) {
            const double difference = a.pixels[i][channel] - b.pixels[i][channel];
            sum += difference * difference;
        }
    }
    return sum / static_cast<double>(a.pixels.size());
}

class Bridge : public testing::Test {
 protected:
    bool save(const Picture& picture, ImageFormat format, int quality = 90) {
        test::toSurface(picture, dib);
        return SaveDIB(dib, file, format, quality);
    }

    bool isThere() const { return fileExists(file); }

    test::TemporaryFolder folder;
    std::string file = folder.file("picture");
    cDIB dib;
};

TEST_F(Bridge, PngComesBackAsItWas) {
    for (const Picture& picture : {Picture(1, 1, {1, 2, 3, 0}), sunset(37, 21), sunset(300, 2)}) {
        ASSERT_TRUE(save(picture, ImageFormat::Png));
        const auto loaded = LoadPictureGDIp(file);
        ASSERT_NE(loaded, nullptr);
        EXPECT_EQ(test::firstDifference(picture, pixelsOf(loaded->pixels)), "");
    }
}

TEST_F(Bridge, LoadsTransparentPixelsOverBlack) {
    // red, green, blue 200, 100, 50: transparent, then opaque
    constexpr std::uint8_t kPng[] = {
        0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44,
        0x52, 0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x01, 0x08, 0x06, 0x00, 0x00, 0x00, 0xF4,
        0x22, 0x7F, 0x8A, 0x00, 0x00, 0x00, 0x0F, 0x49, 0x44, 0x41, 0x54, 0x78, 0xDA, 0x63, 0x38,
        0x91, 0x62, 0xC4, 0x00, 0xC4, 0xFF, 0x01, 0x0F, 0xE0, 0x03, 0xBC, 0xF1, 0x45, 0xD6, 0xE6,
        0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82,
    };
    folder.write("picture", {reinterpret_cast<const char*>(kPng), sizeof kPng});
    const auto loaded = LoadPictureGDIp(file);
    ASSERT_NE(loaded, nullptr);
    Picture expected(2, 1);
    expected.at(1, 0) = {50, 100, 200, 0};
    EXPECT_EQ(test::firstDifference(expected, pixelsOf(loaded->pixels)), "");
}

TEST_F(Bridge, LoadsNothingElse) {
    EXPECT_EQ(LoadPictureGDIp(folder.file("none")), nullptr);
    EXPECT_EQ(LoadPictureGDIp(folder.path()), nullptr);
    EXPECT_EQ(LoadPictureGDIp(""), nullptr);
    EXPECT_EQ(LoadPictureGDIp(folder.write("words", "no picture")), nullptr);
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_EQ(LoadPictureGDIp(folder.file("pipe")), nullptr);
    for (const ImageFormat other : {ImageFormat::Gif, ImageFormat::Jpeg}) {
        ASSERT_TRUE(save(sunset(8, 8), other));
        EXPECT_EQ(LoadPictureGDIp(file), nullptr) << static_cast<int>(other);
    }
    ASSERT_TRUE(save(sunset(40, 40), ImageFormat::Png));
    const std::string whole = folder.read("picture");
    EXPECT_EQ(LoadPictureGDIp(folder.write("half", whole.substr(0, whole.size() / 2))), nullptr);
}

TEST_F(Bridge, JpegFollowsTheQuality) {
    const Picture picture = sunset(96, 64);
    std::vector<std::size_t> sizes;
    std::vector<double> distances;
    for (const int quality : {0, 50, 100}) {
        ASSERT_TRUE(save(picture, ImageFormat::Jpeg, quality));
        sizes.push_back(folder.read("picture").size());
        distances.push_back(squaredDistance(picture, pixelsOf(readPictureFile(file)->pixels)));
    }
    EXPECT_TRUE(std::is_sorted(sizes.begin(), sizes.end()));
    EXPECT_LT(sizes.front(), sizes.back());
    EXPECT_GT(distances.front(), distances.back());
    EXPECT_LT(distances.back(), 10);
}

TEST_F(Bridge, GifKeepsEveryColourOfAPictureOfFew) {
    for (const int colours : {1, 2, 3, 16, 17, 255, 256}) {
        const Picture picture = ofColours(colours);
        ASSERT_TRUE(save(picture, ImageFormat::Gif));
        EXPECT_EQ(test::firstDifference(picture, pixelsOf(readPictureFile(file)->pixels)), "") << colours;
        EXPECT_EQ(reduceForGif(dib).colorTable.size(), static_cast<std::size_t>(colours));
    }
}

TEST_F(Bridge, GifReducesAPictureOfManyBetterThanTheDepthCommandWould) {
    for (const Picture& picture : {sunset(200, 150), sunset(31, 400), ofColours(257)}) {
        ASSERT_TRUE(save(picture, ImageFormat::Gif));
        const Picture reduced = pixelsOf(readPictureFile(file)->pixels);
        const std::set<test::Pixel> colours(reduced.pixels.begin(), reduced.pixels.end());
        EXPECT_LE(colours.size(), 256U);

        cDIB copy;
        cDIBPal palette;
        copyForPalette(copy, dib);
        createFitted256(palette, copy);
        EXPECT_EQ(test::fromSurface(dib), picture) << "saving changes no pixel";
        cDIBDither().DitherToColorPalette(dib, palette, true);
        EXPECT_LT(squaredDistance(picture, reduced), squaredDistance(picture, test::fromSurface(dib)));
    }
}

TEST_F(Bridge, SaveDeletesTheFileFirst) {
    for (const ImageFormat format : kFormats) {
        folder.write("picture", std::string(100'000, 'x'));
        EXPECT_TRUE(save(sunset(3, 3), format));
        EXPECT_LT(folder.read("picture").size(), 5000U);
        folder.write("picture", "old");
        EXPECT_FALSE(SaveDIB(cDIB(), file, format, 90));
        EXPECT_FALSE(isThere()) << "an empty surface";
    }
    folder.write("picture", "old");
    EXPECT_FALSE(save(sunset(3, 3), kUnknown));
    EXPECT_FALSE(isThere()) << "an unknown format";
    for (const ImageFormat format : {ImageFormat::Gif, ImageFormat::Jpeg}) {
        folder.write("picture", "old");
        EXPECT_FALSE(save(Picture(65536, 1), format));
        EXPECT_FALSE(isThere()) << "too wide for the format";
    }
    for (const std::string& nowhere : {folder.file("none/picture"), folder.path(), std::string()}) {
        EXPECT_FALSE(SaveDIB(dib, nowhere, ImageFormat::Png, 90)) << nowhere;
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{});
}

TEST_F(Bridge, AFullDiskLeavesNoFile) {
    rlimit earlier{};
    getrlimit(RLIMIT_FSIZE, &earlier);
    const auto earlierHandler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limited{200, earlier.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limited);
    for (const ImageFormat format : kFormats) {
        EXPECT_FALSE(save(sunset(200, 200), format));
        EXPECT_FALSE(isThere()) << static_cast<int>(format);
    }
    setrlimit(RLIMIT_FSIZE, &earlier);
    std::signal(SIGXFSZ, earlierHandler);
}

TEST_F(Bridge, WritePictureTellsErrorsAndLeavesTheFileOpen) {
    FileWriter writer = FileWriter::replace(file);
    const auto errorOf = [&](const cDIB& surface, ImageFormat format) {
        try {
            writePicture(writer, surface, format, 90);
        } catch (const RuntimeError& error) {
            return static_cast<int>(error.number());
        }
        return 0;
    };
    test::toSurface(sunset(5, 4), dib);
    EXPECT_EQ(errorOf(cDIB(), ImageFormat::Png), 5);
    EXPECT_EQ(errorOf(dib, kUnknown), 5);
    EXPECT_EQ(errorOf(dib, ImageFormat::Png), 0);
    writer.write({{'e', 'n', 'd'}});
    writer.close();
    EXPECT_TRUE(folder.read("picture").ends_with("end"));
    EXPECT_NE(LoadPictureGDIp(file), nullptr);
}

TEST(NearestByCells, AnswersAsTheFullSearchDoes) {
    std::uint32_t state = 7;
    const auto next = [&] { return static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24); };
    for (const std::size_t count : {1U, 2U, 16U, 256U}) {
        std::vector<RgbQuad> entries(count);
        for (RgbQuad& entry : entries) {
            entry = {next(), next(), next(), 0};
            if (next() < 64) entry = entries.front();  // doubles: the lowest index counts
        }
        const NearestByFullSearch full(entries);
        NearestByCells quick(entries);
        int wrong = 0;
        for (int i = 0; i < 20000; ++i) {
            const RgbQuad colour = {next(), next(), next(), 0};
            wrong += quick.index(colour) != full.index(colour.red, colour.green, colour.blue);
        }
        for (const RgbQuad& entry : entries) {
            wrong += quick.index(entry) != full.index(entry.red, entry.green, entry.blue);
        }
        EXPECT_EQ(wrong, 0) << count;
    }
}

}  // namespace
}  // namespace mobrel
