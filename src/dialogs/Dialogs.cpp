// SPDX-License-Identifier: MIT
#include "dialogs/Dialogs.hpp"

#include "desktop/Boundary.hpp"
#include "desktop/LostDisplay.hpp"
#include "dialogs/about/fAbout.hpp"
#include "dialogs/filter/fFilter.hpp"
#include "platform/base/RuntimeError.hpp"

namespace mobrel {

namespace {

void runModal(QDialog& dialog) {
    const RunningEvents running;
    dialog.exec();
}

void showFilter(int id) {
    fFilter dialog;
    skipErrors([&] { dialog.Initialize(id); });  // it comes up all the same
    runModal(dialog);
}

void showAbout() {
    fAbout dialog;
    runModal(dialog);
}

}  // namespace

bool showDialogByName(std::string_view name, int id) {
    if (name == "fFilter") {
        enterCore([id] { showFilter(id); });
    } else if (name == "fAbout") {
        enterCore(showAbout);
    } else {
        return false;
    }
    return true;
}

}  // namespace mobrel
