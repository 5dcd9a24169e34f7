// SPDX-License-Identifier: MIT
// The arguments of operations as data, for programs that offer them by name.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace mobrel {

enum class ArgumentKind { Integer, Float, Boolean, Rgb, Choice, Texture };

struct Argument {
    std::string_view name;
    ArgumentKind kind = ArgumentKind::Integer;
    /// A value is a number from least to greatest, but for `except`: of a boolean 0 or 1, of a colour
    /// 0x00BBGGRR, of a choice the place of its word. A texture's is 0; its picture is kept elsewhere.
    double least = 0;
    double greatest = 0;
    /// What stands in when the argument is left out; nothing when it must be given.
    std::optional<double> preset = {};
    std::optional<double> except = {};
    /// The words of a choice.
    std::span<const std::string_view> choices = {};
    /// The operation also goes without it.
    bool isOptional = false;
};

/// An argument that must be one of those words.
constexpr Argument choiceArgument(std::string_view name, std::span<const std::string_view> choices) {
    return {name, ArgumentKind::Choice, 0, static_cast<double>(choices.size()) - 1, {}, {}, choices};
}

}  // namespace mobrel
