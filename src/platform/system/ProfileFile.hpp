// SPDX-License-Identifier: MIT
// Text files of sections and keys, by the rules of the platform's private profile functions.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace mobrel {

/// The value of a key, at most size - 1 bytes of it; the default, cut likewise and without its
/// trailing blanks and outer quotes, when the file, the section or the key is missing. Names are
/// compared without regard to the case of ASCII letters; blanks (spaces and tabs) around a value and
/// one pair of equal quotes are dropped; the first section and the first key of a name count. An empty
/// value is not a missing one. Size 0 gives the empty text. Never fails: a file that cannot be read is
/// a missing file.
///
/// The keys above the first header are those of the section "". A file in UTF-16 that begins with its
/// mark gives UTF-8; every other one gives its bytes.
///
/// Source: Microsoft, "GetPrivateProfileString function", and measurements of it.
std::string GetPrivateProfileString(std::string_view section, std::string_view key,
                                    std::string_view defaultValue, std::size_t size, const std::string& path);

/// Sets the value of a key. The key's own line changes and no other; a new key becomes the last line
/// of its section, after that section's last line that is not blank; a new section stands at the end
/// of the file. New lines end as the file's first line does, in a new file with CR LF. The file keeps
/// its encoding. It is written aside and renamed, so a reader sees the old or the new one, whole; its
/// mode stays, and so does a symbolic link to it. A value that is already there leaves the file
/// untouched. Leading blanks of the value and outer blanks of the names are dropped.
///
/// False when the file could not be written, in which case it is as it was. Also false for what could
/// not be read back: a line end or a zero byte in a name or the value, a key with '=' or with '[' as
/// its first character, text that the file's encoding cannot hold.
bool WritePrivateProfileString(std::string_view section, std::string_view key, std::string_view value,
                               const std::string& path);

struct ProfileValue {
    std::string_view section;
    std::string_view key;
    std::string value;
};

/// The same for several values in turn, with one reading and one writing of the file. A value that cannot
/// stand in it is left out, and the result is false.
bool WritePrivateProfileStrings(std::span<const ProfileValue> values, const std::string& path);

}  // namespace mobrel
