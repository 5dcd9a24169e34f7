// SPDX-License-Identifier: MIT
// The encodings of a profile file, told by the mark at its start.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mobrel {

enum class ProfileEncoding { Bytes, Utf8, Utf16LittleEndian, Utf16BigEndian };

/// The encoding by the byte order mark; bytes without a mark are taken as they are.
ProfileEncoding profileEncodingOf(std::string_view bytes) noexcept;

/// The text behind the mark. UTF-16 becomes UTF-8, a half of a surrogate pair its three bytes, so that
/// all of it can be turned back; half a code unit at the end is no text.
std::string decodeProfile(std::string_view bytes, ProfileEncoding encoding);

/// The mark and the text in that encoding. None when the text would not be the same when decoded.
std::optional<std::string> encodeProfile(std::string_view text, ProfileEncoding encoding);

}  // namespace mobrel
