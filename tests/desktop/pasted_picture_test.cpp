// SPDX-License-Identifier: MIT
// What is taken of the formats that another program offers.
#include "desktop/PastedPicture.hpp"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QMimeData>
#include <cstring>

#include "support/PictureChecks.hpp"

namespace mobrel {
namespace {

/// No two pixels alike, nor their mirrored places.
QImage sample(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) image.setPixelColor(x, y, QColor(10 * x, 20 * y, 255));
    }
    return image;
}

QByteArray encoded(const QImage& image, const char* format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QIODevice::WriteOnly) && image.save(&buffer, format)) << format;
    return bytes;
}

QImage imageOf(const StdPicture& picture) {
    const PixelBuffer& pixels = picture.pixels;
    QImage image(pixels.width(), pixels.height(), QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(image.scanLine(y), pixels.row(image.height() - 1 - y), pixels.bytesPerRow());
    }
    return image;
}

struct Offer {
    const char* format;
    QByteArray bytes;
};

struct Case {
    const char* name;
    std::vector<Offer> offers;
    QImage image;  // as Qt's programs offer one beside the formats
    bool isPicture;
    QSize read;  // of the picture that is taken; its size tells which one
};

TEST(PastedPicture, TakesTheBestThatCanBeRead) {
    const QByteArray png = encoded(sample(5, 3), "PNG");
    const QByteArray bmp = encoded(sample(4, 7), "BMP");
    const QByteArray otherBmp = encoded(sample(1, 1), "BMP");
    const QByteArray broken = png.left(png.size() / 2);
    const QSize none;
    const Case cases[] = {
        {"png", {{"image/png", png}}, {}, true, {5, 3}},
        {"bmp", {{"image/bmp", bmp}}, {}, true, {4, 7}},
        {"old name", {{"image/x-MS-bmp", bmp}}, {}, true, {4, 7}},
        {"png first", {{"image/bmp", bmp}, {"image/png", png}}, {}, true, {5, 3}},
        {"broken png", {{"image/png", broken}, {"image/bmp", bmp}}, {}, true, {4, 7}},
        {"empty png", {{"image/png", ""}, {"image/bmp", bmp}}, {}, true, {4, 7}},
        {"broken bmp", {{"image/bmp", bmp.left(30)}, {"image/x-bmp", otherBmp}}, {}, true, {1, 1}},
        {"Qt's own", {}, sample(2, 9), true, {2, 9}},
        {"Qt's own behind a broken one", {{"image/png", broken}}, sample(2, 9), true, {2, 9}},
        {"all broken", {{"image/png", broken}, {"image/bmp", "BM"}}, {}, true, none},
        {"no bytes", {{"image/png", ""}}, {}, true, none},
        {"text", {{"text/plain", "words"}, {"text/html", "<b>words</b>"}}, {}, false, none},
        {"nothing", {}, {}, false, none},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QMimeData offered;
        for (const Offer& offer : c.offers) offered.setData(offer.format, offer.bytes);
        if (!c.image.isNull()) offered.setImageData(c.image);
        EXPECT_EQ(hasPicture(offered), c.isPicture);
        const auto picture = pictureOf(offered);
        ASSERT_EQ(picture != nullptr, c.read.isValid());
        if (!picture) continue;
        EXPECT_EQ(test::flawOf(*picture), "");
        EXPECT_EQ(imageOf(*picture), sample(c.read.width(), c.read.height()));
    }
}

TEST(PastedPicture, OfLossyOnesTheColoursAreNear) {
    QImage image(16, 8, QImage::Format_RGB32);
    image.fill(QColor(200, 30, 40));
    QMimeData offered;
    offered.setData("image/jpeg", encoded(image, "JPEG"));
    EXPECT_TRUE(hasPicture(offered));
    const auto picture = pictureOf(offered);
    ASSERT_NE(picture, nullptr);
    const QImage read = imageOf(*picture);
    ASSERT_EQ(read.size(), image.size());
    EXPECT_NEAR(read.pixelColor(7, 3).red(), 200, 4);
    EXPECT_NEAR(read.pixelColor(7, 3).green(), 30, 4);
    EXPECT_NEAR(read.pixelColor(7, 3).blue(), 40, 4);
}

}  // namespace
}  // namespace mobrel
