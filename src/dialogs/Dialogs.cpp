// SPDX-License-Identifier: MIT
#include "dialogs/Dialogs.hpp"

#include "desktop/DialogRegistry.hpp"
#include "desktop/RunningEvents.hpp"
#include "dialogs/about/fAbout.hpp"
#include "dialogs/filter/fFilter.hpp"
#include "platform/base/RuntimeError.hpp"

namespace mobrel {

namespace {

void runModal(QDialog& dialog) {
    const RunningEvents running;
    dialog.exec();
}

void showFilter(fMain& main, QWidget* parent, std::optional<int> id) {
    fFilter dialog(main, parent);
    if (id) skipErrors([&] { dialog.Initialize(*id); });  // it comes up all the same
    runModal(dialog);
}

void showAbout(fMain& /*main*/, QWidget* parent) {
    fAbout dialog(parent);
    runModal(dialog);
}

}  // namespace

void registerDialogs() {
    dialogRegistry().filter = showFilter;
    dialogRegistry().about = showAbout;
}

}  // namespace mobrel
