// SPDX-License-Identifier: MIT
// The user's fonts and colours in the core's drawing.
#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QTest>

#include "desktop/Application.hpp"
#include "desktop/ControlWidget.hpp"
#include "desktop/Cursors.hpp"
#include "desktop/QtValues.hpp"
#include "desktop/SampleControl.hpp"
#include "support/PictureGrid.hpp"

namespace mobrel {
namespace {

/// The smallest rectangle with all pixels that are not 0 in colour.
Rect inkOf(const test::PictureGrid& grid) {
    Rect ink{grid.width(), grid.height(), 0, 0};
    for (int y = 0; y < grid.height(); ++y) {
        for (int x = 0; x < grid.width(); ++x) {
            if ((grid.at(x, y) & 0xFFFFFF) == 0) continue;
            ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                   std::max(ink.bottom, y + 1)};
        }
    }
    return ink;
}

Rect inkOfText(const char* text, const Rect& rect, unsigned flags) {
    test::PictureGrid grid(200, 100);
    auto target = grid.context();
    DrawTextA(target, rect, text, {}, 1, 0xFFFFFF, flags);
    EXPECT_TRUE(grid.isGuardIntact());
    return inkOf(grid);
}

TEST(FontTextTest, StandsWhereItsFlagsSay) {
    const int line = lineHeight({}, 1);
    const int width = textWidth("Hg", {}, 1);
    const Rect room{20, 10, 180, 90};
    struct Case {
        unsigned flags;
        Rect around;  // the line's own place
    };
    const Case cases[] = {
        {DT_LEFT, {20, 10, 20 + width, 10 + line}},
        {DT_CENTER, {100 - width / 2 - 1, 10, 100 + width / 2 + 2, 10 + line}},
        {DT_RIGHT, {180 - width, 10, 180, 10 + line}},
        {DT_VCENTER | DT_SINGLELINE, {20, 50 - line / 2 - 1, 20 + width, 50 + line / 2 + 2}},
        {DT_VCENTER, {20, 10, 20 + width, 10 + line}},  // of a single line only
    };
    for (const Case& c : cases) {
        const Rect ink = inkOfText("Hg", room, c.flags);
        EXPECT_LT(ink.left, ink.right);
        EXPECT_GE(ink.left, c.around.left - 1) << c.flags;
        EXPECT_LE(ink.right, c.around.right + 1) << c.flags;
        EXPECT_GE(ink.top, c.around.top) << c.flags;
        EXPECT_LE(ink.bottom, c.around.bottom) << c.flags;
    }
}

TEST(FontTextTest, LinesBreakWhereTheyMay) {
    const int line = lineHeight({}, 1);
    const Rect room{0, 0, textWidth("wide", {}, 1) + 4, 100};
    EXPECT_LE(inkOfText("wide wide wide", room, DT_LEFT).bottom, line);
    EXPECT_GT(inkOfText("wide wide wide", room, DT_WORDBREAK).bottom, 2 * line);
    EXPECT_GT(inkOfText("a\nb", {0, 0, 200, 100}, DT_LEFT).bottom, line);
    EXPECT_LE(inkOfText("a\nb", {0, 0, 200, 100}, DT_SINGLELINE).bottom, line);
}

TEST(FontTextTest, IsClippedAndPlain) {
    const Rect ink = inkOfText("MMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMMM", {30, 20, 60, 26}, DT_LEFT);
    EXPECT_GE(ink.left, 30);
    EXPECT_LE(ink.right, 60);
    EXPECT_LE(ink.bottom, 26);
    EXPECT_GT(textWidth("a&b", {}, 1), textWidth("ab", {}, 1));
    EXPECT_GT(inkOfText("&&&&", {0, 0, 200, 100}, 0).right, inkOfText("&&", {0, 0, 200, 100}, 0).right);
    for (const Rect& none : {Rect{10, 10, 10, 50}, Rect{50, 50, 10, 10}, Rect{500, 500, 600, 600}}) {
        const Rect nothing = inkOfText("text", none, 0);
        EXPECT_GT(nothing.left, nothing.right);
    }
}

TEST(FontTextTest, GrowsWithTheScaleAndTheFont) {
    for (const TextFont& font : {TextFont{}, TextFont{"", 14, false}, TextFont{"", 8, true}}) {
        EXPECT_NEAR(textWidth("a picture", font, 2), 2 * textWidth("a picture", font, 1), 8);
        EXPECT_NEAR(lineHeight(font, 1.5), 1.5 * lineHeight(font, 1), 2);
    }
    EXPECT_GT(textWidth("bold", {"", 0, true}, 1), textWidth("bold", {"", 0, false}, 1));
    EXPECT_EQ(lineHeight({}, 1), QFontMetrics(QApplication::font()).height());
}

TEST(FontTextTest, AnyRowOrderAndAnyPart) {
    test::PictureGrid topDown(60, 30);
    test::PictureGrid bottomUp(60, 30, RowOrder::BottomUp);
    auto first = topDown.context();
    auto second = bottomUp.context();
    DrawTextA(first, {10, 5, 60, 30}, "Hg", {}, 1, 0xFFFFFF, 0);
    DrawTextA(second, {10, 5, 60, 30}, "Hg", {}, 1, 0xFFFFFF, 0);
    const Rect a = inkOf(topDown);
    const Rect b = inkOf(bottomUp);
    EXPECT_NEAR(a.top, b.top, 1);
    EXPECT_NEAR(a.bottom, b.bottom, 1);
    EXPECT_NEAR(a.right, b.right, 1);

    test::PictureGrid whole(60, 30);
    auto part = whole.context().part({10, 5, 60, 30});
    DrawTextA(part, {0, 0, 50, 25}, "Hg", {}, 1, 0xFFFFFF, 0);
    EXPECT_EQ(inkOf(whole), a);
}

class PaletteTest : public testing::Test {
 protected:
    void TearDown() override { QApplication::setPalette(m_before); }
    QPalette m_before = QApplication::palette();
};

TEST_F(PaletteTest, ColoursAndFontsFollowTheUsers) {
    const QFont fontBefore = QApplication::font();
    QPalette palette(QColor(40, 42, 44), QColor(30, 32, 34));
    palette.setColor(QPalette::Highlight, QColor(1, 2, 3));
    test::SampleControl control;
    QWidget window;  // which nobody sees yet
    const ControlWidget widget(control, &window);
    int before = control.appearanceChanges;
    QApplication::setPalette(palette);
    QCoreApplication::processEvents();
    EXPECT_GT(control.appearanceChanges, before);
    EXPECT_EQ(GetSysColor(SystemColor::Highlight), 0x030201U);
    EXPECT_EQ(GetSysColor(SystemColor::ButtonFace), 0x22201EU);

    before = control.appearanceChanges;
    QFont font = fontBefore;
    font.setPointSizeF(2 * font.pointSizeF());
    const int line = lineHeight({}, 1);
    QApplication::setFont(font);
    QCoreApplication::processEvents();
    EXPECT_GT(lineHeight({}, 1), line);
    EXPECT_GT(control.appearanceChanges, before);
    QApplication::setFont(fontBefore);
}

TEST_F(PaletteTest, TextsCanBeRead) {
    for (const QPalette& palette : {QPalette(Qt::lightGray), QPalette(QColor(45, 45, 45))}) {
        QApplication::setPalette(palette);
        const std::pair<SystemColor, SystemColor> pairs[] = {
            {SystemColor::Window, SystemColor::WindowText},
            {SystemColor::ButtonFace, SystemColor::ButtonText},
            {SystemColor::Highlight, SystemColor::HighlightText},
            {SystemColor::InfoBackground, SystemColor::InfoText},
        };
        for (const auto& [back, text] : pairs) {
            const int difference =
                qtColor(GetSysColor(back)).lightness() - qtColor(GetSysColor(text)).lightness();
            EXPECT_GT(std::abs(difference), 90) << static_cast<int>(back);
        }
    }
}

TEST(CursorTest, PicturesAreWholeAndDiffer) {
    std::vector<QImage> pictures;
    for (const Cursor cursor : {Cursor::HandOver, Cursor::HandCatch, Cursor::PickColor}) {
        for (const double scale : {1.0, 2.0}) {
            const QImage picture = qtCursor(cursor, scale).pixmap().toImage();
            // nothing is cut off: the outermost pixels are empty
            for (int i = 0; i < picture.width(); ++i) {
                EXPECT_EQ(qAlpha(picture.pixel(i, 0)), 0);
                EXPECT_EQ(qAlpha(picture.pixel(picture.width() - 1, i)), 0);
            }
            pictures.push_back(picture);
        }
    }
    EXPECT_NE(pictures[0], pictures[2]);
    EXPECT_NE(pictures[0], pictures[4]);
    // what is picked is under the tip
    const QPoint tip = qtCursor(Cursor::PickColor, 1).hotSpot();
    EXPECT_GT(qAlpha(pictures[4].pixel(tip)), 0);
}

}  // namespace
}  // namespace mobrel
