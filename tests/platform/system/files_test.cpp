// SPDX-License-Identifier: MIT
// Files, folders and the environment.
#include "platform/system/Files.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <numeric>
#include <string>
#include <vector>

#include "support/TemporaryFolder.hpp"

namespace mobrel {
namespace {

using namespace std::string_literals;
using test::TemporaryFolder;

std::span<const std::uint8_t> bytesOf(std::string_view text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

std::string readText(ByteSource& source, std::size_t count) {
    std::vector<std::uint8_t> bytes(count);
    bytes.resize(source.read(bytes));
    return {bytes.begin(), bytes.end()};
}

// The number of the error a statement throws; 0 when it runs to its end.
template <typename Statement>
int errorOf(Statement&& statement) {
    try {
        statement();
        return 0;
    } catch (const RuntimeError& error) {
        return static_cast<int>(error.number());
    }
}

// A text of `size` bytes in which no stretch repeats soon.
std::string patternOf(std::size_t size) {
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char>((i * 2654435761u) >> 13);
    return text;
}

TEST(ErrorNumbers, followTheReasonOfTheSystem) {
    const std::vector<std::pair<int, int>> cases = {
        {ENOENT, 76},  {ENOTDIR, 76}, {EACCES, 75}, {EPERM, 75},  {EROFS, 75},        {EISDIR, 75},
        {ETXTBSY, 75}, {EEXIST, 75},  {EMFILE, 67}, {ENFILE, 67}, {ENOSPC, 61},       {EDQUOT, 61},
        {EFBIG, 61},   {EINVAL, 52},  {ELOOP, 52},  {EBADF, 52},  {ENAMETOOLONG, 52}, {ENOMEM, 7},
        {EIO, 57},     {0, 57},       {-1, 57},
    };
    for (const auto& [reason, number] : cases) {
        EXPECT_EQ(static_cast<int>(errorNumberOf(reason)), number) << reason;
    }
}

TEST(FileSource, readsAFileToItsEnd) {
    const TemporaryFolder folder;
    FileSource source(folder.write("a", "abcdefg"));
    EXPECT_EQ(source.remaining(), 7u);
    EXPECT_EQ(readText(source, 3), "abc");
    EXPECT_EQ(source.remaining(), 4u);
    EXPECT_EQ(readText(source, 0), "");
    EXPECT_EQ(readText(source, 100), "defg");
    EXPECT_EQ(source.remaining(), 0u);
    EXPECT_EQ(readText(source, 100), "");
    folder.write("a", "ab");  // shorter than what has been read
    EXPECT_EQ(source.remaining(), 0u);
}

TEST(FileSource, waitsForASlowPipeAndLeavesItOpen) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        for (const char c : {'a', 'b', 'c', 'd'}) {
            ::usleep(2000);
            if (::write(ends[1], &c, 1) != 1) ::_exit(1);
        }
        ::_exit(0);
    }
    ::close(ends[1]);
    {
        FileSource source = FileSource::borrowed(ends[0]);
        EXPECT_EQ(source.remaining(), std::nullopt);
        EXPECT_EQ(readText(source, 3), "abc");
        EXPECT_EQ(readText(source, 3), "d");
    }
    EXPECT_EQ(::close(ends[0]), 0);
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
}

TEST(FileSource, tellsWhyItCannotOpenOrRead) {
    const TemporaryFolder folder;
    const std::string file = folder.write("a", "x");
    std::filesystem::create_symlink("circle", folder.file("circle"));
    const std::vector<std::pair<std::string, int>> cases = {
        {folder.file("none"), 53},   {folder.file("none/a"), 53},
        {file + "/b", 76},           {folder.path(), 75},
        {folder.file("circle"), 52}, {folder.file(std::string(300, 'n')), 52},
        {file + "\0b"s, 52},         {"", 53},
    };
    for (const auto& [path, number] : cases) {
        EXPECT_EQ(errorOf([&p = path] { FileSource source(p); }), number) << path;
    }
    const FileDescriptor writeOnly(::open(file.c_str(), O_WRONLY));
    FileSource source = FileSource::borrowed(writeOnly.get());
    EXPECT_EQ(errorOf([&] { readText(source, 1); }), 57);
}

TEST(FileWriter, keepsTheOrderOfSmallAndLargePieces) {
    const TemporaryFolder folder;
    const std::string expected = patternOf(400000);
    FileWriter writer = FileWriter::replace(folder.file("a"));
    std::size_t done = 0;
    for (const std::size_t size : {1u, 65534u, 1u, 1u, 65535u, 65536u, 5u, 100000u, 0u, 7u, 65536u, 30000u}) {
        writer.write(bytesOf(expected).subspan(done, size));
        done += size;
    }
    writer.close();
    writer.close();
    EXPECT_EQ(folder.read("a"), expected.substr(0, done));
    EXPECT_EQ(errorOf([&] { writer.write(bytesOf("x")); }), 52);
}

TEST(FileWriter, writesWhatItHoldsWhenItDiesOrMoves) {
    const TemporaryFolder folder;
    {
        FileWriter first = FileWriter::replace(folder.file("a"));
        first.write(bytesOf("abc"));
        FileWriter second = std::move(first);
        second.write(bytesOf("def"));
    }
    EXPECT_EQ(folder.read("a"), "abcdef");
}

TEST(FileWriter, replacesWhatWasThere) {
    const TemporaryFolder folder;
    const std::string target = folder.write("target", "old and long");
    const mode_t oldMask = ::umask(022);
    struct Case {
        FileWriter (*open)(const std::string&);
        mode_t mode;
    };
    for (const Case& c : {Case{FileWriter::replace, 0644}, Case{FileWriter::replacePrivate, 0600}}) {
        folder.write("file", "old and long");
        std::filesystem::remove(folder.file("link"));
        std::filesystem::create_symlink("target", folder.file("link"));
        for (const std::string& name : {"file"s, "link"s, "new" + std::to_string(c.mode)}) {
            FileWriter writer = c.open(folder.file(name));
            writer.write(bytesOf("new"));
            writer.close();
            EXPECT_EQ(folder.read(name), "new");
            struct stat status = {};
            ASSERT_EQ(::lstat(folder.file(name).c_str(), &status), 0);
            EXPECT_EQ(status.st_mode, S_IFREG | c.mode) << name;
        }
    }
    ::umask(oldMask);
    EXPECT_EQ(folder.read("target"), "old and long");
}

// As nobody, in a folder of somebody else, with a file that may be written but not deleted.
TEST(FileWriter, writesOverAFileItCannotDelete) {
    const TemporaryFolder folder;
    const std::string path = folder.write("a", "old and long");
    ASSERT_EQ(::chmod(path.c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0555), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(255);
        if (errorOf([&] { FileWriter::replace(path).write(bytesOf("new")); }) != 0) ::_exit(254);
        ::_exit(errorOf([&] { FileWriter::replacePrivate(path); }));
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 75);
    EXPECT_EQ(folder.read("a"), "new and long");
}

TEST(FileWriter, tellsWhyItCannotOpen) {
    const TemporaryFolder folder;
    EXPECT_EQ(errorOf([&] { FileWriter::replace(folder.path()); }), 75);
    EXPECT_EQ(errorOf([&] { FileWriter::replacePrivate(folder.path()); }), 75);
    EXPECT_EQ(errorOf([&] { FileWriter::replace(folder.file("none/a")); }), 76);
    EXPECT_EQ(errorOf([&] { FileWriter::replace(folder.file("a\0b"s)); }), 52);
    EXPECT_TRUE(folder.names().empty());
}

TEST(FileWriter, tellsOfAFullDisk) {
    const auto fullDisk = [] { return FileWriter(FileDescriptor(::open("/dev/full", O_WRONLY))); };
    const std::string large = patternOf(70000);
    EXPECT_EQ(errorOf([&] { fullDisk().write(bytesOf(large)); }), 61);
    FileWriter writer = fullDisk();
    writer.write(bytesOf("abc"));
    EXPECT_EQ(errorOf([&] { writer.close(); }), 61);
    EXPECT_EQ(errorOf([&] { writer.close(); }), 0);
    EXPECT_EQ(errorOf([&] { fullDisk().write(bytesOf("abc")); }), 0) << "dies in silence";
}

TEST(FileWriter, tellsOfAFileThatMayNotGrow) {
    const TemporaryFolder folder;
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit limit = {100000, 100000};
        if (::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || ::setrlimit(RLIMIT_FSIZE, &limit) != 0) ::_exit(255);
        FileWriter writer = FileWriter::replace(folder.file("a"));
        ::_exit(errorOf([&] {
            for (int i = 0; i < 300; ++i) writer.write(bytesOf(std::string(1000, 'x')));
        }));
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_EQ(std::filesystem::file_size(folder.file("a")), 100000u);
}

TEST(Files, areFoundDeletedAndRenamedWhereThatIsPossible) {
    const TemporaryFolder folder;
    const std::string a = folder.write("a", "1");
    const std::string b = folder.write("b", "2");
    std::filesystem::create_symlink("none", folder.file("dangling"));
    EXPECT_TRUE(fileExists(a));
    EXPECT_TRUE(fileExists(folder.path()));
    EXPECT_FALSE(fileExists(folder.file("dangling")));
    EXPECT_FALSE(fileExists(a + "\0"s));
    EXPECT_FALSE(fileExists(""));

    renameFileIfPossible(folder.file("none"), b);
    renameFileIfPossible(a, folder.file("none/c"));
    deleteFileIfPossible(folder.path());
    deleteFileIfPossible(a + "\0"s);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"a", "b", "dangling"}));
    renameFileIfPossible(a, b);
    EXPECT_EQ(folder.read("b"), "1");
    EXPECT_FALSE(fileExists(a));
    deleteFileIfPossible(b);
    EXPECT_FALSE(fileExists(b));
}

TEST(Files, areDeletedByAPatternOfDigits) {
    const TemporaryFolder folder;
    for (const char* const name : {"b0000.dat", "B1234.DAT", "b123.dat", "b12345.dat", "b12a4.dat",
                                   "xb0000.dat", "b0000.dat~", "b0000.txt", "c0000.dat", "b+123.dat"}) {
        folder.write(name, "x");
    }
    std::filesystem::create_directory(folder.file("b7777.dat"));
    deleteMatchingFiles(folder.file("none"), "b", 4, ".dat");
    deleteMatchingFiles(folder.path() + "/", "b", 4, ".dat");
    EXPECT_EQ(folder.names(),
              (std::vector<std::string>{"b+123.dat", "b0000.dat~", "b0000.txt", "b123.dat", "b12345.dat",
                                        "b12a4.dat", "b7777.dat", "c0000.dat", "xb0000.dat"}));
}

TEST(Paths, areJoinedByOneSeparator) {
    const std::vector<std::array<std::string, 3>> cases = {
        {"a", "b", "a/b"}, {"a/", "b", "a/b"}, {"a", "/b", "a/b"}, {"a//", "//b/c", "a/b/c"}, {"", "b", "/b"},
        {"/", "b", "/b"},  {"/", "/b", "/b"},  {"", "/b", "/b"},   {"a", "b\\c", "a/b\\c"},
    };
    for (const auto& [folder, name, path] : cases)
        EXPECT_EQ(joinPath(folder, name), path) << folder << " " << name;
}

// Sets a variable of the environment and takes it back.
class Variable {
 public:
    Variable(const char* name, const char* value) : m_name(name) { ::setenv(name, value, 1); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() { ::unsetenv(m_name); }

 private:
    const char* m_name;
};

TEST(Environment, isSearchedByTheExactNameFirst) {
    const Variable lower("mobrel_test_one", "lower");
    const Variable mixed("Mobrel_Test_One", "mixed=1");
    const Variable empty("MOBREL_TEST_TWO", "");
    EXPECT_EQ(environmentValue("mobrel_test_one"), "lower");
    EXPECT_EQ(environmentValue("Mobrel_Test_One"), "mixed=1");
    EXPECT_TRUE(environmentValue("MOBREL_TEST_ONE").has_value());
    EXPECT_EQ(environmentValue("mobrel_test_two"), "");
    EXPECT_EQ(environmentValue("mobrel_test"), std::nullopt);
    EXPECT_EQ(environmentValue(""), std::nullopt);
}

TEST(ProgramFolder, isThatOfTheEnvironmentOrOfTheExecutable) {
    const std::filesystem::path own = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    ::unsetenv("MOBREL_FOLDER");
    EXPECT_EQ(programFolder(), own.string());
    for (const auto& [set, folder] :
         std::vector<std::pair<const char*, std::string>>{{"", own.string()},
                                                          {"/some/where", "/some/where"},
                                                          {"/some/where//", "/some/where"},
                                                          {"/", "/"},
                                                          {"//", "/"}}) {
        const Variable variable("MOBREL_FOLDER", set);
        EXPECT_EQ(programFolder(), folder) << set;
    }
}

}  // namespace
}  // namespace mobrel
