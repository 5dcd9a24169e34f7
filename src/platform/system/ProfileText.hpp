// SPDX-License-Identifier: MIT
// The contents of a profile file: what is read from them, and what a write makes of them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace mobrel {

/// The value of a key in a file of these bytes; none when the section or the key is missing, or when
/// the key's line has no '='. The bytes may begin with a byte order mark: text in UTF-16 then comes
/// back in UTF-8 (a half of a surrogate pair as its three bytes).
std::optional<std::string> profileValue(std::string_view bytes, std::string_view section,
                                        std::string_view key);

/// The bytes of the file once a key has a value, in the encoding they had; the bytes as they are when
/// the key has that value. None when it could not be read back: a line end or a zero byte in a name or
/// the value, a key with '=' or with '[' as its first character, text the file's encoding cannot hold.
std::optional<std::string> profileWithValue(std::string_view bytes, std::string_view section,
                                            std::string_view key, std::string_view value);

/// A text without its pair of equal outer quotes, as far as it has one.
std::string_view withoutOuterQuotes(std::string_view text) noexcept;

}  // namespace mobrel
