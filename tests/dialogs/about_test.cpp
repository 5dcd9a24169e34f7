// SPDX-License-Identifier: MIT
// The about box.
#include "dialogs/about/fAbout.hpp"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTest>
#include <QTextDocumentFragment>

namespace mobrel {
namespace {

QStringList linesOf(const fAbout& about, const char* label) {
    const QString text = about.findChild<QLabel*>(label)->text();
    return QTextDocumentFragment::fromHtml(text).toPlainText().split(QRegularExpression("[\n\u2028]"));
}

TEST(About, TellsVersionAuthorsAndThanks) {
    const fAbout about;
    EXPECT_EQ(about.windowTitle(), "About");
    EXPECT_EQ(linesOf(about, "lblApp"),
              QStringList({"Mobrel v" MOBREL_MAJOR_MINOR, "The Mobrel maintainers"}));
    QStringList credits = linesOf(about, "lblCredits");
    credits.removeAll("");
    EXPECT_EQ(credits.indexOf("Thanks to:"), 0);
    EXPECT_EQ(credits.indexOf("Special thanks to:"), 1 + 3);
    EXPECT_EQ(credits.size(), 1 + 3 + 1 + 5);
}

TEST(About, IsClosedByItsButtonAndByKeys) {
    const std::function<void(fAbout&)> ends[] = {
        [](fAbout& about) { about.findChild<QPushButton*>("cmdOK")->click(); },
        [](fAbout& about) { QTest::keyClick(about.focusWidget(), Qt::Key_Return); },
        [](fAbout& about) { QTest::keyClick(about.focusWidget(), Qt::Key_Space); },
        [](fAbout& about) { QTest::keyClick(about.focusWidget(), Qt::Key_Escape); },
    };
    for (const auto& end : ends) {
        fAbout about;
        about.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&about));
        end(about);
        EXPECT_FALSE(about.isVisible());
    }
}

}  // namespace
}  // namespace mobrel
