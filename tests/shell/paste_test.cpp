// SPDX-License-Identifier: MIT
// A picture of another program becomes the document.
#include "shell/main_window.hpp"

namespace mobrel {
namespace {

using test::FMain;

std::unique_ptr<StdPicture> pictureOf(int width, int height) {
    auto picture = std::make_unique<StdPicture>();
    picture->pixels = std::move(*PixelBuffer::create(width, height));
    return picture;
}

TEST_F(FMain, PasteStartsANewHistory) {
    insideDialog([&] {
        main.mnuFiles(0);
        main.mnuEdits(4);  // nothing is offered
        EXPECT_EQ(main.LastFilename, fileInFolder("temp.bmp"));
        clipboard.offered = pictureOf(7, 6);
        main.mnuEdits(4);
        EXPECT_EQ(main.LastFilename, "[Unnamed]");
        EXPECT_EQ(main.Info.TextFile(), "[Unnamed]");
        EXPECT_EQ(main.Info.TextInfo(), "7x6x24bpp");
        EXPECT_EQ(std::pair(main.UndoPos(), main.UndoTop()), std::pair(1, 1));
        EXPECT_EQ(temporaryFiles().size(), 1U);
    });
    EXPECT_TRUE(windows.messages.empty());
}

TEST_F(FMain, PasteAsksForChanges) {
    struct Case {
        MessageAnswer answer;
        bool isSaved;
        bool isPasted;
    };
    const Case cases[] = {{MessageAnswer::Cancel, false, false},
                          {MessageAnswer::No, false, true},
                          {MessageAnswer::Yes, true, true}};
    insideDialog([&] {
        for (const Case& c : cases) {
            main.mnuFiles(0);
            main.mnuColorFilters(1);
            const std::string before = test::contentsOf(fileInFolder("temp.bmp"));
            windows.messages.clear();
            windows.answer = c.answer;
            clipboard.offered = pictureOf(7, 6);
            main.mnuEdits(4);
            EXPECT_EQ(windows.messages, std::vector<std::string>{"Save changes before Paste ?"});
            EXPECT_EQ(main.Canvas.DIB.Width(), c.isPasted ? 7 : 5);
            EXPECT_EQ(test::contentsOf(fileInFolder("temp.bmp")) != before, c.isSaved);
        }
        // nothing to lose: saved, or never changed
        for (const bool isChanged : {true, false}) {
            main.mnuFiles(0);
            if (isChanged) main.mnuColorFilters(1);
            if (isChanged) main.mnuFiles(1);
            windows.messages.clear();
            clipboard.offered = pictureOf(7, 6);
            main.mnuEdits(4);
            EXPECT_TRUE(windows.messages.empty());
            EXPECT_EQ(main.Canvas.DIB.Width(), 7);
        }
    });
}

}  // namespace
}  // namespace mobrel
