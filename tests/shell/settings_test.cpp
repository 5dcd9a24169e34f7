// SPDX-License-Identifier: MIT
// What forms read from Mobrel.ini and write there.
#include "shell/mSettings.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "platform/base/RuntimeError.hpp"
#include "support/TemporaryFolder.hpp"

namespace mobrel {
namespace {

class Settings : public testing::Test {
 protected:
    void SetUp() override { setenv("MOBREL_FOLDER", m_folder.path().c_str(), 1); }
    void TearDown() override { unsetenv("MOBREL_FOLDER"); }

    void write(const std::string& text) const { std::ofstream(file()) << text; }
    /// Without carriage returns.
    std::string text() const {
        std::ifstream stream(file());
        std::string all{std::istreambuf_iterator<char>(stream), {}};
        std::erase(all, '\r');
        return all;
    }
    std::string folder() const { return m_folder.path() + "/"; }

 private:
    std::string file() const { return m_folder.path() + "/Mobrel.ini"; }
    test::TemporaryFolder m_folder;
};

TEST_F(Settings, WithoutAFileThereAreDefaults) {
    const FilterSettings filter = LoadFilterSettings({150, 300});
    EXPECT_EQ(std::pair(filter.place.Top, filter.place.Left), std::pair(150.F, 300.F));
    EXPECT_EQ(std::tuple(filter.BeforeFit, filter.BeforePickColor, filter.ResetValues, filter.NoClose),
              std::tuple(1, 1, 0, 0));
    const TexturizeSettings texture = LoadTexturizeSettings({1, 2});
    EXPECT_EQ(std::tuple(texture.Weight, texture.Invert, texture.FitMode, texture.NoClose, texture.File),
              std::tuple(25, 0, 0, 0, -1));
    EXPECT_EQ(texture.Folder, folder());
    const ResizeSettings resize = LoadResizeSettings();
    EXPECT_EQ(std::tuple(resize.AspectRatio, resize.Resample), std::tuple(1, 1));
    const WindowPlace pan = LoadPanViewSettings({4, 3, 2, 1.5F});
    EXPECT_EQ(std::tuple(pan.Width, pan.Height, pan.Top, pan.Left), std::tuple(4.F, 3.F, 2.F, 1.5F));
    EXPECT_EQ(text(), "");  // reading makes no file
}

TEST_F(Settings, TheFilterDialogReadsWhatAPersonWrote) {
    write(
        "[Forms]\nFilterTop=-30\nFilterLeft=120.5\n[options]\nfilterbeforefit=0\nFilterBeforePickColor=0\n"
        "FilterResetValues=1\nFilterNoClose= 1\n");
    const FilterSettings filter = LoadFilterSettings({150, 300});
    EXPECT_EQ(std::pair(filter.place.Top, filter.place.Left), std::pair(-30.F, 120.5F));
    EXPECT_EQ(std::tuple(filter.BeforeFit, filter.BeforePickColor, filter.ResetValues, filter.NoClose),
              std::tuple(0, 0, 1, 1));
}

TEST_F(Settings, TextWhereANumberStandsIsAnError) {
    const std::pair<const char*, ErrorNumber> cases[] = {
        {"[Forms]\nFilterTop=high\n", ErrorNumber::TypeMismatch},
        {"[Forms]\nFilterLeft=\n", ErrorNumber::TypeMismatch},
        {"[Forms]\nFilterLeft=1e39\n", ErrorNumber::Overflow},
        {"[Options]\nFilterNoClose=True\n", ErrorNumber::TypeMismatch},
        {"[Options]\nFilterNoClose=32768\n", ErrorNumber::Overflow},
    };
    for (const auto& [content, number] : cases) {
        write(content);
        EXPECT_EQ(fatalErrorOf([] { LoadFilterSettings({}); }), errorText(number)) << content;
    }
}

TEST_F(Settings, ATextureThatNoNumberTellsIsNone) {
    for (const char* value : {"<None>", "stone.bmp", "99999"}) {
        write(std::string("[Folders]\nTexturizeFile=") + value + "\n[Options]\nTexturizeWeight=7\n");
        const TexturizeSettings texture = LoadTexturizeSettings({});
        EXPECT_EQ(std::pair(int{texture.File}, int{texture.Weight}), std::pair(-1, 7)) << value;
    }
}

TEST_F(Settings, FormsWriteTheirKeysInOrder) {
    SaveTexturizeSettings({{15, 30}, 40, 1, 0, 1, "/pictures", 3});
    SaveResizeSettings({0, 1});
    SavePanViewSettings({2400, 1500, 1650, 400});
    EXPECT_EQ(text(),
              "[Forms]\nTexturizeTop=15\nTexturizeLeft=30\nPanViewWidth=2400\nPanViewHeight=1500\n"
              "PanViewTop=1650\nPanViewLeft=400\n"
              "[Folders]\nTexturizeFolder=/pictures\nTexturizeFile=3\n"
              "[Options]\nTexturizeWeight=40\nTexturizeInvert=1\nTexturizeFitMode=0\nTexturizeNoClose=1\n"
              "ResizeAspectRatio=0\nResizeResample=1\n");
    const TexturizeSettings texture = LoadTexturizeSettings({});
    EXPECT_EQ(std::tuple(texture.place.Top, texture.Weight, texture.NoClose, texture.Folder, texture.File),
              std::tuple(15.F, 40, 1, "/pictures", 3));
}

}  // namespace
}  // namespace mobrel
