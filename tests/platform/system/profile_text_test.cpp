// SPDX-License-Identifier: MIT
// The text of profile files: what is read from it, and what a write makes of it.
#include "platform/system/ProfileText.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mobrel {
namespace {

using namespace std::string_literals;

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

}  // namespace
}  // namespace mobrel
