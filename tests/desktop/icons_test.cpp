// SPDX-License-Identifier: MIT
// Icons have the colour of texts and the sharpness of the screen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QPixmap>

#include "desktop/Icons.hpp"

namespace mobrel {
namespace {

constexpr int kSide = 16;

class IconTest : public testing::Test {
 protected:
    void TearDown() override { QApplication::setPalette(m_before); }
    QPalette m_before = QApplication::palette();
};

QImage pictureOf(const QIcon& icon, double ratio = 1, QIcon::Mode mode = QIcon::Normal) {
    return icon.pixmap(QSize(kSide, kSide), ratio, mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

/// The colour of each pixel that is wholly covered; invalid when they differ or there is none.
QColor inkOf(const QImage& picture) {
    QColor ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            if (pixel.alpha() < 255) continue;
            if (ink.isValid() && pixel != ink) return {};
            ink = pixel;
        }
    }
    return ink;
}

TEST_F(IconTest, HasTheColourOfTextsAndFollowsIt) {
    const QIcon icon = drawnIcon("undo");
    for (const QColor& window : {QColor(239, 239, 239), QColor(40, 42, 44)}) {
        const QPalette palette(window);
        QApplication::setPalette(palette);
        const QColor text = palette.color(QPalette::Active, QPalette::ButtonText);
        const QColor disabled = palette.color(QPalette::Disabled, QPalette::ButtonText);
        ASSERT_NE(text.rgb(), disabled.rgb());
        EXPECT_EQ(inkOf(pictureOf(icon)).rgb(), text.rgb());
        EXPECT_EQ(inkOf(pictureOf(icon, 1, QIcon::Disabled)).rgb(), disabled.rgb());
    }
}

TEST_F(IconTest, LinesEndAtDevicePixels) {
    // The bar of the sign is one unit high, on row 6 of the 16 of the drawing.
    const QIcon icon = drawnIcon("zoom-out");
    for (const int ratio : {1, 2, 3}) {
        const QImage picture = pictureOf(icon, ratio);
        ASSERT_EQ(picture.size(), QSize(kSide, kSide) * ratio);
        const int middle = 13 * ratio / 2;
        for (int y = 5 * ratio; y < 8 * ratio; ++y) {
            const int wanted = y / ratio == 6 ? 255 : 0;
            EXPECT_NEAR(qAlpha(picture.pixel(middle, y)), wanted, 10) << y << " at " << ratio;
        }
    }
}

TEST_F(IconTest, IsPaintedForTheDevice) {
    const QIcon icon = drawnIcon("zoom-in");
    QImage picture(2 * kSide, 2 * kSide, QImage::Format_ARGB32);
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    icon.paint(&painter, QRect(0, 0, kSide, kSide));
    painter.end();
    EXPECT_EQ(picture, pictureOf(icon, 2));
}

TEST_F(IconTest, EachNameHasItsOwnWholePicture) {
    std::vector<QImage> pictures;
    for (const char* const name : {"undo", "redo", "zoom-in", "zoom-out", "close"}) {
        const QIcon icon = drawnIcon(name);
        ASSERT_FALSE(icon.isNull()) << name;
        const QImage picture = pictureOf(icon);
        EXPECT_TRUE(inkOf(picture).isValid()) << name;
        for (int i = 0; i < kSide; ++i) {  // nothing is cut off: the outermost pixels are empty
            for (const QPoint& edge : {QPoint(i, 0), QPoint(i, 15), QPoint(0, i), QPoint(15, i)}) {
                EXPECT_LT(qAlpha(picture.pixel(edge)), 10) << name;
            }
        }
        for (const QImage& other : pictures) EXPECT_NE(picture, other) << name;
        pictures.push_back(picture);
    }
}

TEST_F(IconTest, AnUnknownNameGivesNone) {
    for (const char* const name : {"", "no-such"}) EXPECT_TRUE(drawnIcon(name).isNull()) << name;
}

}  // namespace
}  // namespace mobrel
