// SPDX-License-Identifier: MIT
// Profile files on a disk.
#include "platform/system/ProfileFile.hpp"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "support/TemporaryFolder.hpp"

namespace mobrel {
namespace {

using namespace std::string_literals;
using test::TemporaryFolder;

TEST(GetPrivateProfileString, cutsTheValueToTheSize) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.ini", "[S]\nk=\"abcdef\"\nempty=\n");
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", 255, path), "abcdef");
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", 7, path), "abcdef");
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", 6, path), "abcde");
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", 1, path), "");
    EXPECT_EQ(GetPrivateProfileString("S", "k", "", 0, path), "");
    EXPECT_EQ(GetPrivateProfileString("S", "none", "abcdef", 3, path), "ab");
    EXPECT_EQ(GetPrivateProfileString("S", "empty", "default", 255, path), "");
}

TEST(GetPrivateProfileString, givesTheDefaultForWhatIsMissing) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.ini", "[S]\nk=1\n");
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    for (const std::string& file : {path, folder.file("none.ini"), folder.path(), folder.file("pipe"), ""s,
                                    path + "\0.ini"s, path + "/k"}) {
        EXPECT_EQ(GetPrivateProfileString("S", "none", " d \t", 255, file), " d") << file;
        EXPECT_EQ(GetPrivateProfileString("S", "none", "\"d \" ", 255, file), "d ") << file;
    }
}

TEST(WritePrivateProfileString, writesAndLeavesNothingElse) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a.ini");
    EXPECT_TRUE(WritePrivateProfileString("S", "a", "1", path));
    EXPECT_TRUE(WritePrivateProfileString("S", "b", "2", path));
    EXPECT_TRUE(WritePrivateProfileString("T", "a", "3", path));
    EXPECT_TRUE(WritePrivateProfileString("S", "a", "4", path));
    EXPECT_EQ(folder.read("a.ini"), "[S]\r\na=4\r\nb=2\r\n[T]\r\na=3\r\n");
    EXPECT_FALSE(WritePrivateProfileString("S", "a", "5\n", path));
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.ini"});
}

TEST(WritePrivateProfileStrings, writesWhatCanStandInTheFile) {
    const TemporaryFolder folder;
    const std::string path = folder.file("a.ini");
    const ProfileValue values[] = {{"S", "a", "1"}, {"S", "b", "2\n"}, {"T", "c", "3"}, {"S", "a", "4"}};
    EXPECT_FALSE(WritePrivateProfileStrings(values, path));
    EXPECT_EQ(folder.read("a.ini"), "[S]\r\na=4\r\n[T]\r\nc=3\r\n");
    EXPECT_TRUE(WritePrivateProfileStrings({values, 1}, path));
    EXPECT_EQ(folder.read("a.ini"), "[S]\r\na=1\r\n[T]\r\nc=3\r\n");
}

TEST(WritePrivateProfileString, leavesTheFileAloneWhenTheValueIsThere) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.ini", "[S]\n a = 1\n");
    struct stat before = {}, after = {};
    ASSERT_EQ(::stat(path.c_str(), &before), 0);
    EXPECT_TRUE(WritePrivateProfileString("S", "A", "1", path));
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_EQ(before.st_ino, after.st_ino);
    EXPECT_TRUE(WritePrivateProfileString("S", "A", "2", path));
    ASSERT_EQ(::stat(path.c_str(), &after), 0);
    EXPECT_NE(before.st_ino, after.st_ino) << "a change comes by a new file";
}

constexpr uid_t kNobody = 65534;

TEST(WritePrivateProfileString, keepsTheModeAndOwnerAndGivesNewFilesTheUsualOne) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.ini", "[S]\na=1\n");
    const mode_t oldMask = ::umask(027);
    for (const mode_t mode : {0600u, 0666u, 0755u}) {
        ASSERT_EQ(::chmod(path.c_str(), mode), 0);
        ASSERT_TRUE(::geteuid() != 0 || ::chown(path.c_str(), kNobody, kNobody) == 0);
        EXPECT_TRUE(WritePrivateProfileString("S", "a", std::to_string(mode), path));
        struct stat status = {};
        ASSERT_EQ(::stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, mode);
        EXPECT_TRUE(::geteuid() != 0 || (status.st_uid == kNobody && status.st_gid == kNobody));
    }
    EXPECT_TRUE(WritePrivateProfileString("S", "a", "1", folder.file("new.ini")));
    ::umask(oldMask);
    struct stat status = {};
    ASSERT_EQ(::stat(folder.file("new.ini").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, mode_t{0640});
}

TEST(WritePrivateProfileString, writesBehindSymbolicLinks) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("deep"));
    folder.write("deep/real.ini", "[S]\na=1\n");
    std::filesystem::create_symlink("real.ini", folder.file("deep/link.ini"));
    std::filesystem::create_symlink("deep/link.ini", folder.file("link.ini"));
    std::filesystem::create_symlink("deep/new.ini", folder.file("dangling.ini"));
    std::filesystem::create_symlink("circle.ini", folder.file("circle.ini"));

    EXPECT_TRUE(WritePrivateProfileString("S", "a", "2", folder.file("link.ini")));
    EXPECT_EQ(folder.read("deep/real.ini"), "[S]\na=2\n");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link.ini")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("deep/link.ini")));
    EXPECT_TRUE(WritePrivateProfileString("S", "a", "2", folder.file("dangling.ini")));
    EXPECT_EQ(folder.read("deep/new.ini"), "[S]\r\na=2\r\n");
    EXPECT_FALSE(WritePrivateProfileString("S", "a", "2", folder.file("circle.ini")));
}

TEST(WritePrivateProfileString, failsWithoutAPlaceToWrite) {
    const TemporaryFolder folder;
    folder.write("a.ini", "[S]\na=1\n");
    std::filesystem::create_directory(folder.file("folder"));
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);
    for (const std::string& path :
         {folder.file("none/a.ini"), folder.file("a.ini/b.ini"), folder.file("folder"), folder.file("pipe"),
          folder.file("b.ini\0c"s), ""s}) {
        EXPECT_FALSE(WritePrivateProfileString("S", "a", "2", path)) << path;
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"a.ini", "folder", "pipe"}));
}

// Makes a check in a child process, which may give up rights for good: 0 when it holds, 1 when not.
int statusInChild(const std::function<bool()>& prepare, const std::function<bool()>& check) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(!prepare() ? 2 : check() ? 0 : 1);
    int status = -1;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// The superuser may write anywhere, nobody may not.
bool becomeNobody() {
    return ::geteuid() != 0 || (::setgid(kNobody) == 0 && ::setuid(kNobody) == 0);
}

bool limitFilesTo100Bytes() {
    const rlimit limit = {100, 100};
    return ::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && ::setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

TEST(WritePrivateProfileString, leavesTheOldFileWhenTheNewOneDoesNotFit) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.ini", "[S]\na=1\n");
    const auto write = [&](std::size_t size) {
        return [&path, size] { return WritePrivateProfileString("S", "a", std::string(size, 'x'), path); };
    };
    EXPECT_EQ(statusInChild(limitFilesTo100Bytes, write(200)), 1);
    EXPECT_EQ(folder.read("a.ini"), "[S]\na=1\n");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.ini"});
    EXPECT_EQ(statusInChild(limitFilesTo100Bytes, write(50)), 0);
}

TEST(WritePrivateProfileString, respectsProtection) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a.ini", "[S]\na=1\n");
    const auto write = [&] { return WritePrivateProfileString("S", "a", "2", path); };
    const auto writeSame = [&] { return WritePrivateProfileString("S", "a", "1", path); };

    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    EXPECT_EQ(statusInChild(becomeNobody, writeSame), 0) << "nothing to write";
    EXPECT_EQ(statusInChild(becomeNobody, write), 0) << "a folder that takes no new file";
    EXPECT_EQ(folder.read("a.ini"), "[S]\na=2\n");
    folder.write("a.ini", "[S]\na=1\n");
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    ASSERT_EQ(::chmod(path.c_str(), 0444), 0);
    EXPECT_EQ(statusInChild(becomeNobody, write), 1) << "a file that cannot be written";
    EXPECT_EQ(folder.read("a.ini"), "[S]\na=1\n");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.ini"});
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    EXPECT_EQ(statusInChild(becomeNobody, write), 0) << "nothing in the way";
}

TEST(WritePrivateProfileString, showsReadersTheOldOrTheNewFile) {
    const TemporaryFolder folder;
    const std::string filler(20000, 'f');
    const std::string path = folder.write("a.ini", "[S]\na=1\nfiller=" + filler + "\n[T]\nlast=x\n");
    const pid_t writer = ::fork();
    if (writer == 0) {
        bool good = true;
        for (int i = 0; i < 400; ++i) {
            good =
                good && WritePrivateProfileString("S", "a", i % 2 == 0 ? std::string(30000, '2') : "1", path);
        }
        ::_exit(good ? 0 : 1);
    }
    int reads = 0;
    int status = -1;
    while (::waitpid(writer, &status, WNOHANG) == 0 || reads == 0) {
        const std::string a = GetPrivateProfileString("S", "a", "(absent)", 65536, path);
        ASSERT_TRUE(a == "1" || a == std::string(30000, '2')) << a.substr(0, 40);
        ASSERT_EQ(GetPrivateProfileString("T", "last", "(absent)", 255, path), "x");
        ++reads;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.ini"});
}

}  // namespace
}  // namespace mobrel
