// SPDX-License-Identifier: MIT
// Profile files: what is read from them, and what a write leaves behind.
#include "platform/ProfileFile.hpp"

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

#include "platform/ProfileText.hpp"
#include "support/TemporaryFolder.hpp"

namespace mobrel {
namespace {

using namespace std::string_literals;
using test::TemporaryFolder;

// What a read gives for a key that is not there.
const std::string kAbsent = "(absent)";

std::string valueIn(std::string_view bytes, std::string_view section, std::string_view key) {
    return profileValue(bytes, section, key).value_or(kAbsent);
}

struct ReadCase {
    std::string bytes;
    std::string section;
    std::string key;
    std::string value;
};

TEST(ProfileReading, findsSectionsAndKeys) {
    const std::vector<ReadCase> cases = {
        // Letter case counts for nothing, but only that of ASCII letters.
        {"[Sec]\nKey=val\n", "sEC", "kEY", "val"},
        {"[S]\n\xC3\xA9=1\n", "S", "\xC3\x89", kAbsent},
        {"[S]\n\xC3\xA9=1\n", "S", "\xC3\xA9", "1"},
        {"[S]\n\xE9=\xFF\x80\n", "S", "\xE9", "\xFF\x80"},
        // Outer blanks of names, in the file and in the question.
        {"[S]\n \tLead=1\n", "S", "Lead", "1"},
        {"[S]\nTrail\t =1\n", "S", "Trail", "1"},
        {"[S]\nin ner=a b  c\n", "S", "in ner", "a b  c"},
        {"[S]\ninner=1\n", "S", "in ner", kAbsent},
        {"[S]\nKey=1\n", " S\t", "\t Key ", "1"},
        {"[ Sp ]\nk=1\n", "Sp", "k", "1"},
        {"  [Ind]\nk=1\n", "Ind", "k", "1"},
        {"[Tab]\t\nk=1\n", "Tab", "k", "1"},
        // Comments are lines of a name of their own; other marks are no comments.
        {"[S]\n;k=1\n", "S", "k", kAbsent},
        {"[S]\n;k=1\n", "S", ";k", "1"},
        {"[S]\n#h=3\n//x=4\n", "S", "#h", "3"},
        {"[S]\n#h=3\n//x=4\n", "S", "//x", "4"},
        {"[S]\n;[T]\nk=1\n", "S", "k", "1"},
        {"[S]\nnoeq\n", "S", "noeq", kAbsent},
        {"[S]\n\nnoeq\n", "S", "", kAbsent},
        // The first of a name counts.
        {"[S]\nk=1\nK=2\n", "S", "k", "1"},
        {"[S]\nk=1\n[s]\nk=2\nonly=3\n", "S", "k", "1"},
        {"[S]\nk=1\n[s]\nk=2\nonly=3\n", "S", "only", kAbsent},
        {"[S]\n[T]\nk=2\n", "S", "k", kAbsent},
        // Headers.
        {"[Tr] junk\nk=1\n", "Tr", "k", "1"},
        {"[x]y]\nk=1\n", "x]y", "k", "1"},
        {"[x]y]\nk=1\n", "x", "k", kAbsent},
        {"[S]\n[Open\nk=1\n", "S", "k", "1"},
        {"[S]\n[Open\nk=1\n", "Open", "k", kAbsent},
        {"[S]\n[k]=2\n", "S", "[k]", kAbsent},
        {"top=1\n[S]\nk=2\n", "", "top", "1"},
        {"top=1\n[S]\nk=2\n", "", "k", kAbsent},
        {"top=1\n[S]\nk=2\n", "S", "top", kAbsent},
        // Line ends.
        {"[S]\nk=1", "S", "k", "1"},
        {"[S]\n\n  \nk=1\n", "S", "k", "1"},
        {"[S]\r\nk=1\r\nl=2\r\n", "S", "k", "1"},
        {"[S]\rk=1\rl=2\r", "S", "l", "2"},
        {"[S]\r\r\nk=1\r\r\nl=2", "S", "k", "1"},
        {"", "S", "k", kAbsent},
        {"[S]", "S", "k", kAbsent},
        // Zero bytes are bytes of a line.
        {"[S]\n\0k=1\nl=a\0b\n"s, "S", "k", kAbsent},
        {"[S]\n\0k=1\nl=a\0b\n"s, "S", "l", "a\0b"s},
    };
    for (const ReadCase& c : cases) {
        EXPECT_EQ(valueIn(c.bytes, c.section, c.key), c.value)
            << testing::PrintToString(c.bytes) << " [" << c.section << "] " << c.key;
    }
}

TEST(ProfileReading, takesBlanksAndOneQuotePairOffValues) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"  3  ", "3"},
        {"\t3\t ", "3"},
        {"a=b", "a=b"},
        {"", ""},
        {"   ", ""},
        {"\"abc\"", "abc"},
        {"'abc'", "abc"},
        {" \"x\" ", "x"},
        {"\"abc", "\"abc"},
        {"abc\"", "abc\""},
        {"'abc\"", "'abc\""},
        {"\"", "\""},
        {"\"\"", ""},
        {"\" sp \"", " sp "},
        {"\"\"abc\"\"", "\"abc\""},
        {"\"a\"b\"", "a\"b"},
        {"'it's'", "it's"},
        {"\"a\" ;c", "\"a\" ;c"},
        {"4 ; tail", "4 ; tail"},
        {"5;tail", "5;tail"},
    };
    for (const auto& [written, value] : cases) {
        EXPECT_EQ(valueIn("[S]\nk=" + written + "\n", "S", "k"), value) << written;
    }
}

// "[S]", "é=a😀", and a high half that stands alone, after `mark` and with `order` of the bytes.
std::string utf16File(bool littleEndian) {
    std::string bytes;
    for (const char16_t unit : u"\xFEFF[S]\r\n\x00E9=a\xD83D\xDE00\r\n; \xD83D.\r\nk=1\r\n"s) {
        const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
        bytes += littleEndian ? low : high;
        bytes += littleEndian ? high : low;
    }
    return bytes;
}

TEST(ProfileEncodings, areReadByTheirMark) {
    EXPECT_EQ(valueIn("\xEF\xBB\xBF[S]\nk=\xC3\xA9\n", "S", "k"), "\xC3\xA9");
    EXPECT_EQ(valueIn("\xEF\xBB\xBFk=1\n", "", "k"), "1");
    for (const bool littleEndian : {true, false}) {
        const std::string file = utf16File(littleEndian);
        EXPECT_EQ(valueIn(file, "S", "\xC3\xA9"), "a\xF0\x9F\x98\x80");
        EXPECT_EQ(valueIn(file, "S", "K"), "1");
        EXPECT_EQ(valueIn(file + '\0', "S", "k"), "1") << "half a unit at the end";
    }
    EXPECT_EQ(valueIn("\xFF\xFE", "S", "k"), kAbsent);
}

TEST(ProfileEncodings, areKeptByAWrite) {
    EXPECT_EQ(profileWithValue("\xEF\xBB\xBF[S]\nk=1\n", "S", "k", "2"), "\xEF\xBB\xBF[S]\nk=2\n");
    EXPECT_EQ(profileWithValue("\xEF\xBB\xBF", "", "k", "2"), "\xEF\xBB\xBFk=2\r\n");
    for (const bool littleEndian : {true, false}) {
        // The last three units are the value "1" and the line end.
        const std::string file = utf16File(littleEndian);
        const std::string e = littleEndian ? "\xE9\0"s : "\0\xE9"s;
        const std::string lineEnd = littleEndian ? "\r\0\n\0"s : "\0\r\0\n"s;
        const std::string expected = file.substr(0, file.size() - 6).append(e).append(lineEnd);
        EXPECT_EQ(profileWithValue(file, "S", "k", "\xC3\xA9"), expected);
        EXPECT_EQ(profileWithValue(file, "S", "k", "1"), file);
        for (const char* const noUtf8 : {"\xE9", "\xC0\x80", "\xED\xA0\xBD\xED\xB8\x80", "\xF4\x90\x80\x80",
                                         "\xFF\xFF\xFF\xFF", "a\xE2\x82"}) {
            EXPECT_EQ(profileWithValue(file, "S", "k", noUtf8), std::nullopt) << noUtf8;
        }
    }
}

struct WriteCase {
    std::string before;
    std::string section;
    std::string key;
    std::string value;
    std::string after;
};

const std::string kExample =
    "; head\n\n[S]\n; c1\na=1\n\n; c2\njunk line\nb = 2 ; tail\n\n\n[T]\nx=1\n; end\n";

TEST(ProfileWriting, changesItsOwnLineAndNoOther) {
    const std::vector<WriteCase> cases = {
        {"", "S", "a", "1", "[S]\r\na=1\r\n"},
        {"", "", "a", "1", "a=1\r\n"},
        // A key that is there.
        {kExample, "S", "a", "new",
         "; head\n\n[S]\n; c1\na=new\n\n; c2\njunk line\nb = 2 ; tail\n\n\n[T]\nx=1\n; end\n"},
        {kExample, "s", "B", "new2",
         "; head\n\n[S]\n; c1\na=1\n\n; c2\njunk line\nb=new2\n\n\n[T]\nx=1\n; end\n"},
        {kExample, "S", "junk line", "j",
         "; head\n\n[S]\n; c1\na=1\n\n; c2\njunk line=j\nb = 2 ; tail\n\n\n[T]\nx=1\n; end\n"},
        {"[S]\nC=3", "S", "c", "8", "[S]\nC=8"},
        {"[S]\n \tC \t= 3 \nd=1", "S", "c", "8", "[S]\n \tC=8\nd=1"},
        {"[S]\nk=1\nk=2\n[S]\nk=3\n", "S", "k", "4", "[S]\nk=4\nk=2\n[S]\nk=3\n"},
        {"[S]\nk=1\n", "S", "k", "", "[S]\nk=\n"},
        {"[S]\nk=1\n", "S", "k", " \t v ", "[S]\nk=v \n"},
        {"[S]\nk=1\n", "S", "k", "\"q\"", "[S]\nk=\"q\"\n"},
        {"[S]\nk=1\n", " S ", " k\t", "2", "[S]\nk=2\n"},
        {"[S]\nk=a=b\n", "S", "k", "c=d", "[S]\nk=c=d\n"},
        // A value that is there.
        {"[S]\n k = 1 \n", "S", "k", " 1 ", "[S]\n k = 1 \n"},
        {"[S]\nk=\"q\"\n", "S", "k", "\"q\"", "[S]\nk=\"q\"\n"},
        {"[S]\nk=\"q\"\n", "S", "k", "q", "[S]\nk=q\n"},
        {"[S]\nk=\n", "S", "k", "", "[S]\nk=\n"},
        {"[S]\nk\n", "S", "k", "", "[S]\nk=\n"},
        // A key that is new.
        {kExample, "S", "n", "added",
         "; head\n\n[S]\n; c1\na=1\n\n; c2\njunk line\nb = 2 ; tail\nn=added\n\n\n[T]\nx=1\n; end\n"},
        {kExample, "T", "n", "added", kExample + "n=added\n"},
        {kExample, "", "n", "added",
         "; head\nn=added\n\n[S]\n; c1\na=1\n\n; c2\njunk line\nb = 2 ; tail\n\n\n[T]\nx=1\n; end\n"},
        {"\n[S]\n", "", "n", "1", "n=1\n\n[S]\n"},
        {"[S]\n\n", "S", " n ", " 1", "[S]\nn=1\n\n"},
        {"[S]\nk=1\n\t\n", "S", "n", "1", "[S]\nk=1\nn=1\n\t\n"},
        {"[S]\nk=1\n[S]\nn=1\n", "S", "n", "2", "[S]\nk=1\nn=2\n[S]\nn=1\n"},
        {"[S]", "S", "n", "1", "[S]\r\nn=1\r\n"},
        // A section that is new.
        {kExample, "U", "n", "added", kExample + "[U]\nn=added\n"},
        {"[S]\nk=1\n\n", " U ", "n", "1", "[S]\nk=1\n\n[U]\nn=1\n"},
        {"[S]\nk=1", "U", "n", "1", "[S]\nk=1\n[U]\nn=1\n"},
        {"[S]\n[U\n", "U", "n", "1", "[S]\n[U\n[U]\nn=1\n"},
        // Every line keeps its end; a new one has that of the first.
        {"[S]\r\nk=1\nl=2\r", "S", "k", "3", "[S]\r\nk=3\nl=2\r"},
        {"[S]\nk=1\r\n", "S", "n", "3", "[S]\nk=1\r\nn=3\n"},
        {"[S]\rk=1", "S", "n", "3", "[S]\rk=1\rn=3\r"},
        {"[S]\r\r\nk=1\r\r\n", "S", "n", "3", "[S]\r\r\nk=1\r\r\nn=3\r\r\n"},
        // A lone CR before a blank line would be one end with that line's.
        {"[S]\rk=1\n\n[T]\n", "S", "n", "3", "[S]\rk=1\nn=3\r\n\n[T]\n"},
        {"[S]\rk=1\n\r\n[T]\n", "S", "n", "3", "[S]\rk=1\nn=3\r\n\r\n[T]\n"},
    };
    for (const WriteCase& c : cases) {
        EXPECT_EQ(profileWithValue(c.before, c.section, c.key, c.value), c.after)
            << testing::PrintToString(c.before) << " [" << c.section << "] " << c.key << "=" << c.value;
    }
}

TEST(ProfileWriting, refusesWhatCouldNotBeReadBack) {
    for (const std::string& part : {"a\rb"s, "a\nb"s, "a\0b"s}) {
        EXPECT_EQ(profileWithValue("[S]\nk=1\n", part, "k", "v"), std::nullopt);
        EXPECT_EQ(profileWithValue("[S]\nk=1\n", "S", part, "v"), std::nullopt);
        EXPECT_EQ(profileWithValue("[S]\nk=1\n", "S", "k", part), std::nullopt);
    }
    EXPECT_EQ(profileWithValue("[S]\n", "S", "a=b", "v"), std::nullopt);
    EXPECT_EQ(profileWithValue("[S]\n", "S", " [k", "v]"), std::nullopt);
    EXPECT_EQ(profileWithValue("", "", "\xEF\xBB\xBFk", "v"), std::nullopt) << "would be a mark";
}

// Garbage of every kind. Work that grows with the square of a line or of the file does not end here.
TEST(ProfileReading, readsLargeGarbage) {
    constexpr std::size_t kSize = 10 * 1000 * 1000;
    std::string noise(kSize, '\0');
    unsigned state = 1;
    for (char& c : noise) {
        state = state * 1664525 + 1013904223;
        c = "\r\n[]=;\"' \t\0\xFFkSa"[state >> 28];
    }
    const std::vector<std::string> fills = {noise,
                                            std::string(kSize, '\r'),
                                            std::string(kSize, '\0'),
                                            std::string(kSize, '['),
                                            std::string(kSize, '='),
                                            std::string(kSize, ' '),
                                            "\xFF\xFE" + noise,
                                            "\xFE\xFF" + std::string(kSize, '\xD8')};
    for (const std::string& fill : fills) {
        const std::optional<std::string> changed = profileWithValue(fill, "Section", "key", "value");
        ASSERT_TRUE(changed.has_value());
        EXPECT_EQ(valueIn(*changed, "Section", "key"), "value");
        EXPECT_EQ(valueIn(*changed, "Section", "other"), kAbsent);
    }
}

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
        const std::string a = GetPrivateProfileString("S", "a", kAbsent, 65536, path);
        ASSERT_TRUE(a == "1" || a == std::string(30000, '2')) << a.substr(0, 40);
        ASSERT_EQ(GetPrivateProfileString("T", "last", kAbsent, 255, path), "x");
        ++reads;
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    EXPECT_EQ(folder.names(), std::vector<std::string>{"a.ini"});
}

}  // namespace
}  // namespace mobrel
