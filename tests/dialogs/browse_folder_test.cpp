// SPDX-License-Identifier: MIT
// The folder picker.
#include "dialogs/pickers/mBrowseFolder.hpp"

#include <gtest/gtest.h>

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <filesystem>

#include "desktop/QtValues.hpp"
#include "dialogs/OpenDialog.hpp"
#include "support/TemporaryFolder.hpp"

namespace mobrel {
namespace {

using test::whenOpen;
using Act = std::function<void(QFileDialog&)>;

void cancel(QFileDialog& dialog) {
    dialog.reject();
}

void agree(QFileDialog& dialog) {
    dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->click();
}

/// Selects a folder in the one that is open.
void select(QFileDialog& dialog, const std::string& name) {
    auto* const view = dialog.findChild<QTreeView*>("treeView");
    const auto inView = [&] {
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row) {
            const QModelIndex index = view->model()->index(row, 0, view->rootIndex());
            if (index.data().toString().toStdString() == name) return index;
        }
        return QModelIndex();
    };
    ASSERT_TRUE(QTest::qWaitFor([&] { return inView().isValid(); })) << name;  // read by a thread of Qt's
    view->setCurrentIndex(inView());
}

Act selectAnd(const std::string& name, const Act& end) {
    return [=](QFileDialog& dialog) {
        select(dialog, name);
        end(dialog);
    };
}

std::string status(const QFileDialog& dialog) {
    return dialog.findChild<QLabel*>("lblStatus")->text().toStdString();
}

class BrowseFolder : public testing::Test {
 protected:
    void SetUp() override {
        std::filesystem::create_directories(m_folder.file("first/inner"));
        std::filesystem::create_directories(m_folder.file("second"));
        qputenv("MOBREL_FOLDER", m_folder.path().c_str());
    }
    void TearDown() override { qunsetenv("MOBREL_FOLDER"); }

    /// Where the dialog opened is noted in m_opened.
    std::string browse(const std::string& start, const Act& act) {
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            m_opened = dialog.directory().absolutePath().toStdString();
            EXPECT_EQ(status(dialog), m_opened);
            act(dialog);
        });
        return BrowseForFolder(nullptr, "Select source folder", start);
    }

    const test::TemporaryFolder m_folder;
    std::string m_opened;
};

// The first test here: the program's folder is the start of the first call alone.
TEST_F(BrowseFolder, StartsWhereTheLastCallEnded) {
    const std::string root = m_folder.path();
    struct Case {
        std::string start;
        Act act;
        std::string opened;
        std::string answer;
    };
    const Case cases[] = {
        {"", selectAnd("first", agree), root, root + "/first"},
        {"", selectAnd("inner", cancel), root + "/first", ""},
        {"", agree, root + "/first/inner", root + "/first/inner"},  // the open folder itself
        {root + "/second", cancel, root + "/second", ""},
        {"", cancel, root + "/second", ""},
        {"/", cancel, root + "/second", ""},  // too short for a start
        {root + "/gone", cancel, QDir::homePath().toStdString(), ""},
        {root + "//second/", agree, root + "/second", root + "/second"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(browse(c.start, c.act), c.answer) << c.opened;
        EXPECT_EQ(m_opened, c.opened);
    }
}

TEST_F(BrowseFolder, TheRootIsAPlaceToComeBackTo) {
    const std::string root = m_folder.path();
    browse(root, [](QFileDialog& dialog) {
        for (int up = 0; up < 50 && !dialog.directory().isRoot(); ++up) {
            dialog.findChild<QToolButton*>("toParentButton")->click();
        }
        QCoreApplication::processEvents();
    });
    browse("", cancel);
    EXPECT_EQ(m_opened, "/");
}

TEST_F(BrowseFolder, StatusTellsWhatWouldBeChosen) {
    const std::string root = m_folder.path();
    const std::string answer = browse(root, [&](QFileDialog& dialog) {
        auto* const view = dialog.findChild<QTreeView*>("treeView");
        auto* const edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        const auto enterFirst = [&] {
            select(dialog, "first");
            emit view->activated(view->currentIndex());  // as a double click
        };
        const auto click = [&](const char* name) { dialog.findChild<QToolButton*>(name)->click(); };
        const std::pair<std::function<void()>, std::string> steps[] = {
            {[&] { select(dialog, "second"); }, root + "/second"},
            {enterFirst, root + "/first"},
            {[&] { click("backButton"); }, root},
            {[&] { click("forwardButton"); }, root + "/first"},
            {[&] { edit->setText("inner"); }, root + "/first/inner"},
            {[&] { edit->setText("inn"); }, root + "/first/inner"},  // is no folder
            {[&] { edit->setText(qtText(root) + "/second/"); }, root + "/second"},
            {[&] { click("toParentButton"); }, root},
        };
        for (const auto& [act, wanted] : steps) {
            act();
            QCoreApplication::processEvents();
            static_cast<void>(QTest::qWaitFor([&] { return status(dialog) == wanted; }));  // as above
            EXPECT_EQ(status(dialog), wanted);
        }
        agree(dialog);
    });
    EXPECT_EQ(answer, root);
}

TEST_F(BrowseFolder, ALongPathLeavesTheWindowAsItIs) {
    const std::string deep = m_folder.file(std::string(200, 'a') + "/" + std::string(200, 'b'));
    std::filesystem::create_directories(deep);
    int width = 0;
    const Act measure = [&](QFileDialog& dialog) { width = dialog.minimumSizeHint().width(); };
    browse(m_folder.path(), measure);
    const int usual = width;
    browse(deep, measure);
    EXPECT_EQ(width, usual);
}

TEST_F(BrowseFolder, ProgramFolderEndsInOneSeparator) {
    EXPECT_EQ(AppPathSlash(), m_folder.path() + "/");
    qputenv("MOBREL_FOLDER", "/");
    EXPECT_EQ(AppPathSlash(), "/");
}

}  // namespace
}  // namespace mobrel
