// SPDX-License-Identifier: MIT
// What the desktop knows of the dialogs, which stand above it.
#pragma once

#include <optional>

#include "platform/screen/Desktop.hpp"

class QWidget;

namespace mobrel {

/// How each dialog is shown, until it is closed; null for one that this version does not have. The module
/// enters its dialogs when it is opened.
struct DialogRegistry {
    void (*filter)(fMain& main, QWidget* parent, std::optional<int> id) = nullptr;
    void (*texturize)(fMain& main, QWidget* parent) = nullptr;
    void (*resize)(fMain& main, QWidget* parent) = nullptr;
    void (*orientation)(fMain& main, QWidget* parent) = nullptr;
    void (*print)(fMain& main, QWidget* parent) = nullptr;
    void (*properties)(fMain& main, QWidget* parent) = nullptr;
    void (*about)(fMain& main, QWidget* parent) = nullptr;
    std::optional<FileAnswer> (*file)(fMain& main, QWidget* parent, const FileQuestion& question) = nullptr;
};

inline DialogRegistry& dialogRegistry() {
    static DialogRegistry registry;
    return registry;
}

}  // namespace mobrel
